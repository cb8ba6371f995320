// The scan, beside PCRE2 and the machine's limit.
#include "registry_docs/blocks/scan.h"

#include <algorithm>
#include <stdexcept>

#include "bench/peers.h"
#include "bench/suites.h"

namespace registry_docs::bench {
namespace {

using Sizes = std::vector<std::int64_t>;

constexpr std::int64_t whole = 100'000'000;
// All fit in a processor's own cache: memory, which has a speed of its own, tells nothing of
// how a scan grows.
const Sizes bytes = {62'500, 125'000, 250'000, 500'000, 1'000'000};
const Sizes markers = {1000, 3000, 10'000, 30'000, 100'000, 300'000, 1'000'000};

struct Corpus {
  const char* name;
  std::string (*text)(std::size_t size);
  Sizes sizes;
  std::int64_t most_for_pcre2 = whole;  // more takes it minutes
};

const std::vector<Corpus> corpora = {
    {"blocks", blocks, {whole}},
    {"prose", prose, {whole}},
    {"html", html, {whole}},
    {"angles", angles, bytes},
    {"comment_openings", comment_openings, bytes},
    {"near_markers", near_markers, bytes},
    {"openings_of_many_names", openings_of_many_names, markers, 3000},
    {"openings_of_one_name", openings_of_one_name, markers, 3000},
};

bool same(const blocks::Block& left, const blocks::Block& right) {
  return left.open.data() == right.open.data() && left.open == right.open &&
         left.name == right.name && left.body == right.body && left.close == right.close;
}

template <typename Scan>
void add(const std::string& scanner, const Corpus& corpus, Scan scan) {
  auto* const added = benchmark::RegisterBenchmark(
      (scanner + "/" + corpus.name).c_str(), [&corpus, scan](benchmark::State& state) {
        measure(state, scan, text_of(corpus.text, state.range(0)));
      });
  for (const std::int64_t size : corpus.sizes) {
    if (scanner != "pcre2" || size <= corpus.most_for_pcre2) added->Arg(size);
  }
  if (scanner == "scan" && corpus.sizes.size() > 1) added->Complexity();
}

}  // namespace

void require_agreement() {
  for (const Corpus& corpus : corpora) {
    const std::int64_t size = std::min(corpus.sizes.back(), corpus.most_for_pcre2);
    const std::string text = corpus.text(static_cast<std::size_t>(size)) + blocks(5000);
    const auto expected = pcre2_scan(text);
    if (expected.empty() || !std::ranges::equal(blocks::scan(text), expected, same)) {
      throw std::runtime_error(std::string(corpus.name) + ": the scanners disagree");
    }
  }
}

void register_scan() {
  for (const Corpus& corpus : corpora) {
    add("scan", corpus, [](std::string_view text) { return blocks::scan(text); });
    add("memchr", corpus, look_through);
    add("pcre2", corpus, pcre2_scan);
  }
}

}  // namespace registry_docs::bench
