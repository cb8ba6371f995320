// A template as it is rendered: a flat list of instructions.
#ifndef REGISTRY_DOCS_LAYOUTS_PROGRAM_H
#define REGISTRY_DOCS_LAYOUTS_PROGRAM_H

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <variant>
#include <vector>

#include "registry_docs/layouts/list_filters.h"
#include "registry_docs/layouts/vocabulary.h"

namespace registry_docs::layouts {

using NameId = std::uint32_t;  // of a distinct name: its place among them

using Filter = std::variant<TextFilter, ApplyToList>;

// Some of the items of a list.
struct Range {
  std::uint32_t begin = 0;
  std::uint32_t size = 0;
};

// "path | filter | filter".
struct Expression {
  enum class Start : std::uint8_t { member, path, self, is_first, is_last, number };

  Start start;
  NameId name = 0;  // of a member
  Range path = {};  // the names of a path
  Range filters = {};
};

struct Text {
  std::string_view text;
};

struct ValueTag {
  Expression shown;
  bool is_raw;
};

struct SectionTag {
  Expression over;
  bool is_inverted;
};

struct WrapperTag {
  Wrap wrap;  // null: the engine's own, @indent
};

struct EndTag {};

struct PartialTag {
  NameId name;  // among those of partials
  bool is_alone;
  std::string_view indent;  // of one that is alone on its line
};

struct Instruction {
  std::variant<Text, ValueTag, SectionTag, WrapperTag, EndTag, PartialTag> what;
  std::uint32_t line;
  bool begins_line;        // in an indented partial, the indent stands before it
  std::uint32_t span = 1;  // the instructions that it takes up; of a section, with its end
};

// Borrows from the source that it was parsed from.
struct Program {
  std::vector<Instruction> instructions;
  std::vector<std::string_view> names;     // of members, each once
  std::vector<std::string_view> partials;  // their names, each once
  std::vector<NameId> paths;
  std::vector<Filter> filters;

  [[nodiscard]] std::span<const NameId> path_of(const Expression& expression) const {
    return std::span(paths).subspan(expression.path.begin, expression.path.size);
  }
  [[nodiscard]] std::span<const Filter> filters_of(const Expression& expression) const {
    return std::span(filters).subspan(expression.filters.begin, expression.filters.size);
  }
};

// `name` is what messages call the source. Throws InputError for all that is no template.
Program parse(std::string_view name, std::string_view source, const Vocabulary& vocabulary);

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_PROGRAM_H
