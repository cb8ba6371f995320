// make_repository DIR TOOLS: lays out a repository of so many tools whose files are current.
// make_repository DIR TOOLS answer: one whose blocks layouts make of a saved answer, still
// empty.
#include <cstdio>
#include <exception>
#include <span>
#include <string>

#include "bench/corpora.h"

int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  if (arguments.size() != 3 && arguments.size() != 4) return 2;
  try {
    const auto make = arguments.size() == 3 ? registry_docs::bench::make_repository
                                            : registry_docs::bench::make_answered_repository;
    make(arguments[1], std::stoul(arguments[2]));
    return 0;
  } catch (const std::exception& error) {
    static_cast<void>(std::fprintf(stderr, "%s\n", error.what()));
    return 1;
  }
}
