// What a person can do about a problem.
#ifndef GEN_REGISTRY_DOCS_ADVICE_ADVICE_H
#define GEN_REGISTRY_DOCS_ADVICE_ADVICE_H

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "registry_docs/report.h"

namespace gen_registry_docs::advice {

// One thing that has to be fixed by hand.
struct Step {
  std::size_t line;                // where, counted from 1; 0 where no place is known
  std::string text;                // begins with the file
  std::vector<std::string> paste;  // the lines that are to be put in there, if any
};

using Steps = std::vector<Step>;

// What has to be done before a write. Nothing for a file that a write brings up to date.
Steps steps(const registry_docs::FileReport& file);

// The same for each of several files.
std::vector<Steps> steps(std::span<const registry_docs::FileReport> files);

// The lines of all steps, without line feeds.
std::vector<std::string> lines(const Steps& steps);

// Why a write must leave the file alone: its problem, if it is none that a write settles, or a
// merge conflict that writing its blocks anew would not settle. Nothing when it can be
// written.
std::optional<std::string> refusal(const registry_docs::FileReport& file);

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_ADVICE_H
