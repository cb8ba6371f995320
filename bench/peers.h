// What the measured operations are compared with.
#ifndef BENCH_PEERS_H
#define BENCH_PEERS_H

#include <string_view>
#include <vector>

#include "registry_docs/blocks/scan.h"

namespace registry_docs::bench {

// The blocks as PCRE2 finds them, its expression compiled to machine code.
std::vector<blocks::Block> pcre2_scan(std::string_view text);

// One look at each byte, as fast as this machine can: a search for what no text holds.
void look_through(std::string_view text);

}  // namespace registry_docs::bench

#endif  // BENCH_PEERS_H
