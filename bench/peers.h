// What the measured operations are compared with.
#ifndef BENCH_PEERS_H
#define BENCH_PEERS_H

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/blocks/scan.h"

namespace registry_docs::bench {

// The blocks as PCRE2 finds them, its expression compiled to machine code.
std::vector<blocks::Block> pcre2_scan(std::string_view text);

// One look at each byte, as fast as this machine can: a search for what no text holds.
void look_through(std::string_view text);

// RapidJSON's events of a document that it decodes in place, as the native host has it do,
// with nothing done about them.
void parse_json(const std::string& json);

// The least that a check of the repository must do: its files read, its registry parsed.
void read_and_parse(const std::filesystem::path& root);

}  // namespace registry_docs::bench

#endif  // BENCH_PEERS_H
