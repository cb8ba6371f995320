// What a directory holds.
#ifndef PORT_DIRECTORY_H
#define PORT_DIRECTORY_H

#include <string>
#include <system_error>
#include <vector>

namespace port {

enum class EntryKind { directory, link, other };

struct Entry {
  std::string name;
  EntryKind kind;  // of the entry itself, wherever a link points
};

// Appends what the directory holds but itself and the one above, in no order. Returns the
// failure, if any.
std::error_code list_directory(const std::string& path, std::vector<Entry>& entries);

}  // namespace port

#endif  // PORT_DIRECTORY_H
