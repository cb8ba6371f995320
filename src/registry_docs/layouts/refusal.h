// The refusal of a template, with the place of what is wrong.
#ifndef REGISTRY_DOCS_LAYOUTS_REFUSAL_H
#define REGISTRY_DOCS_LAYOUTS_REFUSAL_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

// A line of a template, counted from 1.
struct Place {
  std::string_view name;
  std::size_t line;
};

// All throw InputError "NAME:LINE: expected EXPECTED, found FOUND".
[[noreturn]] void refuse(const Place& place, const std::string& expected,
                         const std::string& found);

// Adds what may have been meant by a name that is none of the candidates.
[[noreturn]] void refuse_name(const Place& place, const std::string& expected,
                              std::string_view found,
                              std::span<const std::string_view> candidates);

// For a member that objects of none of these types have. They may repeat.
[[noreturn]] void refuse_member(const Place& place, std::string_view name,
                                std::span<const ObjectType* const> types);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_REFUSAL_H
