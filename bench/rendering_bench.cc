// Each block as its file stores it; of the tools' own blocks, the first.
#include "bench/suites.h"
#include "registry/host.h"
#include "registry_docs/registry_docs.h"

namespace registry_docs::bench {
namespace {

void render(benchmark::State& state, std::size_t file, std::size_t block) {
  const Host host = registry::bind_host(repository_of(state.range(0)));
  const GeneratedFile generated = generated_files(host).at(file);
  const auto stored = [&](const Renderer& renderer) { return generated.encode(renderer()); };
  measure(state, stored, generated.blocks.at(block).second);
}

}  // namespace

void register_rendering() {
  const Host host = registry::bind_host(repository_of(1));
  const std::vector<GeneratedFile> files = generated_files(host);
  for (std::size_t file = 0; file < files.size(); ++file) {
    for (std::size_t block = 0; block < files[file].blocks.size(); ++block) {
      const std::string name = "render/" + files[file].blocks[block].first;
      benchmark::RegisterBenchmark(name.c_str(), render, file, block)
          ->RangeMultiplier(10)
          ->Range(10, 10'000)
          ->Complexity();
    }
  }
}

}  // namespace registry_docs::bench
