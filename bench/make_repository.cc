// make_repository DIR TOOLS: lays out a repository of so many tools whose files are current.
#include <cstdio>
#include <exception>
#include <span>
#include <string>

#include "bench/corpora.h"

int main(int argc, char** argv) {
  const std::span<char*> arguments(argv, static_cast<std::size_t>(argc));
  if (arguments.size() != 3) return 2;
  try {
    registry_docs::bench::make_repository(arguments[1], std::stoul(arguments[2]));
    return 0;
  } catch (const std::exception& error) {
    static_cast<void>(std::fprintf(stderr, "%s\n", error.what()));
    return 1;
  }
}
