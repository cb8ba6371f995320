// A whole check of a repository whose files are current, beside the least it must do.
#include "bench/peers.h"
#include "bench/suites.h"
#include "registry_docs/registry_docs.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs::bench {
namespace {

std::size_t check(const std::filesystem::path& root) {
  return stale_blocks(tesmo_sorvet::bind_host(root), root).size();
}

}  // namespace

void register_check() {
  add_by_size("check", check, repository_of, 1000, 100'000);
  add_by_size("read_and_parse", read_and_parse, repository_of, 1000, 100'000);
}

}  // namespace registry_docs::bench
