// Templates in Mustache: {{path}}, {{{path}}} and {{&path}}, {{#path}}...{{/path}}, {{^path}},
// {{! comment}}, {{> partial}}, {{=<% %>=}}, and {{.}} for the value itself. Besides:
//
//   {{path | filter | filter}}    also of sections, which end with the path alone
//   {{@first}} {{@last}} {{@number}}    in the innermost section over a list, from 1
//   {{#@wrapper}}...{{/@wrapper}}    @indent has every line but the first begin below what
//                                    is written in the section's first, behind marks of lists
//
// Unlike in Mustache every number is shown, 0 too, lists and objects show nothing in a tag,
// and only texts are escaped. A line of several tags leaves nothing if each of them alone
// would, but for partials. Empty lines of an indented partial stay empty.
#ifndef REGISTRY_DOCS_LAYOUTS_TEMPLATE_H
#define REGISTRY_DOCS_LAYOUTS_TEMPLATE_H

#include <string>
#include <utility>

#include "registry_docs/layouts/program.h"

namespace registry_docs::layouts {

// A source that has been parsed, once for all renderings.
class Template {
 public:
  // `name` is what messages call it. Of the vocabulary only the functions are kept. Throws
  // InputError "NAME:LINE: expected ..., found ..." for a source that is no template.
  Template(std::string name, std::string source, const Vocabulary& vocabulary)
      : name_(std::move(name)),
        source_(std::move(source)),
        program_(parse(name_, source_, vocabulary)) {}
  Template(const Template&) = delete;
  Template& operator=(const Template&) = delete;
  ~Template() = default;

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] const Program& program() const { return program_; }

 private:
  std::string name_;
  std::string source_;
  Program program_;  // borrows from it
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_TEMPLATE_H
