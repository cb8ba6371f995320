// A JSON document, kept as the flat list of its values.
#ifndef JSON_DOCUMENT_H
#define JSON_DOCUMENT_H

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace json {

enum class Kind : std::uint8_t { null, boolean, integer, floating, string, array, object };

// One value. The elements of an array follow it; the members of an object follow it as
// pairs of name, a string, and value.
class Token {
 public:
  // A string, decoded; a number or a boolean as it is spelled; or null.
  Token(Kind kind, std::string_view text)
      : data_(text.data()), size_(static_cast<std::uint32_t>(text.size())), kind_(kind) {}
  // An array of so many elements, or an object, that takes up so many tokens, its own and its
  // content's.
  Token(Kind kind, std::size_t elements, std::size_t span)
      : elements_(elements), size_(static_cast<std::uint32_t>(span)), kind_(kind) {}

  [[nodiscard]] Kind kind() const { return kind_; }
  // The tokens that the value takes up.
  [[nodiscard]] std::uint32_t span() const { return is_list() ? size_ : 1; }
  // The number of an array's elements; 0 of everything else.
  [[nodiscard]] std::size_t elements() const { return is_list() ? elements_ : 0; }
  // Of an array and an object, empty.
  [[nodiscard]] std::string_view text() const {
    return is_list() ? std::string_view() : std::string_view(data_, size_);
  }

 private:
  [[nodiscard]] bool is_list() const { return kind_ == Kind::array || kind_ == Kind::object; }

  union {
    const char* data_;
    std::size_t elements_;
  };
  std::uint32_t size_;  // of the text, or the span
  Kind kind_;
};

// A string whose spelling holds escapes, and where its spelling begins.
struct DecodedString {
  const char* source;
  std::string text;
};

// Every number in it can be held: an integer in 64 bits, any other as a double. The
// members of each object have distinct names and keep their order.
class Document {
 public:
  // Keeps `json` as it is. `name` is what messages call it. Throws DecodeError for what is no
  // UTF-8, and InputError for what is no JSON, for a member given twice, a number that
  // cannot be held, and nesting deeper than 256 levels.
  Document(std::string name, std::string json);
  Document(const Document&) = delete;
  Document& operator=(const Document&) = delete;
  ~Document() = default;

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const Token& root() const { return tokens_.front(); }

  // Lets go of the list of values. The texts that were taken from it stay.
  void keep_texts_only() { std::vector<Token>().swap(tokens_); }

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
