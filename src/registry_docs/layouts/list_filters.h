// The filters that every template has: {{#tools | by_name}}.
#ifndef REGISTRY_DOCS_LAYOUTS_LIST_FILTERS_H
#define REGISTRY_DOCS_LAYOUTS_LIST_FILTERS_H

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/layouts/refusal.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

// The digits of a number that a view shows.
class Digits {
 public:
  // Borrows from this until the next number.
  View view_of(std::size_t number);

 private:
  std::array<char, 20> digits_{};
};

// What filters made. The view that one gave borrows from it until the next one is used.
struct Made {
  std::string text;
  std::vector<View> elements;
  Digits digits;
};

// A value that is no list is taken for a list of itself if a section is shown for it, else for
// an empty one.
using ApplyToList = View (*)(View from, Made& made, const Place& place);

struct ListFilter {
  std::string_view name;
  ApplyToList apply;
};

// by_name: a list in the order of its elements' member "name", byte by byte; those of one name
// keep theirs. Throws InputError where the elements' type has no such member.
// count: the number of elements. several: whether there is not exactly one.
// reversed: a list from its end on. lines: a text's lines, without their ends.
std::span<const ListFilter> list_filters();

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_LIST_FILTERS_H
