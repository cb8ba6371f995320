// Loading the registry, beside RapidJSON's parser alone.
#include <memory>
#include <vector>

#include "bench/json_peer.h"
#include "bench/suites.h"
#include "json/document.h"
#include "json/node.h"
#include "json_schema/field_reader.h"
#include "registry/host.h"
#include "registry/tools.h"
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

// All that the tools' schemas say, without the reading of the JSON.
std::size_t fields(const json::Document& document) {
  std::size_t count = 0;
  std::vector<json_schema::Fault> faults;
  json::Node(document).at("tools").for_each_element([&](const json::Node& tool) {
    count += read_input(tool.at("inputSchema"), faults).fields.size();
  });
  return count;
}

// Their parameter tables alone.
std::size_t tables(const json::Document& document) {
  const json::Document none("none", "{}");
  std::vector<json_schema::Fault> faults;
  return registry::answered_tools(json::Node(document), tesmo_sorvet::Tiers(json::Node(none)),
                                  faults)
      .in_order.size();
}

template <typename Operation>
void add_of_answer(const std::string& name, Operation operation) {
  const auto made = [](std::int64_t tools) {
    return std::make_unique<json::Document>("answer", answer(static_cast<std::size_t>(tools)));
  };
  add_by_size(
      name, [operation](const auto& read) { return operation(*read); }, made, 10, 10'000);
}

}  // namespace

void register_registry() {
  const auto bind = [](const auto& root) { return registry::bind_host(root); };
  add_by_size("registry/document", document, registry_of, 10, 10'000);
  add_by_size("registry/rapidjson", rapidjson, registry_of, 10, 10'000);
  add_by_size("registry/host", bind, repository_of, 10, 10'000);
  const auto answer_of = [](std::int64_t tools) {
    return answer(static_cast<std::size_t>(tools));
  };
  add_by_size("answer/document", document, answer_of, 10, 10'000);
  add_of_answer("answer/fields", fields);
  add_of_answer("answer/tables", tables);
}

}  // namespace registry_docs::bench
