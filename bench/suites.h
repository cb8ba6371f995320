// The suites, each of which says what it measures, by size, and beside which peer.
#ifndef BENCH_SUITES_H
#define BENCH_SUITES_H

#include <benchmark/benchmark.h>

#include <map>
#include <string>

#include "bench/corpora.h"
#include "support/temporary_directory.h"

namespace registry_docs::bench {

// Throws when the scan and its peer do not find the same blocks.
void require_agreement();

void register_scan();
void register_utf8();
void register_values();
void register_rendering();
void register_registry();
void register_check();

// Measures `operation(argument)`.
template <typename Operation, typename Argument>
void measure(benchmark::State& state, Operation operation, const Argument& argument) {
  for (auto _ : state) {
    if constexpr (std::is_void_v<decltype(operation(argument))>) {
      operation(argument);
    } else {
      benchmark::DoNotOptimize(operation(argument));
    }
  }
  state.SetComplexityN(state.range(0));
}

// A benchmark of `operation(made(size))` by size.
template <typename Operation, typename Make>
void add_by_size(const std::string& name, Operation operation, Make made, std::int64_t least,
                 std::int64_t most) {
  benchmark::RegisterBenchmark(
      name.c_str(),
      [=](benchmark::State& state) { measure(state, operation, made(state.range(0))); })
      ->RangeMultiplier(10)
      ->Range(least, most)
      ->Complexity();
}

// The corpus of that size, made once.
inline const std::string& text_of(std::string (*corpus)(std::size_t), std::int64_t size) {
  static std::map<std::pair<std::string (*)(std::size_t), std::int64_t>, std::string> made;
  const auto [place, is_new] = made.try_emplace({corpus, size});
  if (is_new) place->second = corpus(static_cast<std::size_t>(size));
  return place->second;
}

// A repository of so many tools, made once, and removed at the end.
inline std::filesystem::path repository_of(std::int64_t tools) {
  static std::map<std::int64_t, support::TemporaryDirectory> made;
  const auto [place, is_new] = made.try_emplace(tools);
  if (is_new) make_repository(place->second.path(), static_cast<std::size_t>(tools));
  return place->second.path();
}

}  // namespace registry_docs::bench

#endif  // BENCH_SUITES_H
