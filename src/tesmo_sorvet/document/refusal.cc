#include "tesmo_sorvet/document/refusal.h"

#include <algorithm>

#include "tesmo_sorvet/document/number.h"

namespace tesmo_sorvet {
namespace {

bool continues_a_code_point(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

// What stands at `offset`, for a reader.
std::string found_at(std::string_view json, std::size_t offset) {
  const std::string_view rest = json.substr(std::min(offset, json.size()));
  if (rest.empty()) return "the end of the document";
  if (static_cast<unsigned char>(rest[0]) < ' ') return "a control character";
  if (rest.starts_with("\uFEFF")) return "a byte-order mark";
  const bool is_escape = rest[0] == '\\' && rest.size() > 1 && rest[1] > ' ';
  std::size_t end = is_escape ? 2 : 1;  // an escape is shown with its letter
  while (end < rest.size() && continues_a_code_point(rest[end])) ++end;
  return "'" + std::string(rest.substr(0, end)) + "'";
}

std::string_view number_at(std::string_view json, std::size_t offset) {
  const std::size_t end = json.find_first_not_of("+-.0123456789eE", offset);
  return json.substr(offset, end - offset);
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
      return "an escape that JSON has, and no bare control character";
    case rapidjson::kParseErrorStringMissQuotationMark:
      return "a double quote at the end of the string";
    case rapidjson::kParseErrorNumberMissFraction:
      return "a digit after the decimal point";
    case rapidjson::kParseErrorNumberMissExponent:
      return "a digit in the exponent";
    default:
      return "a JSON value";
  }
}

}  // namespace

Refusal syntax_refusal(std::string_view json, std::size_t offset,
                       rapidjson::ParseErrorCode code) {
  if (code == rapidjson::kParseErrorNumberTooBig) {
    return {.offset = offset, .message = number_refusal(number_at(json, offset))};
  }
  return {.offset = offset,
          .message = "expected " + expected_by(code) + ", found " + found_at(json, offset)};
}

std::string position(const std::string& name, std::string_view json, std::size_t offset) {
  const std::string_view before = json.substr(0, offset);
  const auto line = std::ranges::count(before, '\n') + 1;
  const std::string_view in_line = before.substr(before.rfind('\n') + 1);
  const auto column =
      std::ranges::count_if(in_line, [](char c) { return !continues_a_code_point(c); }) + 1;
  return name + ":" + std::to_string(line) + ":" + std::to_string(column);
}

}  // namespace tesmo_sorvet
