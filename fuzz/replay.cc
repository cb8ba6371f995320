// Tries every file of a directory. To find none is a failure.
#include "fuzz/target.h"

int main(int argc, char** argv) {
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(argc == 2 ? argv[1] : "")) {
    registry_docs::fuzz::run(
        registry_docs::read_bytes(file, registry_docs::FileKind::regular));
    ++count;
  }
  static_cast<void>(std::printf("%d inputs\n", count));
  return count == 0 ? 1 : 0;
}
