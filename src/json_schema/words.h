// A text for a reader, of words and of what is shown as code.
#ifndef JSON_SCHEMA_WORDS_H
#define JSON_SCHEMA_WORDS_H

#include <string>
#include <vector>

namespace json_schema {

struct Piece {
  std::string text;
  bool is_code = false;

  bool operator==(const Piece&) const = default;
};

// The pieces follow one another as they are.
using Words = std::vector<Piece>;

}  // namespace json_schema

#endif  // JSON_SCHEMA_WORDS_H
