#include "registry_docs/layouts/expressions.h"

#include <algorithm>
#include <array>
#include <vector>

#include "registry_docs/layouts/list_filters.h"
#include "registry_docs/text.h"

namespace registry_docs::layouts {
namespace {

using Start = Expression::Start;

struct LoopVariable {
  std::string_view name;
  Start start;
};

constexpr std::array loop_variables = {LoopVariable{"@first", Start::is_first},
                                       LoopVariable{"@last", Start::is_last},
                                       LoopVariable{"@number", Start::number}};

Start start_of(std::string_view path, const Place& place) {
  if (path == ".") return Start::self;
  if (!path.starts_with('@')) return Start::member;
  const auto* const found = std::ranges::find(loop_variables, path, &LoopVariable::name);
  if (found == loop_variables.end()) {
    refuse(place, R"("@first", "@last" or "@number")", in_quotes(path));
  }
  return found->start;
}

// What stands between the separators, without white space around it.
std::vector<std::string_view> parts_of(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = text.find(separator);
    parts.push_back(strip(text.substr(0, end)));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

bool is_name(std::string_view text) {
  return !text.empty() && text.find_first_of(" \t\r\n") == std::string_view::npos;
}

// The items of a list from its item `begin` on.
template <typename Items>
Range range_from(std::size_t begin, const Items& items) {
  return {.begin = static_cast<std::uint32_t>(begin),
          .size = static_cast<std::uint32_t>(items.size() - begin)};
}

}  // namespace

std::string_view path_in(std::string_view expression) {
  return strip(expression.substr(0, expression.find('|')));
}

bool is_loop_variable(std::string_view path) {
  return std::ranges::find(loop_variables, path, &LoopVariable::name) != loop_variables.end();
}

Expression Expressions::read(std::string_view text, const Place& place) {
  const std::vector<std::string_view> parts = parts_of(text, '|');
  Expression read{.start = start_of(parts[0], place)};
  if (read.start == Start::member) read.path = read_path(parts[0], place);
  if (read.path.size > 1) read.start = Start::path;
  if (read.path.size == 1) read.name = program_.paths[read.path.begin];
  read.filters = read_filters(std::span(parts).subspan(1), place);
  return read;
}

Range Expressions::read_path(std::string_view path, const Place& place) {
  const std::size_t begin = program_.paths.size();
  for (const std::string_view name : parts_of(path, '.')) {
    if (!is_name(name)) refuse(place, "a name", in_quotes(path));
    program_.paths.push_back(names_.id_of(name));
  }
  return range_from(begin, program_.paths);
}

Range Expressions::read_filters(std::span<const std::string_view> filters,
                                const Place& place) {
  const std::size_t begin = program_.filters.size();
  for (const std::string_view name : filters) {
    program_.filters.push_back(filter_of(name, place));
  }
  return range_from(begin, program_.filters);
}

Filter Expressions::filter_of(std::string_view name, const Place& place) const {
  std::vector<std::string_view> names;
  for (const TextFilter& filter : vocabulary_.filters) {
    if (filter.name == name) return filter;
    names.push_back(filter.name);
  }
  for (const ListFilter& filter : list_filters()) {
    if (filter.name == name) return filter.apply;
    names.push_back(filter.name);
  }
  refuse_name(place, "a filter", name, names);
}

}  // namespace registry_docs::layouts
