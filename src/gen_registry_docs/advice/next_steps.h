// What to do about problems, said on standard error.
#ifndef GEN_REGISTRY_DOCS_ADVICE_NEXT_STEPS_H
#define GEN_REGISTRY_DOCS_ADVICE_NEXT_STEPS_H

#include <span>
#include <string_view>

#include "gen_registry_docs/advice/advice.h"
#include "gen_registry_docs/options.h"
#include "registry_docs/report.h"

namespace gen_registry_docs::advice {

// Prints the steps that have to be taken by hand, apart from what was said already, and the
// command that does the rest. `steps` are those of the files, one by one. `program` is what
// the user called. Prints nothing when all is current.
void print_next_steps(std::span<const registry_docs::FileReport> files,
                      std::span<const Steps> steps, const Options& options,
                      std::string_view program, std::string_view said = {});

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_NEXT_STEPS_H
