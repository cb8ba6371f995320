#include "registry/layouts.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "registry_docs/errors.h"
#include "registry_docs/layouts/builtin.h"
#include "registry_docs/layouts/render.h"
#include "registry_docs/markdown/mdx.h"
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

void append_trimmed(std::string& to, std::string_view text, std::string_view) {
  markdown::append_inline(to, text);
}

// The same for MDX.
template <layouts::AppendText append,
          void (*make_mdx)(std::string&, std::size_t) = markdown::make_mdx>
void append_mdx(std::string& to, std::string_view text, std::string_view indent) {
  const std::size_t begin = to.size();
  append(to, text, indent);
  make_mdx(to, begin);
}

// As it is, with a blank for each run of white space.
void append_line(std::string& to, std::string_view text) {
  for (text = registry_docs::strip(text); !text.empty();) {
    const std::size_t end = std::min(text.find_first_of(" \t\r\n"), text.size());
    to += text.substr(0, end);
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n", end), text.size()));
    if (!text.empty()) to += ' ';
  }
}

// What a tag without a filter does.
using Escape = void (*)(std::string&, std::string_view);

Escape escape_of(Language language) {
  switch (language) {
    case Language::html:
      return markdown::append_html;
    case Language::mdx:
      return [](std::string& to, std::string_view text) {
        append_mdx<append_trimmed>(to, text, {});
      };
    case Language::source:  // whose lines a text does not end
      return append_line;
    case Language::text:
    case Language::markdown:
      break;
  }
  return markdown::append_inline;
}

constexpr std::array<layouts::TextFilter, 4> filters = {{{"blocks", append_blocks, true},
                                                         {"code", append_code},
                                                         {"html", append_html},
                                                         {"inline", append_inline}}};
constexpr std::array<layouts::Wrapper, 3> wrappers = {
    {{"@cell", markdown::fit_cell}, {"@tidy", markdown::tidy}, {"@trim", markdown::trim}}};
constexpr layouts::Vocabulary vocabulary = {.filters = filters, .wrappers = wrappers};

constexpr std::array<layouts::TextFilter, 4> mdx_filters = {
    {{"blocks", append_mdx<append_blocks>, true},
     {"code", append_mdx<append_code>},
     {"html", append_mdx<append_html, markdown::make_mdx_element>},
     {"inline", append_mdx<append_inline>}}};
constexpr layouts::Vocabulary mdx_vocabulary = {.filters = mdx_filters, .wrappers = wrappers};

std::string key_of(const std::string& name, Language language) {
  return (language == Language::mdx ? "mdx " : "") + name;
}

const layouts::BuiltinText* find(std::span<const layouts::BuiltinText> texts,
                                 std::string_view name) {
  const auto found = std::ranges::find(texts, name, &layouts::BuiltinText::name);
  return found == texts.end() ? nullptr : &*found;
}

}  // namespace

const Layouts::Template& Layouts::keep(const std::string& key, const std::string& name,
                                       std::string source, Language language) {
  auto& kept = read_[key];
  kept = std::make_unique<const Template>(
      name, std::move(source), language == Language::mdx ? mdx_vocabulary : vocabulary);
  return *kept;
}

const Layouts::Template& Layouts::get(const std::string& layout, Language language) {
  const std::string key = key_of(layout, language);
  const auto known = read_.find(key);
  if (known != read_.end()) return *known->second;
  const auto* const builtin = find(layouts::builtin_layouts(), layout);
  return keep(key, layout,
              builtin != nullptr ? std::string(builtin->text)
                                 : registry_docs::read_text(root_ / layout),
              language);
}

const Layouts::Template* Layouts::partial(
    const std::optional<std::filesystem::path>& directory, std::string_view name,
    Language language) {
  std::error_code failure;
  if (directory) {
    const std::string path = (*directory / (std::string(name) + ".mustache")).generic_string();
    if (std::filesystem::exists(root_ / path, failure)) return &get(path, language);
  }
  const std::string own_name = "partial " + std::string(name);
  const std::string key = key_of(own_name, language);
  const auto known = read_.find(key);
  if (known != read_.end()) return known->second.get();
  const auto* const builtin = find(layouts::builtin_partials(), name);
  if (builtin == nullptr) return nullptr;
  return &keep(key, own_name, std::string(builtin->text), language);
}

std::string Layouts::render(const Template& layout, const registry_docs::catalog::Model& model,
                            const Syntax& syntax) {
  const bool is_builtin = find(layouts::builtin_layouts(), layout.name()) != nullptr;
  std::optional<std::filesystem::path> directory;
  if (!is_builtin) directory = std::filesystem::path(layout.name()).parent_path();
  const layouts::Environment environment{.escape = escape_of(syntax.language),
                                         .partial = [&](std::string_view name) {
                                           return partial(directory, name, syntax.language);
                                         }};
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
