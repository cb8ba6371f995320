#include "bench/peers.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <rapidjson/reader.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <stdexcept>
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include "registry_docs/registry_docs.h"
#include "tesmo_sorvet/host.h"

namespace registry_docs::bench {
namespace {

pcre2_code* compiled(const char* expression) {
  int error = 0;
  PCRE2_SIZE offset = 0;
  pcre2_code* const code =
      pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression), PCRE2_ZERO_TERMINATED,
                    PCRE2_UTF | PCRE2_UCP | PCRE2_DOTALL, &error, &offset, nullptr);
  if (pcre2_jit_compile(code, PCRE2_JIT_COMPLETE) != 0) throw std::runtime_error("no JIT");
  return code;
}

// The groups of the expression that was matched are the parts of the block, in their order.
blocks::Block block_of(std::string_view text, pcre2_match_data* data) {
  const PCRE2_SIZE* const ends = pcre2_get_ovector_pointer(data);
  const auto part = [&](int i) {
    return text.substr(ends[2 * i], ends[2 * i + 1] - ends[2 * i]);
  };
  return {.open = part(1), .name = part(2), .body = part(3), .close = part(4)};
}

using Bytes = std::unique_ptr<char[]>;

Bytes copy_of(const std::string& text) {
  Bytes bytes = std::make_unique_for_overwrite<char[]>(text.size() + 1);
  std::memcpy(bytes.get(), text.c_str(), text.size() + 1);
  return bytes;
}

// The file's bytes and a NUL.
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

}  // namespace

std::vector<blocks::Block> pcre2_scan(std::string_view text) {
  static const pcre2_code* const expression =
      compiled(R"((<!-- registry:([\p{L}\p{N}_:-]+) -->\n)(.*?)(<!-- /registry:\2 -->))");
  static pcre2_match_data* const data = pcre2_match_data_create(5, nullptr);
  const auto* const begin = reinterpret_cast<PCRE2_SPTR>(text.data());
  std::vector<blocks::Block> found;
  std::size_t from = 0;
  while (pcre2_jit_match(expression, begin, text.size(), from, PCRE2_NO_UTF_CHECK, data,
                         nullptr) > 0) {
    found.push_back(block_of(text, data));
    from = pcre2_get_ovector_pointer(data)[1];
  }
  return found;
}

void look_through(std::string_view text) {
  benchmark::DoNotOptimize(std::memchr(text.data(), '\0', text.size()));
}

void parse_json(const std::string& json) { parse_in_place(copy_of(json).get()); }

void read_and_parse(const std::filesystem::path& root) {
  const Host host;
  for (const GeneratedFile& file : generated_files(host)) {
    benchmark::DoNotOptimize(contents(root / file.path).get());
  }
  parse_in_place(contents(root / tesmo_sorvet::registry_path).get());
}

}  // namespace registry_docs::bench
