// Numbers in prose that look like a count of all tools, and are not.
#ifndef GEN_REGISTRY_DOCS_ADVICE_WRONG_COUNT_H
#define GEN_REGISTRY_DOCS_ADVICE_WRONG_COUNT_H

#include <cstddef>
#include <optional>
#include <span>

namespace gen_registry_docs::advice {

// A number before the word "tools".
struct Number {
  std::size_t value;
  bool is_at_least = false;  // "40+"
};

// The place of the first of one text's numbers that seems to be meant for all tools, and is
// not `count`. Prose tells of some of the tools as well: numbers that are far from the count,
// less than it where the count stands beside them, or several different ones that are less.
std::optional<std::size_t> wrong_count(std::span<const Number> numbers, std::size_t count);

}  // namespace gen_registry_docs::advice

#endif  // GEN_REGISTRY_DOCS_ADVICE_WRONG_COUNT_H
