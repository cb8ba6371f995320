// What a person can do about a problem.
#ifndef GEN_REGISTRY_DOCS_ADVICE_H
#define GEN_REGISTRY_DOCS_ADVICE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs {

// One thing that has to be mended by hand.
struct Step {
  std::size_t line;                // where, counted from 1; 0 where no place is known
  std::string text;                // begins with the file
  std::vector<std::string> paste;  // the lines that are to be put in there, if any
};

// What has to be done before a write. Nothing for a file that a write brings up to date.
std::vector<Step> advice(const registry_docs::FileReport& file);

// The lines of all its steps, without line feeds.
std::vector<std::string> advice_lines(const registry_docs::FileReport& file);

// A guard of write_blocks: throws ValueError for a text that holds a merge conflict which
// writing its blocks anew would not settle.
void refuse_conflict(const registry_docs::GeneratedFile& file, std::string_view text);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ADVICE_H
