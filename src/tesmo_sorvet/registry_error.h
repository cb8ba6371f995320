// The refusal of a registry file.
#ifndef TESMO_SORVET_REGISTRY_ERROR_H
#define TESMO_SORVET_REGISTRY_ERROR_H

#include <stdexcept>

namespace tesmo_sorvet {

// A registry or a host that cannot be bound. The message begins with the file's name as
// it was given, then the place, then what was expected and what was found.
class RegistryError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_REGISTRY_ERROR_H
