// A document is read as RapidJSON's events give it, or refused where RapidJSON stops: by the
// rules of a registry, and by those of a message.
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <optional>
#include <set>

#include "fuzz/target.h"
#include "json/document.h"
#include "json/node.h"
#include "json/refusal.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using json::Document;
using json::Kind;
using json::Rules;
using json::Token;
using rapidjson::SizeType;

// Makes the tokens of a registry from the events, and stops for what it refuses besides: a
// lone surrogate, a number that cannot be held, deep nesting, and a name that stands twice.
class RegistryEvents : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, RegistryEvents> {
 public:
  static constexpr Rules rules = Rules::registry;
  static constexpr unsigned flags = rapidjson::kParseInsituFlag;
  using Stream = rapidjson::InsituStringStream;  // which keeps the texts
  static Stream stream_of(std::string& json) { return Stream(json.data()); }

  RegistryEvents(const std::string&, const Stream&) {}

  bool Null() { return add(Kind::null, "null"); }
  bool Bool(bool held) { return add(Kind::boolean, held ? "true" : "false"); }
  bool RawNumber(const char* text, SizeType size, bool) {
    const std::string number(text, size);
    const bool is_floating = number.find_first_of(".eE") != std::string::npos;
    errno = 0;
    if (is_floating) {
      return std::isfinite(std::strtod(number.c_str(), nullptr)) &&
             add(Kind::floating, {text, size});
    }
    if (number[0] == '-') {
      static_cast<void>(std::strtoll(number.c_str(), nullptr, 10));
    } else {
      static_cast<void>(std::strtoull(number.c_str(), nullptr, 10));
    }
    return errno == 0 && add(Kind::integer, {text, size});
  }
  bool String(const char* text, SizeType size, bool) {
    return !find_ill_formed({text, size}) && add(Kind::string, {text, size});
  }
  bool Key(const char* text, SizeType size, bool is_copy) {
    return String(text, size, is_copy) && names_.back().emplace(text, size).second;
  }
  bool StartObject() { return open(Kind::object); }
  bool StartArray() { return open(Kind::array); }
  bool EndObject(SizeType) { return close(0); }
  bool EndArray(SizeType elements) { return close(elements); }

  [[nodiscard]] bool are_those_of(const Document& document) const {
    const Token* const token = &document.root();
    return token->span() == tokens_.size() &&
           std::equal(tokens_.begin(), tokens_.end(), token,
                      [](const Token& left, const Token& right) {
                        return left.kind() == right.kind() && left.span() == right.span() &&
                               left.text() == right.text();
                      });
  }

 private:
  bool add(Kind kind, std::string_view text) {
    tokens_.emplace_back(kind, text);
    return true;
  }
  bool open(Kind kind) {
    if (open_.size() == 256) return false;
    open_.push_back(tokens_.size());
    names_.emplace_back();
    tokens_.emplace_back(kind, 0, 1);
    return true;
  }
  bool close(std::size_t elements) {
    Token& list = tokens_[open_.back()];
    list = {list.kind(), elements, tokens_.size() - open_.back()};
    open_.pop_back();
    names_.pop_back();
    return true;
  }

  std::vector<Token> tokens_;
  std::vector<std::size_t> open_;
  std::vector<std::set<std::string>> names_;
};

// Finds the members of a message, and stops for what it refuses besides: what is no object, a
// lone surrogate, and deep nesting.
class MessageEvents : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, MessageEvents> {
 public:
  static constexpr Rules rules = Rules::message;
  static constexpr unsigned flags = rapidjson::kParseIterativeFlag;
  using Stream = rapidjson::MemoryStream;  // which tells where a number ends
  static Stream stream_of(const std::string& json) { return {json.data(), json.size()}; }

  MessageEvents(const std::string& json, const Stream& stream)
      : json_(json), stream_(stream) {}

  bool Default() { return end_value(stream_.Tell()); }
  bool RawNumber(const char*, SizeType, bool) { return Default(); }
  bool String(const char* text, SizeType size, bool) {
    if (depth_ == 1) members_.back().string.emplace(text, size);
    return !find_ill_formed({text, size}) && end_value(stream_.Tell());
  }
  bool Key(const char* text, SizeType size, bool) {
    if (depth_ == 1) members_.push_back({std::string(text, size), {}, {}});
    if (depth_ == 1) begin_ = stream_.Tell();
    return !find_ill_formed({text, size});
  }
  bool StartObject() { return ++depth_ <= 1000; }
  bool StartArray() { return depth_ > 0 && ++depth_ <= 1000; }
  bool EndObject(SizeType) { return end_list(); }
  bool EndArray(SizeType) { return end_list(); }

  [[nodiscard]] bool are_those_of(const Document& document) const {
    std::vector<Member> found;
    json::Node(document).for_each_member([&](std::string_view name, const json::Node& value) {
      found.push_back({std::string(name), std::string(value.spelling()), {}});
      if (value.kind() == Kind::string) found.back().string = value.string();
    });
    return found == members_;
  }

 private:
  struct Member {
    std::string name, bytes;
    std::optional<std::string> string;
    bool operator==(const Member&) const = default;
  };

  bool end_list() {
    --depth_;
    return depth_ == 0 || end_value(stream_.Tell() + 1);  // which its bracket ends
  }
  bool end_value(std::size_t end) {
    if (depth_ != 1) return depth_ > 1;
    const std::size_t colon = json_.find(':', begin_);
    const std::size_t begin = json_.find_first_not_of(" \t\r\n", colon + 1);
    members_.back().bytes = json_.substr(begin, end - begin);
    return true;
  }

  const std::string& json_;
  const Stream& stream_;
  std::vector<Member> members_;
  std::size_t depth_ = 0;
  std::size_t begin_ = 0;  // behind the name of the member at hand
};

// Of a byte of the document.
std::string position(const std::string& json, std::size_t offset) {
  try {
    json::refuse({"j", json}, json.data() + offset, "");
  } catch (const InputError& error) {
    return error.what();
  }
}

// The first byte that is no blank, or NUL.
char document_begin(const std::string& json) {
  return json.c_str()[std::min(json.find_first_not_of(" \t\r\n"), json.size())];
}

// Compares what is read by the rules of the events with what RapidJSON tells of.
template <typename Events>
void compare(const std::string& json) {
  std::string buffer = json;
  auto stream = Events::stream_of(buffer);
  Events events(json, stream);
  constexpr unsigned flags = Events::flags | rapidjson::kParseNumbersAsStringsFlag;
  const auto result = rapidjson::Reader().Parse<flags>(stream, events);
  // RapidJSON refuses some that a double holds, such as 0e999.
  if (result.Code() == rapidjson::kParseErrorNumberTooBig) return;
  const bool is_whole = !result.IsError() && stream.Tell() == json.size();
  try {
    const Document document("j", json, Events::rules);
    require(is_whole, "a refusal", json);
    require(events.are_those_of(document), "the same values", json);
  } catch (const InputError& error) {
    const std::string message = error.what();
    require(!is_whole, "no refusal", message);
    if (result.Code() == rapidjson::kParseErrorTermination) return;  // by the events
    if (Events::rules == Rules::message && document_begin(json) != '{') return;  // at once
    const std::size_t offset = result.IsError() ? result.Offset() : stream.Tell();
    require(message.starts_with(position(json, offset)), "the same place", message + json);
  }
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  const std::string json(input);
  compare<RegistryEvents>(json);
  compare<MessageEvents>(json);
}

}  // namespace registry_docs::fuzz
