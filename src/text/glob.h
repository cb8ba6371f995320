// Patterns of paths, as gitignore(5) has them:
//
//   *         any characters but "/", none included
//   ?         one character but "/"
//   [a-z]     one of a class; [!a] and [^a] one of no other but "/"; [[:alpha:]] and the like
//             are of ASCII; "]" stands first or is escaped, "-" first, last or escaped
//   **/x      x, in any directory or in none; as a whole part of the path only
//   x/**/y    y in x, or in any directory within
//   x/**      everything within x, but not x
//   \*        the character itself
//
// A "*" beside another is "*" anywhere else. Upper and lower case differ.
#ifndef TEXT_GLOB_H
#define TEXT_GLOB_H

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "text/character.h"

namespace text {

struct Glob {
  struct Range {
    char32_t first, last;
  };
  // Any characters, or one that lies in a range or, if it is negated, in none.
  struct Token {
    bool is_star = false;
    bool is_negated = false;
    std::size_t ranges_begin = 0, ranges_end = 0;
  };
  // What stands between two slashes: tokens, or "**" for any directories.
  struct Part {
    bool is_directories = false;
    std::size_t begin = 0, end = 0;
  };

  Unit unit = Unit::code_point;
  std::vector<Range> ranges = {};
  std::vector<Token> tokens = {};
  std::vector<Part> parts = {};  // the last is not "**"
};

// Keeps nothing of the pattern. Nothing for one that nothing fits: a class that is not closed
// or that names an unknown one, or a last "\", which escapes nothing.
std::optional<Glob> parse_glob(std::string_view pattern, Unit unit = Unit::code_point);

// Whether all of the path fits. Its parts stand between slashes; it has none at its ends.
// Takes at most the product of the lengths.
bool fits(std::string_view path, const Glob& glob);

}  // namespace text

#endif  // TEXT_GLOB_H
