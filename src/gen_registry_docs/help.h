// What --help prints.
#ifndef GEN_REGISTRY_DOCS_HELP_H
#define GEN_REGISTRY_DOCS_HELP_H

#include <string_view>

namespace gen_registry_docs {

// One screen.
inline constexpr std::string_view help_text =
    R"(usage: gen_registry_docs (--check | --write | --list) [OPTION]... [DIR]...
Makes every list of a tool server's tools from its registry.
  --check          name the files whose lists are out of date; write nothing
    --diff           and what a write would change (--color auto|always|never)
    --format FORMAT  text, json or github, which annotates the files of a change
    --fail-on WHAT   any (problem), or breaking: changes of a server alone
  --write          bring the lists up to date, and print the files that changed
    --exit-code      end with 1 when there were any, so that a hook stops
  --list           show every list with its file, line and state
  --print-layout NAME, --print-model   show a layout, and what layouts see
  --root DIR       the repository (default: the nearest, from here up); DIR...
                   are several, and --recursive takes all below them as well
  --registry FILE  the registry; "-" is standard input (default:
                   src/tesmo_sorvet/tool_registry.json, else registry-docs.json)
  --tools FILE     a saved answer to tools/list, in place of asking the server
    --save-tools FILE  write the answer down; --timeout SECONDS (default: 30)
  --offline        start nothing: the snapshots take the place of the servers
  --strict         what cannot be read of a schema is an error; --jobs N servers
                   are asked at once (default: 32)
  --quiet          print nothing but errors; --help; --version

examples
  gen_registry_docs --check --diff                    # what is out of date, how
  gen_registry_docs --write --save-tools tools.json   # mend it, keep the answer

exit status: 0  nothing to report: all current, or written
             1  problems found, a write refused because of one, or --exit-code
             2  it could not do its work: wrong usage, or a file it cannot use
)";

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_HELP_H
