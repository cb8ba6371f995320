// Scans one text once, for its instructions to be counted.
#include <cstdio>

#include "bench/corpora.h"
#include "registry_docs/blocks/scan.h"

int main() {
  using namespace registry_docs;
  const std::string text = bench::blocks(200'000) + bench::prose(200'000) +
                           bench::html(200'000) + bench::near_markers(20'000) +
                           bench::openings_of_many_names(1000);
  static_cast<void>(std::printf("%zu blocks\n", blocks::scan(text).size()));
}
