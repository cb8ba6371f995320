// A JSON document, kept as the flat list of its values.
#ifndef TESMO_SORVET_DOCUMENT_DOCUMENT_H
#define TESMO_SORVET_DOCUMENT_DOCUMENT_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tesmo_sorvet {

enum class Kind : std::uint8_t { null, boolean, integer, floating, string, array, object };

// One value. The elements of an array follow it; the members of an object follow it as
// pairs of name, a string, and value.
struct Token {
  Kind kind;
  std::uint32_t span;     // tokens that the value takes up, its own and its content's
  std::string_view text;  // a string decoded; a number or a boolean as it is spelled
};

// Every number in it can be held: an integer in 64 bits, any other as a double. The
// members of each object have distinct names and keep their order.
class Document {
 public:
  // Reads `json`, which is not needed afterwards. `name` is what messages call it. Throws
  // RegistryError for what is no UTF-8 or no JSON, for a member given twice, a number
  // that cannot be held, and nesting deeper than 256 levels.
  Document(std::string name, std::string_view json);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() = default;

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const Token& root() const { return tokens_.front(); }

  // Where a value stands, as in "tools[2].params[0].name"; empty for the root.
  [[nodiscard]] std::string place_of(const Token& token) const;

 private:
  std::string name_;
  std::string buffer_;  // the strings are decoded in here
  std::vector<Token> tokens_;
};

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_DOCUMENT_DOCUMENT_H
