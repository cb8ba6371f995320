// How a server is started.
#ifndef GEN_REGISTRY_DOCS_INIT_START_H
#define GEN_REGISTRY_DOCS_INIT_START_H

#include <string>
#include <vector>

namespace gen_registry_docs::init {

struct Start {
  std::string said_by = {};  // the file that says so; empty: the command line
  std::string client = {};   // the entry of the clients' file, in place of a command
  std::string command = {};
  std::vector<std::string> args = {};
  std::string fault = {};  // why it cannot be started yet; a message

  bool operator==(const Start&) const = default;
};

// One of the servers that a file names.
struct Entry {
  std::string name;
  Start start;
};

// All that a file says of starting servers.
struct Entries {
  std::string place;     // of the entries, for messages: "package.json: bin"
  std::string own_name;  // what the file calls all of itself, if it does
  std::vector<Entry> all;
};

}  // namespace gen_registry_docs::init

#endif  // GEN_REGISTRY_DOCS_INIT_START_H
