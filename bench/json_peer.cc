#include "bench/json_peer.h"

#include <fcntl.h>
#include <rapidjson/reader.h>
#include <unistd.h>

#include <cstring>
#include <stdexcept>

namespace registry_docs::bench {

Bytes copy_of(const std::string& text) {
  Bytes bytes = std::make_unique_for_overwrite<char[]>(text.size() + 1);
  std::memcpy(bytes.get(), text.c_str(), text.size() + 1);
  return bytes;
}

Bytes contents(const std::filesystem::path& path) {
  const std::size_t size = file_size(path);
  Bytes bytes = std::make_unique_for_overwrite<char[]>(size + 1);
  const int file = ::open(path.c_str(), O_RDONLY);
  const ssize_t count = ::read(file, bytes.get(), size);
  ::close(file);
  if (count != static_cast<ssize_t>(size)) throw std::runtime_error(path.string());
  bytes[size] = '\0';
  return bytes;
}

void parse_in_place(char* json) {
  constexpr unsigned flags =
      rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
  rapidjson::InsituStringStream stream(json);
  rapidjson::BaseReaderHandler<> ignored;
  if (rapidjson::Reader().Parse<flags>(stream, ignored).IsError()) {
    throw std::runtime_error("no JSON");
  }
}

}  // namespace registry_docs::bench
