#include "registry/layouts.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/layouts/builtin.h"
#include "registry_docs/layouts/render.h"
#include "registry_docs/markdown/safe.h"
#include "registry_docs/markdown/shown_text.h"
#include "registry_docs/markdown/tidy.h"
#include "registry_docs/markers.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

namespace markdown = registry_docs::markdown;
namespace layouts = registry_docs::layouts;

void append_blocks(std::string& to, std::string_view text, std::string_view indent) {
  markdown::append_blocks(to, text, indent);
}
void append_code(std::string& to, std::string_view text, std::string_view) {
  markdown::append_code_span(to, text);
}
// As without a filter, for a piece of a text: a blank at its end parts it from the next.
void append_inline(std::string& to, std::string_view text, std::string_view) {
  if (text.starts_with(' ')) to += ' ';
  markdown::append_inline(to, text);
  if (text.size() > 1 && text.ends_with(' ')) to += ' ';
}
void append_html(std::string& to, std::string_view text, std::string_view) {
  markdown::append_html(to, text);
}

constexpr std::array<layouts::TextFilter, 4> filters = {{{"blocks", append_blocks, true},
                                                         {"code", append_code},
                                                         {"html", append_html},
                                                         {"inline", append_inline}}};
constexpr std::array<layouts::Wrapper, 3> wrappers = {
    {{"@cell", markdown::fit_cell}, {"@tidy", markdown::tidy}, {"@trim", markdown::trim}}};
constexpr layouts::Vocabulary vocabulary = {.filters = filters, .wrappers = wrappers};

const layouts::BuiltinText* find(std::span<const layouts::BuiltinText> texts,
                                 std::string_view name) {
  const auto found = std::ranges::find(texts, name, &layouts::BuiltinText::name);
  return found == texts.end() ? nullptr : &*found;
}

}  // namespace

const Layouts::Template& Layouts::keep(const std::string& name, std::string source) {
  auto& kept = read_[name];
  kept = std::make_unique<const Template>(name, std::move(source), vocabulary);
  return *kept;
}

const Layouts::Template& Layouts::get(const std::string& layout) {
  const auto known = read_.find(layout);
  if (known != read_.end()) return *known->second;
  const auto* const builtin = find(layouts::builtin_layouts(), layout);
  return keep(layout, builtin != nullptr ? std::string(builtin->text)
                                         : registry_docs::read_text(root_ / layout));
}

const Layouts::Template* Layouts::partial(
    const std::optional<std::filesystem::path>& directory, std::string_view name) {
  std::error_code failure;
  if (directory) {
    const std::string path = (*directory / (std::string(name) + ".mustache")).generic_string();
    if (std::filesystem::exists(root_ / path, failure)) return &get(path);
  }
  const std::string key = "partial " + std::string(name);
  const auto known = read_.find(key);
  if (known != read_.end()) return known->second.get();
  const auto* const builtin = find(layouts::builtin_partials(), name);
  return builtin == nullptr ? nullptr : &keep(key, std::string(builtin->text));
}

std::string Layouts::render(const Template& layout, const registry_docs::catalog::Model& model,
                            const Syntax& syntax) {
  const bool is_builtin = find(layouts::builtin_layouts(), layout.name()) != nullptr;
  std::optional<std::filesystem::path> directory;
  if (!is_builtin) directory = std::filesystem::path(layout.name()).parent_path();
  const layouts::Environment environment{
      .escape = markdown::append_inline,
      .partial = [&](std::string_view name) { return partial(directory, name); }};
  std::string text = layouts::render(layout, model.view(), environment);
  if (text.ends_with('\n')) text.pop_back();
  std::string room;
  const std::string_view shown = markdown::shown_text(text, room);
  if (shown.data() != text.data()) text = shown;
  if (const auto marker = registry_docs::find_marker(text, 0, syntax.file.comment)) {
    throw registry_docs::InputError(
        layout.name() + ": expected a text without a block's marker, found " +
        registry_docs::in_quotes(text.substr(marker->begin, marker->end - marker->begin)));
  }
  return text;
}

}  // namespace registry
