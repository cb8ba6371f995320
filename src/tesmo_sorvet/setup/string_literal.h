// Python's plain string literals.
#ifndef TESMO_SORVET_SETUP_STRING_LITERAL_H
#define TESMO_SORVET_SETUP_STRING_LITERAL_H

#include <string>
#include <string_view>

namespace tesmo_sorvet {

// A place in a source file, read from left to right. Line endings are line feeds.
class Source {
 public:
  // Borrows `text`. `path` is what messages call the file.
  Source(const std::string& path, std::string_view text) : path_(&path), text_(text) {}

  [[nodiscard]] bool at_end() const { return at_ == text_.size(); }
  [[nodiscard]] bool at_line_start() const { return at_ == 0 || text_[at_ - 1] == '\n'; }
  [[nodiscard]] std::string_view rest() const { return text_.substr(at_); }
  // The next byte, NUL at the end.
  [[nodiscard]] char peek() const { return at_end() ? '\0' : text_[at_]; }

  void skip(std::size_t bytes) { at_ += bytes; }
  // To the next `c` behind the current byte, or to the end.
  void skip_to_next(char c);

  // Throws InputError: "PATH:LINE: expected EXPECTED, found ...".
  [[noreturn]] void refuse(const std::string& expected) const;
  [[noreturn]] void refuse(const std::string& expected, const std::string& found) const;

 private:
  const std::string* path_;
  std::string_view text_;
  std::size_t at_ = 0;
};

// Reads the literal that begins at the source's place, triple-quoted or on one line, with
// either quote, and returns its value with its escapes read. Refuses f-strings, raw
// strings, bytes, escapes that Python would refuse or that no UTF-8 text can hold, and
// characters by name (\N), for which there is no table here.
std::string read_string_literal(Source& source);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_SETUP_STRING_LITERAL_H
