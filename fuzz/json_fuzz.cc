// A document is read as RapidJSON's events give it, or refused where RapidJSON stops.
#include <rapidjson/reader.h>

#include <cerrno>
#include <cmath>
#include <set>

#include "fuzz/target.h"
#include "json/document.h"
#include "json/refusal.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using json::Document;
using json::Kind;
using json::Token;
using rapidjson::SizeType;

// Makes the tokens from the events, and stops for what a document refuses besides: a lone
// surrogate, a number that cannot be held, deep nesting, and a name that stands twice.
class Events : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, Events> {
 public:
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

  [[nodiscard]] const std::vector<Token>& tokens() const { return tokens_; }

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

void require_same(const Document& document, const std::vector<Token>& expected,
                  const std::string& json) {
  const Token* token = &document.root();
  require(token->span() == expected.size(), "as many values", json);
  for (const Token& each : expected) {
    const bool is_same = token->kind() == each.kind() && token->span() == each.span() &&
                         token->text() == each.text();
    require(is_same, "the same values", json);
    ++token;
  }
}

// Of a byte of the document.
std::string position(const std::string& json, std::size_t offset) {
  try {
    json::refuse({"j", json}, json.data() + offset, "");
  } catch (const InputError& error) {
    return error.what();
  }
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  const std::string json(input);
  std::string buffer = json;
  rapidjson::InsituStringStream stream(buffer.data());
  Events events;
  constexpr unsigned flags =
      rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;
  const auto result = rapidjson::Reader().Parse<flags>(stream, events);
  // RapidJSON refuses some that a double holds, such as 0e999.
  if (result.Code() == rapidjson::kParseErrorNumberTooBig) return;
  const bool is_whole = !result.IsError() && stream.Tell() == json.size();
  try {
    const Document document("j", json);
    require(is_whole, "a refusal", json);
    require_same(document, events.tokens(), json);
  } catch (const InputError& error) {
    const std::string message = error.what();
    require(!is_whole, "no refusal", message);
    if (result.Code() == rapidjson::kParseErrorTermination) return;  // by the events
    const std::size_t offset = result.IsError() ? result.Offset() : stream.Tell();
    require(message.starts_with(position(json, offset)), "the same place", message + json);
  }
}

}  // namespace registry_docs::fuzz
