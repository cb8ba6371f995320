// The layouts of a repository: those that come with the program, and its own templates.
#ifndef REGISTRY_LAYOUTS_H
#define REGISTRY_LAYOUTS_H

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "registry/syntax.h"
#include "registry_docs/catalog/model.h"
#include "registry_docs/layouts/template.h"

namespace registry {

// Reads each template when it is asked for first, and keeps it, for each way to write texts.
class Layouts {
 public:
  explicit Layouts(std::filesystem::path root) : root_(std::move(root)) {}

  // The layout of that name, or the template at that path within the repository. Stays where
  // it is. Throws InputError, FileError or DecodeError.
  const registry_docs::layouts::Template& get(const std::string& layout, Language language);

  // What a layout makes of the model: the text of a block, whose closing marker stands behind
  // the last line. A partial is a file beside the layout's own, or one that comes with the
  // program. Throws InputError for what goes wrong within a template, and for a text that
  // holds a block's marker.
  std::string render(const registry_docs::layouts::Template& layout,
                     const registry_docs::catalog::Model& model, const Syntax& syntax);

 private:
  using Template = registry_docs::layouts::Template;

  const Template& keep(const std::string& key, const std::string& name, std::string source,
                       Language language);
  // `directory` is where a template's own partials may lie, if it has any.
  const Template* partial(const std::optional<std::filesystem::path>& directory,
                          std::string_view name, Language language);

  std::filesystem::path root_;
  std::map<std::string, std::unique_ptr<const Template>> read_;
};

}  // namespace registry

#endif  // REGISTRY_LAYOUTS_H
