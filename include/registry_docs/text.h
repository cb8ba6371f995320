// Texts and text files as the generator reads them, for hosts that read their own.
#ifndef REGISTRY_DOCS_TEXT_H
#define REGISTRY_DOCS_TEXT_H

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace registry_docs {

// The byte offset of the first sequence that is not well-formed UTF-8 (overlong forms,
// surrogates and code points beyond U+10FFFF are ill-formed), or nothing.
std::optional<std::size_t> find_ill_formed(std::string_view bytes);

// Appends a Unicode scalar value, which `code_point` must be, as UTF-8.
void append_code_point(std::string& text, char32_t code_point);

// `text` without the white space, of any script, at its ends. Borrows from `text`.
std::string_view strip(std::string_view text);

// `bytes` as one line that is safe to show at a terminal: control and formatting characters
// and line separators stand in it as escapes ("\n", "\x1b", "\u202e"), as does every byte
// ("\xff") that is no UTF-8. Everything else stays as it is.
std::string visible(std::string_view bytes);

// A text of up to 200 bytes as it is; of a longer one a beginning, cut between characters, and
// "...". For messages that repeat what may be of any size.
std::string excerpt(std::string_view text);

// The excerpt between two quotes.
std::string in_quotes(std::string_view text, char quote = '"');

// The excerpt, made visible, between two single quotes: for bytes that another program wrote.
std::string visible_in_quotes(std::string_view bytes);

// The lines of a text, found from its beginning on, in one pass for all.
class LineCounter {
 public:
  // Borrows `text`.
  explicit LineCounter(std::string_view text) : at_(text.data()) {}

  // The line, counted from 1, that `place`, within the text, stands in. It must not lie before
  // the place that was asked for last.
  std::size_t line_of(const char* place);

 private:
  const char* at_;
  std::size_t line_ = 1;
};

enum class FileKind { regular, regular_or_pipe };

// A file's bytes as they are. A pipe, where it may be one, is waited on and read to its end.
// Throws FileError.
std::string read_bytes(const std::filesystem::path& path, FileKind kind);

// A text file's contents, every CR LF and lone CR made a line feed. A byte-order mark
// stays. Throws FileError for a file that cannot be read or is no regular file, and
// DecodeError for one that is not UTF-8.
std::string read_text(const std::filesystem::path& path);

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_TEXT_H
