// Rewriting a file of the repository in place.
#ifndef REGISTRY_DOCS_REPOSITORY_FILE_H
#define REGISTRY_DOCS_REPOSITORY_FILE_H

#include <filesystem>
#include <string>
#include <string_view>

namespace registry_docs::repository {

// The bytes of a regular file. Throws FileError, also for anything else in its place; a
// pipe there is never waited on.
std::string read_regular_file(const std::filesystem::path& path);

// A file's bytes, which must be UTF-8. Throws as the two below do.
std::string read_whole(const std::filesystem::path& path);

// The text that a file's bytes hold: UTF-8, every CR LF and lone CR made a line feed.
// Throws DecodeError, which names `path`.
std::string decoded(const std::filesystem::path& path, std::string bytes);

// Makes `text` the contents of the file, whose bytes must still be `old_bytes`. The file
// keeps its inode, mode, owner and links. Room for the text is claimed before a byte
// changes; when a write fails all the same, the old bytes are put back. Returns when the
// disk holds the text. Throws FileError, also when another program writes the file too.
void rewrite(const std::filesystem::path& path, std::string_view old_bytes,
             std::string_view text);

// Makes a file, which must not be there, of the text. One that cannot be written whole is
// taken away again. Returns when the disk holds the text. Throws FileError.
void make(const std::filesystem::path& path, std::string_view text);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_FILE_H
