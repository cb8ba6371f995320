// What tags show and sections are over: "path | filter | filter".
#ifndef REGISTRY_DOCS_LAYOUTS_EXPRESSIONS_H
#define REGISTRY_DOCS_LAYOUTS_EXPRESSIONS_H

#include <span>
#include <string_view>

#include "registry_docs/layouts/names.h"
#include "registry_docs/layouts/program.h"
#include "registry_docs/layouts/refusal.h"

namespace registry_docs::layouts {

// The path that an expression begins with.
std::string_view path_in(std::string_view expression);

// Whether a path is one that has a meaning in every section over a list: "@first".
bool is_loop_variable(std::string_view path);

// Reads the expressions of one program.
class Expressions {
 public:
  // Both must outlive this.
  Expressions(Program& program, const Vocabulary& vocabulary)
      : program_(program), vocabulary_(vocabulary), names_(program.names) {}

  // Throws InputError for a path without names, and for an unknown loop variable or filter.
  Expression read(std::string_view text, const Place& place);

 private:
  Range read_path(std::string_view path, const Place& place);
  Range read_filters(std::span<const std::string_view> filters, const Place& place);
  [[nodiscard]] Filter filter_of(std::string_view name, const Place& place) const;

  Program& program_;
  const Vocabulary& vocabulary_;
  Names names_;
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_EXPRESSIONS_H
