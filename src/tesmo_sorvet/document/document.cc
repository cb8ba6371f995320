#include "tesmo_sorvet/document/document.h"

#include <rapidjson/reader.h>

#include <limits>
#include <optional>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/document/events.h"
#include "tesmo_sorvet/document/refusal.h"
#include "tesmo_sorvet/excerpt.h"
#include "tesmo_sorvet/registry_error.h"

namespace tesmo_sorvet {
namespace {

// In place, and numbers as they are spelled, so that none is rounded. The parser recurses,
// but no deeper than the events let it.
constexpr unsigned parse_flags =
    rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;

// What a value takes up in a registry, about.
constexpr std::size_t bytes_per_token = 16;

// What the parser or its events had to say against the document, if anything. The parser
// stopped at `end`.
std::optional<Refusal> refusal_of(const rapidjson::ParseResult& result, const Events& events,
                                  std::string_view json, std::size_t end) {
  if (events.refusal()) return events.refusal();
  if (result.IsError()) return syntax_refusal(json, result.Offset(), result.Code());
  if (end == json.size()) return std::nullopt;
  // A NUL byte ends the parser's text before it ends the document.
  return syntax_refusal(json, end, rapidjson::kParseErrorDocumentRootNotSingular);
}

}  // namespace

Document::Document(std::string name, std::string_view json)
    : name_(std::move(name)), buffer_(json) {
  if (const auto offset = registry_docs::find_ill_formed(json)) {
    throw registry_docs::DecodeError(name_, *offset);
  }
  if (json.size() > std::numeric_limits<std::uint32_t>::max()) {
    throw RegistryError(name_ + ": expected at most 4 GiB, found more");
  }
  rapidjson::InsituStringStream stream(buffer_.data());
  tokens_.reserve(json.size() / bytes_per_token);
  Events events(stream, json, tokens_);
  const auto result = rapidjson::Reader().Parse<parse_flags>(stream, events);
  if (const auto refusal = refusal_of(result, events, json, stream.Tell())) {
    throw RegistryError(position(name_, json, refusal->offset) + ": " + refusal->message);
  }
}

std::string Document::place_of(const Token& token) const {
  std::string place;
  const Token* at = &root();
  while (at != &token) {
    const bool is_object = at->kind() == Kind::object;
    const Token* child = at + 1;  // of an object, the name of its first member
    std::size_t index = 0;
    const auto end_of = [is_object](const Token* begin) {
      const Token* const value = is_object ? begin + 1 : begin;
      return value + value->span();
    };
    for (; end_of(child) <= &token; ++index) child = end_of(child);
    if (is_object) {
      place += (place.empty() ? "" : ".") + excerpt(child->text());
    } else {
      place += "[" + std::to_string(index) + "]";
    }
    at = is_object ? child + 1 : child;
  }
  return place;
}

}  // namespace tesmo_sorvet
