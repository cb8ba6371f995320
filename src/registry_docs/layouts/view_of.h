// Views of plain records and of vectors of them, by tables that are made when it is compiled.
#ifndef REGISTRY_DOCS_LAYOUTS_VIEW_OF_H
#define REGISTRY_DOCS_LAYOUTS_VIEW_OF_H

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/layouts/json_view.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

inline View view_of(bool is_true) { return View::truth(is_true); }
inline View view_of(std::string_view text) { return View::text(text); }
inline View view_of(const std::string& text) { return View::text(text); }
inline View view_of(const json::MaybeNode& node) { return node ? view_of(*node) : View(); }

// A vector, whose elements are viewed by `view`.
template <typename T, View (*view)(const T&)>
inline constexpr ListType vector_type = {
    .size = [](const void* list) { return static_cast<const std::vector<T>*>(list)->size(); },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          for (const T& element : *static_cast<const std::vector<T>*>(list)) {
            visit(view(element));
          }
        }};

template <typename T, View (*view)(const T&)>
View list_of(const std::vector<T>& list) {
  return View::list(vector_type<T, view>, &list);
}

template <auto pointer>
struct ClassOf;
template <typename T, typename M, M T::*pointer>
struct ClassOf<pointer> {
  using type = T;
};

// The member of a record that a pointer leads to.
template <auto pointer>
constexpr Member member(std::string_view name) {
  using T = typename ClassOf<pointer>::type;
  return {name,
          [](const void* object) { return view_of(static_cast<const T*>(object)->*pointer); }};
}

// A member that a function views.
template <typename T, View (*view)(const T&)>
constexpr Member member(std::string_view name) {
  return {name, [](const void* object) { return view(*static_cast<const T*>(object)); }};
}

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_VIEW_OF_H
