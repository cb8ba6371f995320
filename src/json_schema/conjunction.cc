#include "json_schema/conjunction.h"

#include <unordered_set>

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

bool is_null(const Node& value) { return value.kind() == Kind::null; }

bool allows_null_alone(std::string_view keyword, const Node& given) {
  if (keyword == "type") return given.kind() == Kind::string && given.string() == "null";
  if (keyword == "const") return is_null(given);
  bool all = keyword == "enum" && given.kind() == Kind::array && given.size() == 1;
  if (all) given.for_each_element([&all](const Node& value) { all = is_null(value); });
  return all;
}

// Whether a schema is for null and says nothing else.
bool is_only_null(const Node& schema) {
  if (schema.kind() != Kind::object) return false;
  std::size_t members = 0;
  bool is_for_null = false;
  schema.for_each_member([&](std::string_view name, const Node& member) {
    ++members;
    is_for_null = allows_null_alone(name, member);
  });
  return is_for_null && members == 1;
}

bool is_list(const MaybeNode& member) { return member && member->kind() == Kind::array; }

// Adds each schema with what it leads to. `depth` counts those that led here.
class Collector {
 public:
  Collector(Walk& walk, std::vector<Holding>& all) : walk_(walk), all_(all) {}

  void add(const Node& schema, std::size_t led_from, std::size_t depth) {
    if (!seen_.insert(schema.address()).second) return;
    const Opening opening(walk_, schema);
    const Parts parts(schema);
    const std::size_t place = all_.size();
    all_.push_back({.parts = parts, .led_from = led_from});
    if (depth < deepest) lead_from(parts, place, depth + 1);
  }

 private:
  void lead_from(const Parts& parts, std::size_t place, std::size_t depth) {
    const auto lead_to = [&](const Node& schema) {
      if (walk_.require_schema(schema)) add(schema, place, depth);
    };
    if (const MaybeNode& reference = parts[Keyword::reference]) {
      if (const Target target = walk_.follow(*reference); target.schema)
        lead_to(*target.schema);
    }
    if (const MaybeNode& all_of = parts[Keyword::all_of]; is_list(all_of)) {
      all_of->for_each_element(lead_to);
    }
    for (const Keyword keyword : {Keyword::any_of, Keyword::one_of}) {
      if (!is_list(parts[keyword])) continue;
      const std::vector<Node> schemas = more_than_null(*parts[keyword]);
      if (schemas.size() == 1) lead_to(schemas.front());
    }
  }

  Walk& walk_;
  std::vector<Holding>& all_;
  std::unordered_set<const void*> seen_ = {};
};

}  // namespace

bool leads_further(const Parts& parts) {
  return parts[Keyword::reference] || parts[Keyword::all_of] || parts[Keyword::any_of] ||
         parts[Keyword::one_of];
}

void add_all_that_hold(const Node& schema, Walk& walk, std::vector<Holding>& all) {
  Collector(walk, all).add(schema, all.size(), 0);
}

std::vector<Node> way_to(std::size_t place, std::span<const Holding> all) {
  std::vector<Node> way = {all[place].parts.schema()};
  while (all[place].led_from != place) {
    place = all[place].led_from;
    way.push_back(all[place].parts.schema());
  }
  way.insert(way.end(), all[place].around.begin(), all[place].around.end());
  return way;
}

std::vector<Node> more_than_null(const Node& schemas) {
  std::vector<Node> more;
  schemas.for_each_element([&more](const Node& schema) {
    if (!is_only_null(schema)) more.push_back(schema);
  });
  return more;
}

}  // namespace json_schema
