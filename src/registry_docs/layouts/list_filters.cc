#include "registry_docs/layouts/list_filters.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace registry_docs::layouts {
namespace {

const std::vector<View>& views_at(const void* list) {
  return *static_cast<const std::vector<View>*>(list);
}

constexpr ListType made_list = {
    .size = [](const void* list) { return views_at(list).size(); },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          std::ranges::for_each(views_at(list), visit);
        },
};

View keep(std::vector<View> elements, Made& made) {
  made.elements = std::move(elements);
  return View::list(made_list, &made.elements);
}

std::vector<View> elements_of(View list) {
  std::vector<View> elements;
  elements.reserve(list.list_type().size(list.data()));
  list.list_type().for_each(list.data(), [&](View each) { elements.push_back(each); });
  return elements;
}

std::size_t size_of(View view) {
  if (view.kind() == View::Kind::list) return view.list_type().size(view.data());
  return view.is_shown() ? 1 : 0;
}

// Empty for what has no name.
std::string_view name_of(View element, const Place& place) {
  if (element.kind() != View::Kind::object) return {};
  const ObjectType& type = element.object_type();
  const auto member = std::ranges::find(type.members, "name", &Member::name);
  View name;
  if (member != type.members.end()) {
    name = member->get(element.data());
  } else if (type.find == nullptr) {
    const ObjectType* const lacking = &type;
    refuse_member(place, "name", {&lacking, 1});
  } else {
    type.find(element.data(), "name", name);
  }
  return name.kind() == View::Kind::text ? name.characters() : std::string_view();
}

View by_name(View from, Made& made, const Place& place) {
  if (from.kind() != View::Kind::list) return from;
  using Named = std::pair<std::string_view, View>;
  std::vector<View> elements = elements_of(from);
  std::vector<Named> named;
  named.reserve(elements.size());
  for (const View each : elements) named.emplace_back(name_of(each, place), each);
  std::ranges::stable_sort(named, {}, &Named::first);
  std::ranges::transform(named, elements.begin(), &Named::second);
  return keep(std::move(elements), made);
}

View count(View from, Made& made, const Place&) { return made.digits.view_of(size_of(from)); }

View lines(View from, Made& made, const Place&) {
  if (from.kind() != View::Kind::text) return from;
  std::vector<View> elements;
  for (std::string_view text = from.characters(); !text.empty();) {
    const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
    elements.push_back(View::text(line));
    text.remove_prefix(line.size());
    text.remove_prefix(text.starts_with("\r\n") ? 2 : text.empty() ? 0 : 1);
  }
  return keep(std::move(elements), made);
}

View reversed(View from, Made& made, const Place&) {
  if (from.kind() != View::Kind::list) return from;
  std::vector<View> elements = elements_of(from);
  std::ranges::reverse(elements);
  return keep(std::move(elements), made);
}

View several(View from, Made&, const Place&) { return View::truth(size_of(from) != 1); }

constexpr std::array filters = {ListFilter{"by_name", by_name}, ListFilter{"count", count},
                                ListFilter{"lines", lines}, ListFilter{"reversed", reversed},
                                ListFilter{"several", several}};

}  // namespace

View Digits::view_of(std::size_t number) {
  const char* const end =
      std::to_chars(digits_.data(), digits_.data() + digits_.size(), number).ptr;
  return View::number({digits_.data(), static_cast<std::size_t>(end - digits_.data())});
}

std::span<const ListFilter> list_filters() { return filters; }

}  // namespace registry_docs::layouts
