// A check of a repository whose files are current.
#include "bench/suites.h"
#include "registry/host.h"
#include "registry_docs/registry_docs.h"

namespace registry_docs::bench {
namespace {

std::size_t check(const std::filesystem::path& root) {
  return stale_blocks(registry::bind_host(root), root).size();
}

}  // namespace

void register_check() { add_by_size("check", check, repository_of, 10, 10'000); }

}  // namespace registry_docs::bench
