// Tries every file of the directories given. To find none is a failure.
#include "fuzz/target.h"

int main(int argc, char** argv) {
  int count = 0;
  for (const std::string& directory : std::vector<std::string>(argv + 1, argv + argc)) {
    for (const auto& file : std::filesystem::directory_iterator(directory)) {
      registry_docs::fuzz::run(registry_docs::read_bytes(file));
      ++count;
    }
  }
  static_cast<void>(std::printf("%d inputs\n", count));
  return count == 0 ? 1 : 0;
}
