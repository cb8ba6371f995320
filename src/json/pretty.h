// JSON for people and version control to read.
#ifndef JSON_PRETTY_H
#define JSON_PRETTY_H

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

#include "json/node.h"

namespace json {

// Appends to `json` the text as a string of JSON, between quotes.
void append_string(std::string& json, std::string_view text);

// What stands between the parts of a value. As it is: line feeds, and two blanks for each
// level.
struct Spacing {
  std::string line = "\n";   // before the first part of a list, behind its last, and between
  std::string level = "  ";  // behind each `line`, for each level
  std::string comma = ",";   // before the `line` between two parts
  std::string colon = ": ";
};

// Writes a value in parts: those of an array and of an object one after the other, each member
// behind its name.
class Pretty {
 public:
  explicit Pretty(Spacing spacing = {}) : spacing_(std::move(spacing)) {}

  void open(Kind list) { open(list == Kind::array ? '[' : '{'); }
  void close(Kind list) { close(list == Kind::array ? ']' : '}'); }
  void name(std::string_view name);
  void string(std::string_view text);
  void number(std::size_t number);
  // All of a value: members in order, numbers as they are spelled.
  void value(const Node& value);

  // The text, with a line feed at its end, and without.
  std::string take() &&;
  std::string take_value() && { return std::move(text_); }

 private:
  void open(char bracket);
  void close(char bracket);
  void begin_part();
  void begin_line();

  Spacing spacing_;
  std::string text_ = {};
  std::size_t depth_ = 0;
  bool is_named_ = false;  // the name of the next value is written
  bool is_empty_ = true;   // nothing stands in the innermost list
};

// All of a value, with a line feed at its end.
std::string pretty(const Node& value);

}  // namespace json

#endif  // JSON_PRETTY_H
