#include "registry_docs/markers.h"
#include "registry_docs/text/code_point.h"

namespace registry_docs {
namespace {

constexpr std::string_view comment_open = "<!-- ";
constexpr std::string_view comment_close = " -->";
constexpr std::string_view keyword = "registry:";

// The offset of the next "<!-- " that begins at or after `from`, or npos. Looks for the
// "!", since it is rarer than "<" in nearly every text.
std::size_t find_comment(std::string_view text, std::size_t from) {
  for (std::size_t at = text.find('!', from + 1); at != std::string_view::npos;
       at = text.find('!', at + 1)) {
    if (text.substr(at - 1, comment_open.size()) == comment_open) return at - 1;
  }
  return std::string_view::npos;
}

// The size in bytes of the name character at `at`, or 0.
std::size_t name_character_size(std::string_view text, std::size_t at) {
  const char c = text[at];
  if (static_cast<unsigned char>(c) < 0x80) {
    const bool is_name = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                         (c >= '0' && c <= '9') || c == '_' || c == ':' || c == '-';
    return is_name ? 1 : 0;
  }
  const text::CodePoint found = text::code_point_at(text, at);
  return text::is_letter_or_number(found.value) ? found.size : 0;
}

// The longest run of name characters at `at`.
std::string_view name_at(std::string_view text, std::size_t at) {
  std::size_t end = at;
  while (end < text.size()) {
    const std::size_t size = name_character_size(text, end);
    if (size == 0) break;
    end += size;
  }
  return text.substr(at, end - at);
}

// The marker whose "<!-- " stands at `begin`, if it is one.
std::optional<Marker> marker_at(std::string_view text, std::size_t begin) {
  std::size_t at = begin + comment_open.size();
  const bool is_closing = text.substr(at).starts_with('/');
  if (is_closing) ++at;
  if (!text.substr(at).starts_with(keyword)) return std::nullopt;
  at += keyword.size();
  const std::string_view name = name_at(text, at);
  at += name.size();
  if (name.empty() || !text.substr(at).starts_with(comment_close)) return std::nullopt;
  return Marker{.kind = is_closing ? Marker::Kind::closing : Marker::Kind::opening,
                .name = name,
                .begin = begin,
                .end = at + comment_close.size()};
}

}  // namespace

std::optional<Marker> find_marker(std::string_view text, std::size_t from) {
  for (std::size_t at = find_comment(text, from); at != std::string_view::npos;
       at = find_comment(text, at + 1)) {
    if (std::optional<Marker> found = marker_at(text, at)) return found;
  }
  return std::nullopt;
}

}  // namespace registry_docs
