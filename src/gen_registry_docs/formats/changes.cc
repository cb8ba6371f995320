#include "gen_registry_docs/formats/changes.h"

namespace gen_registry_docs::formats {

using registry_docs::changes::Verdict;

std::string_view verdict_name(Verdict verdict) {
  switch (verdict) {
    case Verdict::breaking:
      return "breaking";
    case Verdict::compatible:
      return "compatible";
    case Verdict::words:
      break;
  }
  return "words";
}

std::string told(const registry::ServerChange& change) {
  const std::string before = change.server.empty() ? "" : change.server + ": ";
  return before + change.change.place + ": " + change.change.what;
}

std::string line_of(const registry::ServerChange& change) {
  return change.path + ": " + std::string(verdict_name(change.change.verdict)) + ": " +
         told(change);
}

}  // namespace gen_registry_docs::formats
