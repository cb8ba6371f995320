// What to do about problems, said on standard error.
#ifndef GEN_REGISTRY_DOCS_NEXT_STEPS_H
#define GEN_REGISTRY_DOCS_NEXT_STEPS_H

#include <filesystem>
#include <span>
#include <string_view>

#include "gen_registry_docs/options.h"
#include "registry_docs/host.h"
#include "registry_docs/report.h"

namespace gen_registry_docs {

// Prints what has to be mended by hand, apart from what was said already, and the command that
// does the rest. `program` is what the user called. Prints nothing when all is current, and
// when the files cannot be looked at once more.
void print_next_steps(const registry_docs::Host& host, const std::filesystem::path& root,
                      const Options& options, std::string_view program,
                      std::string_view said = {});
void print_next_steps(std::span<const registry_docs::FileReport> files, const Options& options,
                      std::string_view program, std::string_view said = {});

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_NEXT_STEPS_H
