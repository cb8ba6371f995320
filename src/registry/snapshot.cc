#include "registry/snapshot.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>
#include <vector>

#include "json/pretty.h"
#include "registry_docs/catalog/entries.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using json::Pretty;

constexpr std::array<std::string_view, 6> first = {
    "serverInfo", "instructions", "tools", "prompts", "resources", "resourceTemplates"};
constexpr std::size_t first_list = 2;
constexpr std::array<std::string_view, 5> of_one_call = {"_meta", "cacheScope", "nextCursor",
                                                         "resultType", "ttlMs"};

template <typename Names>
bool holds(const Names& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

std::string_view name_of(const Node& entry) {
  const MaybeNode name = entry.kind() == Kind::object ? entry.find("name") : std::nullopt;
  return name && name->kind() == Kind::string ? name->string() : std::string_view();
}

// What is left of a tool's annotations.
std::vector<std::pair<std::string_view, Node>> telling(const Node& annotations) {
  std::vector<std::pair<std::string_view, Node>> members;
  annotations.for_each_member([&members](std::string_view name, const Node& value) {
    if (!registry_docs::catalog::is_default_hint(name, value)) {
      members.emplace_back(name, value);
    }
  });
  return members;
}

void put_annotations(Pretty& text, const Node& annotations) {
  const auto members = telling(annotations);
  if (members.empty()) return;
  text.name("annotations");
  text.open(Kind::object);
  for (const auto& [name, value] : members) {
    text.name(name);
    text.value(value);
  }
  text.close(Kind::object);
}

void put_tool(Pretty& text, const Node& tool) {
  if (tool.kind() != Kind::object) return text.value(tool);
  text.open(Kind::object);
  tool.for_each_member([&text](std::string_view name, const Node& value) {
    if (name == "annotations" && value.kind() == Kind::object) {
      return put_annotations(text, value);
    }
    text.name(name);
    text.value(value);
  });
  text.close(Kind::object);
}

void put_list(Pretty& text, std::string_view list, const Node& declared, Order order) {
  if (declared.kind() != Kind::array) return text.value(declared);
  std::vector<std::pair<std::string_view, Node>> entries;
  declared.for_each_element(
      [&entries](const Node& entry) { entries.emplace_back(name_of(entry), entry); });
  if (order == Order::by_name) {
    std::ranges::stable_sort(entries, {}, [](const auto& entry) { return entry.first; });
  }
  text.open(Kind::array);
  for (const auto& [name, entry] : entries) {
    if (list == "tools") {
      put_tool(text, entry);
    } else {
      text.value(entry);
    }
  }
  text.close(Kind::array);
}

}  // namespace

std::string snapshot_text(const Node& answer, Order order) {
  const auto members = answer.find_each(first);
  Pretty text;
  text.open(Kind::object);
  for (std::size_t i = 0; i < first.size(); ++i) {
    if (!members[i]) continue;
    text.name(first[i]);
    if (i < first_list) {
      text.value(*members[i]);
    } else {
      put_list(text, first[i], *members[i], order);
    }
  }
  answer.for_each_member([&text](std::string_view name, const Node& value) {
    if (holds(first, name) || holds(of_one_call, name)) return;
    text.name(name);
    text.value(value);
  });
  text.close(Kind::object);
  return std::move(text).take();
}

}  // namespace registry
