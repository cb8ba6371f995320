// JSON for people and version control to read: with line feeds and two blanks for each level.
#ifndef JSON_PRETTY_H
#define JSON_PRETTY_H

#include <cstddef>
#include <string>
#include <string_view>

#include "json/node.h"

namespace json {

// Appends to `json` the text as a string of JSON, between quotes.
void append_string(std::string& json, std::string_view text);

// Writes a value in parts: those of an array and of an object one after the other, each member
// behind its name.
class Pretty {
 public:
  void open(Kind list) { open(list == Kind::array ? '[' : '{'); }
  void close(Kind list) { close(list == Kind::array ? ']' : '}'); }
  void name(std::string_view name);
  // All of a value: members in order, numbers as they are spelled.
  void value(const Node& value);

  // The text, with a line feed at its end.
  std::string take() &&;

 private:
  void open(char bracket);
  void close(char bracket);
  void begin_part();
  void begin_line();

  std::string text_ = {};
  std::size_t depth_ = 0;
  bool is_named_ = false;  // the name of the next value is written
  bool is_empty_ = true;   // nothing stands in the innermost list
};

// All of a value, with a line feed at its end.
std::string pretty(const Node& value);

}  // namespace json

#endif  // JSON_PRETTY_H
