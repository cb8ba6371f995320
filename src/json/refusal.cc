#include "json/refusal.h"
#include "registry_docs/errors.h"

#include <algorithm>

namespace json {
namespace {

bool continues_a_code_point(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

std::size_t offset_in(const Source& source, const char* at) {
  return static_cast<std::size_t>(at - source.json.data());
}

// What a text begins with, for a reader.
std::string beginning(std::string_view text) {
  if (text.empty()) return "the end of the document";
  if (static_cast<unsigned char>(text[0]) < ' ') return "a control character";
  if (text.starts_with("\uFEFF")) return "a byte-order mark";
  const bool is_escape = text[0] == '\\' && text.size() > 1 && text[1] > ' ';
  std::size_t end = is_escape ? 2 : 1;  // an escape is shown with its letter
  while (end < text.size() && continues_a_code_point(text[end])) ++end;
  return "'" + std::string(text.substr(0, end)) + "'";
}

std::string position(const Source& source, const char* at) {
  const auto before = std::string_view(source.json).substr(0, offset_in(source, at));
  const auto line = std::ranges::count(before, '\n') + 1;
  const std::string_view in_line = before.substr(before.rfind('\n') + 1);
  const auto column =
      std::ranges::count_if(in_line, [](char c) { return !continues_a_code_point(c); }) + 1;
  return source.name + ":" + std::to_string(line) + ":" + std::to_string(column);
}

}  // namespace

void refuse(const Source& source, const char* at, const std::string& message) {
  throw registry_docs::InputError(position(source, at) + ": " + message);
}

void refuse_syntax(const Source& source, const char* at, std::string_view expected) {
  const auto rest = std::string_view(source.json).substr(offset_in(source, at));
  refuse(source, at, "expected " + std::string(expected) + ", found " + beginning(rest));
}

}  // namespace json
