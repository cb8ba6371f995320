#include "fuzz/target.h"

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  registry_docs::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
