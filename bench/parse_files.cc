// The least that a check of many tools can cost: reads the files it is given, and has
// RapidJSON look through the first, a registry.
#include "bench/json_peer.h"

int main(int argc, char** argv) {
  using namespace registry_docs::bench;
  for (int i = 1; i < argc; ++i) {
    const Bytes bytes = contents(argv[i]);
    if (i == 1) parse_in_place(bytes.get());
  }
}
