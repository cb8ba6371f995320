// What --help prints.
#ifndef GEN_REGISTRY_DOCS_HELP_H
#define GEN_REGISTRY_DOCS_HELP_H

#include <string_view>

namespace gen_registry_docs {

// One screen.
inline constexpr std::string_view help_text =
    R"(usage: registry-docs (--check | --write | --list) [OPTION]... [DIR]...
       registry-docs init [OPTION]... [-- COMMAND ARG...]
Makes every list of a tool server's tools from its registry.
  --check          name the files whose lists are out of date; write nothing
    --diff           and what a write would change (--color auto|always|never)
    --format FORMAT  text, json or github, which annotates the files of a change
    --fail-on WHAT   any (problem), or breaking: changes of a server alone
  --write          bring the lists up to date, and print the files that changed
    --exit-code      end with 1 when there were any, so that a hook stops
  --list           show every list with its file, line and state
  init             begin a registry: the COMMAND starts the server, or what
                   .mcp.json, package.json or pyproject.toml says; --server NAME
    --markers FILE[:LAYOUT]  for a list in it (--heading TEXT); --dry-run
  --print-layout NAME, --print-model   show a layout, and what layouts see
  --root DIR       the repository (default: the nearest, from here up); DIR...
                   names several, --recursive all below
  --registry FILE  another registry; "-" is standard input
  --offline        start no server, take the snapshots of their answers
  --tools FILE     take a saved answer; --save-tools FILE writes it down
  --timeout SECONDS for an answer (30); --jobs N at once (32); --help; --version
  --strict         no schema may be unreadable; --quiet: print only errors
exit status: 0 all is current, or written; 1 problems found, a write refused
because of one, or --exit-code; 2 wrong usage, or a file that cannot be used
)";

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_HELP_H
