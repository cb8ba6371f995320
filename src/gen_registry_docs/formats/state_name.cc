#include "gen_registry_docs/formats/state_name.h"

namespace gen_registry_docs::formats {

const char* state_name(registry_docs::BlockState state) {
  using registry_docs::BlockState;
  switch (state) {
    case BlockState::current:
      return "current";
    case BlockState::stale:
      return "stale";
    case BlockState::failed:
      return "failed";
    case BlockState::missing:
      return "missing";
    case BlockState::unknown:
      return "unknown";
    case BlockState::repeated:
      return "repeated";
  }
  return "";
}

const char* state_name(registry_docs::FileState state) {
  using registry_docs::FileState;
  switch (state) {
    case FileState::current:
      return "current";
    case FileState::stale:
      return "stale";
    case FileState::wrong_markers:
      return "wrong markers";
    case FileState::failed:
      return "failed";
  }
  return "";
}

}  // namespace gen_registry_docs::formats
