// What the fuzz targets share. The byte 1 separates the parts of an input that has several.
#ifndef FUZZ_TARGET_H
#define FUZZ_TARGET_H

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "registry_docs/registry_docs.h"
#include "registry_docs/text.h"

namespace registry_docs::fuzz {

// What each target defines: tries one input.
void run(std::string_view input);

inline void require(bool holds, const char* what, const std::string& found) {
  if (holds) return;
  static_cast<void>(std::fprintf(stderr, "expected %s, found:\n%s\n", what, found.c_str()));
  std::abort();
}

inline std::string next_part(std::istream& parts) {
  std::string part;
  std::getline(parts, part, '\1');
  return part;
}

}  // namespace registry_docs::fuzz

#endif  // FUZZ_TARGET_H
