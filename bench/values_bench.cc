// The spelling of a list of doubles, beside the standard library's of as many.
#include <array>
#include <charconv>
#include <random>

#include "bench/suites.h"
#include "registry_docs/markdown.h"
#include "registry_docs/value.h"

namespace registry_docs::bench {
namespace {

std::vector<double> doubles(std::int64_t count) {
  std::mt19937_64 random;
  std::vector<double> made;
  for (; count > 0; --count) made.push_back(static_cast<double>(random() >> 11) * 0x1p-30);
  return made;
}

Value list(std::int64_t count) {
  const std::vector<double> items = doubles(count);
  return Value::List(items.begin(), items.end());
}

void spell(const std::vector<double>& items) {
  std::array<char, 32> buffer{};
  for (const double item : items) {
    benchmark::DoNotOptimize(std::to_chars(buffer.begin(), buffer.end(), item).ptr);
  }
}

}  // namespace

void register_values() {
  add_by_size("value/list", markdown::value, list, 10, 10'000);
  add_by_size("value/to_chars", spell, doubles, 10, 10'000);
}

}  // namespace registry_docs::bench
