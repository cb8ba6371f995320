// What a template makes of a value.
#ifndef REGISTRY_DOCS_LAYOUTS_RENDER_H
#define REGISTRY_DOCS_LAYOUTS_RENDER_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "registry_docs/layouts/template.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

// What a rendering needs besides a template and a value.
struct Environment {
  // Appends a text so that nothing in it acts on what stands around. Null: as it is.
  void (*escape)(std::string& to, std::string_view text) = nullptr;
  // The partial of a name, which must outlive the rendering, or null. Empty: there are none.
  // Asked once for each name in each template.
  std::function<const Template*(std::string_view name)> partial = {};
  // How often sections and partials may be gone through, all together.
  std::size_t most_passes = 100'000'000;
};

// Throws InputError "NAME:LINE: expected ..., found ..." for a member that no object around a
// tag has, an unknown partial, a loop variable outside every loop, and for more than 1,000
// sections and partials within each other or too many passes.
std::string render(const Template& source, View root, const Environment& environment);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_RENDER_H
