#include "json_schema/walk.h"

#include <algorithm>
#include <utility>

#include "json/pointer.h"
#include "registry_docs/text.h"

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

// References can make any number of schemas from a few. Of 1,365 tools of real servers, none
// takes more than a tenth of these.
constexpr std::size_t most_steps = 200'000;
constexpr std::size_t most_open = 1000;

}  // namespace

void Walk::add_fault(const Node& at, std::string expected, std::string found) {
  if (!faulty_.insert(at.address()).second) return;
  faults_.push_back({.at = at, .expected = std::move(expected), .found = std::move(found)});
}

bool Walk::require(const Node& value, Kind kind) {
  if (value.kind() == kind) return true;
  add_fault(value, kind_name(kind), kind_name(value.kind()));
  return false;
}

bool Walk::require_schema(const Node& value) {
  if (value.kind() != Kind::boolean) return require(value, Kind::object);
  if (!value.boolean()) add_fault(value, "a schema that some value fits", "false");
  return false;
}

bool Walk::require_elements(const Node& list, const std::string& element) {
  if (!require(list, Kind::array)) return false;
  if (list.size() > 0) return true;
  add_fault(list, "at least one " + element, "none");
  return false;
}

Target Walk::follow(const Node& reference) {
  if (!require(reference, Kind::string)) return {};
  const MaybeNode found = pointed_at(reference.string());
  if (!found) {
    add_fault(reference, "a reference into this " + std::string(name_),
              registry_docs::in_quotes(reference.string()));
    return {};
  }
  if (steps_ > most_steps || open_.size() > most_open || is_open(*found)) {
    return {.name = referenced_name(reference)};
  }
  return {.schema = found};
}

MaybeNode Walk::pointed_at(std::string_view reference) {
  const auto [place, is_new] = targets_.try_emplace(reference);
  if (is_new && reference.starts_with('#')) {
    place->second =
        json::pointed_at(root_, json::without_percent_escapes(reference.substr(1)));
  }
  return place->second;
}

void Walk::open(const Node& schema) {
  open_.push_back(schema.address());
  ++steps_;
}

void Walk::open(const std::vector<Node>& schemas) {
  for (const Node& schema : schemas) open(schema);
}

bool Walk::is_open(const Node& schema) const {
  return std::ranges::find(open_, schema.address()) != open_.end();
}

std::string referenced_name(const Node& reference) {
  const std::string name = json::last_name(json::without_percent_escapes(reference.string()));
  return name.empty() ? "object" : name;
}

}  // namespace json_schema
