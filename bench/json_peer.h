// What reading a registry is compared with.
#ifndef BENCH_JSON_PEER_H
#define BENCH_JSON_PEER_H

#include <filesystem>
#include <memory>
#include <string>

namespace registry_docs::bench {

using Bytes = std::unique_ptr<char[]>;

// The bytes of a text or of a file, and a NUL.
Bytes copy_of(const std::string& text);
Bytes contents(const std::filesystem::path& path);

// Has RapidJSON look through a document, which it decodes in place, and makes nothing of it.
void parse_in_place(char* json);

}  // namespace registry_docs::bench

#endif  // BENCH_JSON_PEER_H
