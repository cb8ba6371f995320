// Runs the suites. The options are those of Google Benchmark.
#include "bench/suites.h"

int main(int argc, char** argv) {
  using namespace registry_docs::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  require_agreement();
  for (const auto suite : {register_scan, register_utf8, register_values, register_rendering,
                           register_registry, register_check}) {
    suite();
  }
  benchmark::RunSpecifiedBenchmarks();
}
