#include "registry_docs/layouts/context.h"

#include <algorithm>

namespace registry_docs::layouts {
namespace {

bool is_object(const View& view) { return view.kind() == View::Kind::object; }

// Whether its objects may have members that it does not name.
bool has_any_members(const ObjectType* type) { return type->find != nullptr; }

const Member* member_named(const ObjectType& type, std::string_view name) {
  const auto found = std::ranges::find(type.members, name, &Member::name);
  return found == type.members.end() ? nullptr : &*found;
}

}  // namespace

std::size_t Types::number_of(const ObjectType& type) {
  if (last_ < types_.size() && types_[last_] == &type) return last_;
  const auto at = std::ranges::find(types_, &type);
  const auto number = static_cast<std::size_t>(at - types_.begin());
  if (at == types_.end()) types_.push_back(&type);
  return last_ = number;
}

void Members::find_all() {
  for (const ObjectType* type : types_.all().subspan(found_.size() / names_.size())) {
    for (const std::string_view name : names_) found_.push_back(member_named(*type, name));
  }
}

void Context::push(const View& view) {
  Frame& frame = frames_.emplace_back();
  frame.view = view;
  if (is_object(view)) frame.type = types_.number_of(view.object_type());
}

View Context::find(std::span<const NameId> path, Members& members, const Place& place) {
  View view = find_first(path[0], members, place);
  for (const NameId name : path.subspan(1)) view = find_further(view, name, members, place);
  return view;
}

// A member's view is returned as it comes: copied, a rendering takes a fifth longer.
View Context::find_first(NameId name, Members& members, const Place& place) const {
  for (std::size_t i = frames_.size(); i > 0; --i) {
    const auto& [view, type] = frames_[i - 1];
    if (!is_object(view)) continue;
    if (const Member* const member = members.of(type, name)) return member->get(view.data());
    if (!has_any_members(&view.object_type())) continue;
    View found;
    if (view.object_type().find(view.data(), members.name(name), found)) return found;
  }
  require_unknown_members(members.name(name), place);
  return {};
}

View Context::find_further(View of, NameId name, Members& members, const Place& place) {
  if (!is_object(of)) return {};
  const ObjectType* const type = &of.object_type();
  const Member* const member = members.of(types_.number_of(*type), name);
  if (member != nullptr) return member->get(of.data());
  if (!has_any_members(type)) refuse_member(place, members.name(name), {&type, 1});
  View found;
  type->find(of.data(), members.name(name), found);
  return found;
}

void Context::require_unknown_members(std::string_view name, const Place& place) const {
  std::vector<const ObjectType*> types;
  std::for_each(frames_.rbegin(), frames_.rend(), [&](const Frame& each) {
    if (is_object(each.view)) types.push_back(&each.view.object_type());
  });
  if (std::ranges::none_of(types, has_any_members)) refuse_member(place, name, types);
}

}  // namespace registry_docs::layouts
