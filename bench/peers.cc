#include "bench/peers.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <stdexcept>
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

namespace registry_docs::bench {
namespace {

pcre2_code* compiled(const char* expression) {
  int error = 0;
  PCRE2_SIZE offset = 0;
  pcre2_code* const code =
      pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression), PCRE2_ZERO_TERMINATED,
                    PCRE2_UTF | PCRE2_UCP | PCRE2_DOTALL, &error, &offset, nullptr);
  if (pcre2_jit_compile(code, PCRE2_JIT_COMPLETE) != 0) throw std::runtime_error("no JIT");
  return code;
}

// The groups of the expression that was matched are the parts of the block, in their order.
blocks::Block block_of(std::string_view text, pcre2_match_data* data) {
  const PCRE2_SIZE* const ends = pcre2_get_ovector_pointer(data);
  const auto part = [&](int i) {
    return text.substr(ends[2 * i], ends[2 * i + 1] - ends[2 * i]);
  };
  return {.open = part(1), .name = part(2), .body = part(3), .close = part(4)};
}

}  // namespace

std::vector<blocks::Block> pcre2_scan(std::string_view text) {
  static const pcre2_code* const expression =
      compiled(R"((<!-- registry:([\p{L}\p{N}_:-]+) -->\n)(.*?)(<!-- /registry:\2 -->))");
  static pcre2_match_data* const data = pcre2_match_data_create(5, nullptr);
  const auto* const begin = reinterpret_cast<PCRE2_SPTR>(text.data());
  std::vector<blocks::Block> found;
  std::size_t from = 0;
  while (pcre2_jit_match(expression, begin, text.size(), from, PCRE2_NO_UTF_CHECK, data,
                         nullptr) > 0) {
    found.push_back(block_of(text, data));
    from = pcre2_get_ovector_pointer(data)[1];
  }
  return found;
}

void look_through(std::string_view text) {
  benchmark::DoNotOptimize(std::memchr(text.data(), '\0', text.size()));
}

}  // namespace registry_docs::bench
