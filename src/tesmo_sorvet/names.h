// The strings that several kinds of declaration have.
#ifndef TESMO_SORVET_NAMES_H
#define TESMO_SORVET_NAMES_H

#include <string>

#include "tesmo_sorvet/document/node.h"

namespace tesmo_sorvet {

// The member "name", which must be given and not empty.
inline std::string name_of(const Node& declared) {
  const Node name = declared.at("name");
  if (name.string().empty()) name.refuse("a name", "an empty string");
  return std::string(name.string());
}

// A member that is empty when it is not given.
inline std::string string_of(const Node& declared, std::string_view member) {
  const auto found = declared.find(member);
  return std::string(found ? found->string() : "");
}

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_NAMES_H
