// A JSON document, kept as the flat list of its values.
#ifndef JSON_DOCUMENT_H
#define JSON_DOCUMENT_H

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace json {

// What a document may hold, and what is kept of it.
enum class Rules : std::uint8_t {
  // Every value is kept. The members of each object have distinct names. Every number can be
  // held, an integer in 64 bits and any other as a double. Nesting ends at 256 levels.
  registry,
  // What one program writes to another, an object. Of its members, those that are arrays or
  // objects are kept as their bytes alone, so that what stands in them takes no memory. Of
  // members with the same name the last one counts. Numbers may be of any size. Nesting ends
  // at 1000 levels.
  message,
};

enum class Kind : std::uint8_t { null, boolean, integer, floating, string, array, object };

// One value. The elements of an array follow it; the members of an object follow it as
// pairs of name, a string, and value.
class Token {
 public:
  // A string, decoded; null, a boolean and a number as they are spelled; and so an array or an
  // object that nothing follows.
  Token(Kind kind, std::string_view text)
      : data_(text.data()), size_(static_cast<std::uint32_t>(text.size())), kind_(kind) {}
  // An array of so many elements, or an object, that takes up so many tokens, its own and its
  // content's.
  Token(Kind kind, std::size_t elements, std::size_t span)
      : elements_(elements),
        size_(static_cast<std::uint32_t>(span)),
        kind_(kind),
        is_list_(true) {}

  [[nodiscard]] Kind kind() const { return kind_; }
  // Whether the content of an array or an object follows it.
  [[nodiscard]] bool is_list() const { return is_list_; }
  // The tokens that the value takes up.
  [[nodiscard]] std::uint32_t span() const { return is_list_ ? size_ : 1; }
  // The number of an array's elements; 0 of everything else.
  [[nodiscard]] std::size_t elements() const { return is_list_ ? elements_ : 0; }
  // Of an array and an object that its content follows, empty.
  [[nodiscard]] std::string_view text() const {
    return is_list_ ? std::string_view() : std::string_view(data_, size_);
  }

 private:
  union {
    const char* data_;
    std::size_t elements_;
  };
  std::uint32_t size_;  // of the text, or the span
  Kind kind_;
  bool is_list_ = false;
};

// A string whose spelling, between the quotes, holds escapes.
struct DecodedString {
  std::string_view spelling;
  std::string text;
};

// What stands between the quotes of a string. `decoded` holds it if that has escapes.
std::string_view spelling_of(const Token& string, const std::deque<DecodedString>& decoded);

// The members of an object keep their order.
class Document {
 public:
  // Keeps `json` as it is. `name` is what messages call it. Throws DecodeError for what is no
  // UTF-8, and InputError for what is no JSON, for half a pair of surrogates, and for what the
  // rules do not allow.
  Document(std::string name, std::string json, Rules rules = Rules::registry);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() = default;

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] std::string_view json() const { return json_; }  // a NUL stands behind it
  [[nodiscard]] const Token& root() const { return tokens_.front(); }

  // Lets go of the list of values. The texts that were taken from it stay.
  void keep_texts_only() { std::vector<Token>().swap(tokens_); }

  // The bytes of a value, as they stand in the document; none of an array or an object that
  // its content follows.
  [[nodiscard]] std::string_view spelling_of(const Token& token) const;

  // Gives away a part of the document's bytes, which is not copied, for it may be large. The
  // document is of no use from then on.
  std::string take(std::string_view part) &&;

  // Where a value stands, as in "tools[2].params[0].name"; empty for the root.
  [[nodiscard]] std::string place_of(const Token& token) const;

 private:
  std::string name_;
  std::string json_;
  std::deque<DecodedString> decoded_;  // which keeps them where they are as it grows
  std::vector<Token> tokens_;          // they borrow from both
};

}  // namespace json

#endif  // JSON_DOCUMENT_H
