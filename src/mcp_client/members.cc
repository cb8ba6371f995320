#include "mcp_client/members.h"

#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <utility>

namespace mcp_client {
namespace {

using rapidjson::SizeType;

// No message has a reason to be deeper.
constexpr std::size_t deepest = 1000;

// Told by the reader of every value at its end.
class Collector : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Collector> {
 public:
  Collector(std::string_view json, const rapidjson::MemoryStream& stream)
      : json_(json), stream_(&stream) {}

  bool Default() { return end_value(stream_->Tell()); }
  bool StartObject() { return begin_container(true); }
  bool EndObject(SizeType) { return end_container(); }
  bool StartArray() { return begin_container(false); }
  bool EndArray(SizeType) { return end_container(); }
  bool Key(const char* name, SizeType size, bool) {
    if (depth_ == 1) members.push_back({std::string(name, size), {}});
    if (depth_ == 1) begin_ = stream_->Tell();
    return true;
  }

  std::vector<Member> members;

 private:
  bool begin_container(bool is_object) {
    return (is_object || depth_ > 0) && ++depth_ <= deepest;
  }
  bool end_container() {
    --depth_;
    return depth_ == 0 || end_value(stream_->Tell() + 1);  // which its bracket ends
  }
  bool end_value(std::size_t end) {
    if (depth_ != 1) return depth_ > 1;
    const std::string_view text = json_.substr(begin_, end - begin_);
    members.back().value = trimmed(text.substr(text.find(':') + 1));
    return true;
  }

  std::string_view json_;
  const rapidjson::MemoryStream* stream_;
  std::size_t depth_ = 0;
  std::size_t begin_ = 0;  // behind the name of the member at hand
};

template <typename Handler>
bool parse(rapidjson::MemoryStream& stream, Handler& handler) {
  constexpr unsigned flags = rapidjson::kParseIterativeFlag |
                             rapidjson::kParseValidateEncodingFlag |
                             rapidjson::kParseNumbersAsStringsFlag;
  return static_cast<bool>(rapidjson::Reader().Parse<flags>(stream, handler));
}

struct Characters : rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Characters> {
  bool String(const char* begin, SizeType size, bool) {
    text.assign(begin, size);
    return true;
  }
  std::string text;
};

}  // namespace

std::string_view trimmed(std::string_view json) {
  constexpr std::string_view around = " \t\r\n";
  json.remove_prefix(std::min(json.find_first_not_of(around), json.size()));
  return json.substr(0, json.find_last_not_of(around) + 1);
}

std::string_view Members::operator[](std::string_view name) const {
  std::string_view value;
  for (const Member& member : members_) {
    if (member.name == name) value = member.value == "null" ? "" : member.value;
  }
  return value;
}

std::optional<Members> members_of(std::string_view json) {
  rapidjson::MemoryStream stream(json.data(), json.size());
  Collector collector(json, stream);
  if (!parse(stream, collector) || stream.Tell() != json.size()) return std::nullopt;
  return Members(std::move(collector.members));
}

std::optional<std::string> characters_of(std::string_view json) {
  if (!json.starts_with('"')) return std::nullopt;
  rapidjson::MemoryStream stream(json.data(), json.size());
  Characters characters;
  if (!parse(stream, characters)) return std::nullopt;
  return std::move(characters.text);
}

}  // namespace mcp_client
