#include "json_schema/children.h"

#include <unordered_map>
#include <utility>

namespace json_schema {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

std::size_t members_of(const Node& object) {
  std::size_t count = 0;
  object.for_each_member([&count](auto, auto) { ++count; });
  return count;
}

// What two schemas say of the same part becomes one child.
class Children {
 public:
  Children(std::span<const Holding> all, Walk& walk) : all_(all), walk_(walk) {}

  std::vector<Child> read() {
    for (; place_ < all_.size(); ++place_) {
      const Parts& parts = all_[place_].parts;
      add_members(parts[Keyword::properties], Step::property);
      add_members(parts[Keyword::pattern_properties], Step::pattern);
      add_rest(parts[Keyword::additional_properties], Step::others);
      add_positions(parts[Keyword::prefix_items]);
      add_positions(parts[Keyword::items]);
      add_rest(parts[Keyword::items], Step::items);
    }
    return std::move(children_);
  }

 private:
  void add_members(const MaybeNode& declared, Step step) {
    if (!declared || !walk_.require(*declared, Kind::object)) return;
    children_.reserve(children_.size() + members_of(*declared));
    declared->for_each_member([&](std::string_view name, const Node& schema) {
      add({.step = step, .name = name, .schema = schema, .within = place_});
    });
  }

  void add_positions(const MaybeNode& declared) {
    if (!declared || declared->kind() != Kind::array) return;
    std::size_t position = 0;
    declared->for_each_element([&](const Node& schema) {
      add({.step = Step::position,
           .name = {},
           .position = position++,
           .schema = schema,
           .within = place_});
    });
  }

  // Of a schema that is empty, or a boolean, there is nothing to tell.
  void add_rest(const MaybeNode& declared, Step step) {
    if (!declared || declared->kind() == Kind::boolean || declared->kind() == Kind::array) {
      return;
    }
    if (!walk_.require(*declared, Kind::object) || members_of(*declared) == 0) return;
    add({.step = step, .name = {}, .schema = *declared, .within = place_});
  }

  void add(Child child) {
    if (all_.size() > 1) {
      std::string path;
      path_to("", child, path);
      const auto [place, is_new] = places_.try_emplace(std::move(path), children_.size());
      if (!is_new) {
        children_[place->second].more.emplace_back(child.schema, child.within);
        return;
      }
    }
    children_.push_back(std::move(child));
  }

  std::span<const Holding> all_;
  Walk& walk_;
  std::size_t place_ = 0;
  std::vector<Child> children_ = {};
  std::unordered_map<std::string, std::size_t> places_ = {};  // by the path
};

}  // namespace

std::vector<Child> children_of(std::span<const Holding> all, Walk& walk) {
  return Children(all, walk).read();
}

void path_to(const std::string& path, const Child& child, std::string& to) {
  const bool is_member =
      !path.empty() && child.step != Step::position && child.step != Step::items;
  to.reserve(path.size() + child.name.size() + 3);
  to = path;
  if (is_member) to += '.';
  switch (child.step) {
    case Step::property:
      to += child.name;
      break;
    case Step::pattern:
      to.append("/").append(child.name) += '/';
      break;
    case Step::others:
      to += '*';
      break;
    case Step::position:
      to += "[" + std::to_string(child.position) + "]";
      break;
    case Step::items:
      to += "[]";
      break;
  }
}

}  // namespace json_schema
