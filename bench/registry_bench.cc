// Loading the registry, beside RapidJSON's parser alone.
#include "bench/json_peer.h"
#include "bench/suites.h"
#include "json/document.h"
#include "registry/host.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs::bench {
namespace {

void document(const std::string& json) {
  benchmark::DoNotOptimize(json::Document("registry", json).root());
}

void rapidjson(const std::string& json) { parse_in_place(copy_of(json).get()); }

std::string registry_of(std::int64_t tools) {
  return read_text(repository_of(tools) / tesmo_sorvet::registry_path);
}

}  // namespace

void register_registry() {
  const auto bind = [](const auto& root) { return registry::bind_host(root); };
  add_by_size("registry/document", document, registry_of, 10, 10'000);
  add_by_size("registry/rapidjson", rapidjson, registry_of, 10, 10'000);
  add_by_size("registry/host", bind, repository_of, 10, 10'000);
}

}  // namespace registry_docs::bench
