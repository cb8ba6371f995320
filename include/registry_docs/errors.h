// The failures that the generator and its hosts raise. Every message begins with the thing it
// concerns (a file's path, a tool's name) and a colon.
#ifndef REGISTRY_DOCS_ERRORS_H
#define REGISTRY_DOCS_ERRORS_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <system_error>

namespace registry_docs {

// A value that the documentation cannot be made from: markers that do not match
// their declaration, a schema that disagrees with the registry. A host may raise it
// too. The check turns it into a problem line; everything else passes it on.
class ValueError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A key that a tool's input schema must hold and does not, or "inputSchema", for a tool that
// has none. No value error: the check passes it on.
class MissingKeyError : public std::runtime_error {
 public:
  // `where` says what lacks the key and begins the message.
  MissingKeyError(const std::string& where, std::string key);

  [[nodiscard]] const std::string& key() const noexcept { return key_; }

 private:
  std::string key_;
};

// A file that the system would not let us open, read or write. The message is the
// path, ": " and the system's reason.
class FileError : public std::runtime_error {
 public:
  FileError(std::string path, std::error_code code);
  // `reason` stands in the message in place of the system's own words.
  FileError(std::string path, std::error_code code, const std::string& reason);

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  [[nodiscard]] const std::error_code& code() const noexcept { return code_; }

 private:
  std::string path_;
  std::error_code code_;
};

// A file that is not UTF-8.
class DecodeError : public std::runtime_error {
 public:
  // `offset` counts the bytes before the first ill-formed sequence.
  DecodeError(std::string path, std::size_t offset);

  [[nodiscard]] const std::string& path() const noexcept { return path_; }
  [[nodiscard]] std::size_t offset() const noexcept { return offset_; }

 private:
  std::string path_;
  std::size_t offset_;
};

// An input that cannot be used: a registry, a server's answer, the rules text. The message
// begins with the input's name as it was given, then the place, then what was expected there
// and what was found.
class InputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_ERRORS_H
