// From the bytes of a JSON text to the list of its values.
#ifndef JSON_SCANNER_H
#define JSON_SCANNER_H

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "json/document.h"
#include "json/refusal.h"

namespace json {

// Reads the source in one pass, and adds the values that are kept to the tokens, which borrow
// from it and from the strings that were decoded. A class for each set of rules, so that none
// pays for what another asks.
template <Rules rules>
class Scanner {
 public:
  // All must outlive this, the source's own strings too.
  Scanner(const Source& source, std::vector<Token>& tokens, std::deque<DecodedString>& decoded)
      : source_(source),
        end_(source.json.data() + source.json.size()),
        tokens_(tokens),
        decoded_(decoded) {}

  // Throws InputError for all that makes no Document of these rules.
  void read();

 private:
  // Each is given where what it reads begins, and says where that ends. A NUL stands at the
  // end of the source and fits nowhere in JSON, so that one byte can always be looked at.
  const char* read_value(const char* at);
  const char* read_object(const char* at);
  const char* read_members(const char* at, std::size_t object);
  const char* read_name(const char* at);
  const char* read_array(const char* at);
  const char* read_elements(const char* at, std::size_t& elements);
  const char* read_string(const char* at);
  const char* read_escaped_string(const char* begin, const char* at);
  const char* read_number(const char* at);
  const char* read_word(const char* at, std::string_view word, Kind kind);

  [[nodiscard]] const char* skip_blanks(const char* at) const;
  [[nodiscard]] const char* skip_digits(const char* at, std::string_view expected) const;
  [[nodiscard]] bool keeps() const;
  void add(Kind kind, std::string_view text);
  void add_bytes(const char* begin, const char* end);
  std::size_t open(const char* at, Kind kind);
  void close(std::size_t list, std::size_t elements);
  void require_distinct_names(std::size_t object) const;

  Source source_;
  const char* end_;
  std::vector<Token>& tokens_;
  std::deque<DecodedString>& decoded_;
  std::size_t depth_ = 0;  // the arrays and objects around what comes next
};

}  // namespace json

#endif  // JSON_SCANNER_H
