#include "tesmo_sorvet/document/document.h"

#include <rapidjson/reader.h>

#include <algorithm>
#include <limits>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "tesmo_sorvet/document/events.h"
#include "tesmo_sorvet/registry_error.h"

namespace tesmo_sorvet {
namespace {

// In place, and numbers as they are spelled, so that none is rounded. The parser recurses,
// but no deeper than the events let it.
constexpr unsigned parse_flags =
    rapidjson::kParseInsituFlag | rapidjson::kParseNumbersAsStringsFlag;

// What a value takes up in a registry, about.
constexpr std::size_t bytes_per_token = 16;

bool continues_a_code_point(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// "NAME:LINE:COLUMN", both counted from 1, columns in code points.
std::string position(const std::string& name, std::string_view json, std::size_t offset) {
  const std::string_view before = json.substr(0, offset);
  const auto line = std::ranges::count(before, '\n') + 1;
  const std::string_view in_line = before.substr(before.rfind('\n') + 1);
  const auto column =
      std::ranges::count_if(in_line, [](char c) { return !continues_a_code_point(c); }) + 1;
  return name + ":" + std::to_string(line) + ":" + std::to_string(column);
}

// The character that stands at `offset`, for a reader.
std::string found_at(std::string_view json, std::size_t offset) {
  if (offset >= json.size()) return "the end of the document";
  if (static_cast<unsigned char>(json[offset]) < 0x20) return "a control character";
  std::size_t end = offset + 1;
  while (end < json.size() && continues_a_code_point(json[end])) ++end;
  return "'" + std::string(json.substr(offset, end - offset)) + "'";
}

std::string expected_by(rapidjson::ParseErrorCode code) {
  switch (code) {
    case rapidjson::kParseErrorDocumentEmpty:
      return "a JSON object";
    case rapidjson::kParseErrorDocumentRootNotSingular:
      return "nothing after the document";
    case rapidjson::kParseErrorObjectMissName:
      return "a member's name between double quotes";
    case rapidjson::kParseErrorObjectMissColon:
      return "a colon after the member's name";
    case rapidjson::kParseErrorObjectMissCommaOrCurlyBracket:
      return "a comma or a closing brace";
    case rapidjson::kParseErrorArrayMissCommaOrSquareBracket:
      return "a comma or a closing bracket";
    case rapidjson::kParseErrorStringUnicodeEscapeInvalidHex:
      return "four hexadecimal digits after \\u";
    case rapidjson::kParseErrorStringUnicodeSurrogateInvalid:
      return "a pair of surrogates";
    case rapidjson::kParseErrorStringEscapeInvalid:
      return "a valid escape or no control character in a string";
    case rapidjson::kParseErrorStringMissQuotationMark:
      return "a double quote at the end of the string";
    case rapidjson::kParseErrorNumberTooBig:
      return "an integer from -2^63 to 2^64 - 1 or a number that a double can hold";
    case rapidjson::kParseErrorNumberMissFraction:
      return "a digit after the decimal point";
    case rapidjson::kParseErrorNumberMissExponent:
      return "a digit in the exponent";
    default:
      return "a JSON value";
  }
}

// What the parser or its handler had to say against the document, if anything.
std::optional<Refusal> refusal_of(const rapidjson::ParseResult& result, const Events& events,
                                  std::string_view json, std::size_t end) {
  if (events.refusal()) return events.refusal();
  // A NUL byte ends the parser's stream before it ends the document.
  const bool is_cut_short = !result.IsError() && end < json.size();
  if (!result.IsError() && !is_cut_short) return std::nullopt;
  const std::size_t offset = is_cut_short ? end : result.Offset();
  const auto code =
      is_cut_short ? rapidjson::kParseErrorDocumentRootNotSingular : result.Code();
  return Refusal{
      .offset = offset,
      .message = "expected " + expected_by(code) + ", found " + found_at(json, offset)};
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
    const bool is_object = at->kind == Kind::object;
    const Token* child = at + 1;  // of an object, the name of its first member
    std::size_t index = 0;
    const auto end_of = [is_object](const Token* begin) {
      const Token* const value = is_object ? begin + 1 : begin;
      return value + value->span;
    };
    for (; end_of(child) <= &token; ++index) child = end_of(child);
    if (is_object) {
      place += (place.empty() ? "" : ".") + std::string(child->text);
    } else {
      place += "[" + std::to_string(index) + "]";
    }
    at = is_object ? child + 1 : child;
  }
  return place;
}

}  // namespace tesmo_sorvet
