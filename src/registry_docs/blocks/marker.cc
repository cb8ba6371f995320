#include <array>

#include "registry_docs/markers.h"
#include "registry_docs/text.h"
#include "text/code_point.h"

namespace registry_docs {
namespace {

constexpr std::string_view keyword = "registry:";

// What stands around the words of a marker: the usual ones, which need no memory.
struct Html {
  static constexpr std::string_view open = "<!-- ";
  static constexpr std::string_view close = " -->";
  static constexpr bool ends_line = false;

  // The offset of the next `open` that begins at or after `from`, or npos. Looks for the "!",
  // since it is rarer than "<" in nearly every text: 0.13 of the time over HTML.
  static std::size_t find(std::string_view text, std::size_t from) {
    for (std::size_t at = text.find('!', from + 1); at != std::string_view::npos;
         at = text.find('!', at + 1)) {
      if (text.substr(at - 1, open.size()) == open) return at - 1;
    }
    return std::string_view::npos;
  }
};

// And those of any comment.
struct Other {
  explicit Other(const Comment& comment)
      : open(comment.open + " "),
        close(comment.close.empty() ? "" : " " + comment.close),
        ends_line(comment.close.empty()) {}

  [[nodiscard]] std::size_t find(std::string_view text, std::size_t from) const {
    return text.find(open, from);
  }

  std::string open;
  std::string close;
  bool ends_line;
};

std::string marker_of(const Comment& comment, std::string_view slash, std::string_view name) {
  const Other words(comment);
  return std::string(words.open)
      .append(slash)
      .append(keyword)
      .append(name)
      .append(words.close);
}

// Whether nothing but blanks stands before a part of the text, and nothing behind it.
bool is_alone(std::string_view text, std::size_t begin, std::size_t end) {
  if (end < text.size() && text[end] != '\n') return false;
  const std::size_t before = text.substr(0, begin).find_last_not_of(" \t");
  return before == std::string_view::npos || text[before] == '\n';
}

// By byte: whether it is a name character of ASCII.
constexpr std::array<bool, 256> make_name_bytes() {
  std::array<bool, 256> found{};
  for (unsigned c = '0'; c <= '9'; ++c) found[c] = true;
  for (unsigned c = 'A'; c <= 'Z'; ++c) found[c] = found[c - 'A' + 'a'] = true;
  found['_'] = found[':'] = found['-'] = true;
  return found;
}
constexpr std::array<bool, 256> name_bytes = make_name_bytes();

// The size in bytes of the name character beyond ASCII that `text` begins with, or 0.
std::size_t wide_name_character_size(std::string_view text) {
  if (text.empty() || static_cast<unsigned char>(text[0]) < 0x80) return 0;
  const text::CodePoint found = text::code_point_at(text, 0);
  return text::is_letter_or_number(found.value) ? found.size : 0;
}

// The longest run of name characters that `text` begins with. A scan takes 0.97 of the time
// with this and `next_marker` in their places.
[[gnu::always_inline]] inline std::string_view leading_name(std::string_view text) {
  const char* const text_end = text.data() + text.size();
  const char* end = text.data();
  for (;;) {
    while (end != text_end && name_bytes[static_cast<unsigned char>(*end)]) ++end;
    const std::size_t size = wide_name_character_size({end, text_end});
    if (size == 0) return {text.data(), end};
    end += size;
  }
}

// The marker whose comment begins at `begin`, if it is one.
template <typename Words>
std::optional<Marker> marker_at(std::string_view text, std::size_t begin, const Words& words) {
  std::size_t at = begin + words.open.size();
  const bool is_closing = text.substr(at).starts_with('/');
  if (is_closing) ++at;
  if (!text.substr(at).starts_with(keyword)) return std::nullopt;
  at += keyword.size();
  const std::string_view name = leading_name(text.substr(at));
  at += name.size();
  if (name.empty() || !text.substr(at).starts_with(words.close)) return std::nullopt;
  if (words.ends_line && !is_alone(text, begin, at)) return std::nullopt;
  return Marker{.kind = is_closing ? Marker::Kind::closing : Marker::Kind::opening,
                .name = name,
                .begin = begin,
                .end = at + words.close.size()};
}

template <typename Words>
[[gnu::always_inline]] inline std::optional<Marker> next_marker(std::string_view text,
                                                                std::size_t from,
                                                                const Words& words) {
  for (std::size_t at = words.find(text, from); at != std::string_view::npos;
       at = words.find(text, at + 1)) {
    if (std::optional<Marker> found = marker_at(text, at, words)) return found;
  }
  return std::nullopt;
}

// Takes a text, and the white space behind it, from the beginning of another, if it is there.
bool take(std::string_view& from, std::string_view text) {
  if (!from.starts_with(text)) return false;
  from = strip(from.substr(text.size()));
  return true;
}

// The careless marker that a comment is, whose beginning stands at `begin` and end at `end`.
std::optional<Marker> careless_marker(std::string_view text, std::size_t begin,
                                      std::size_t end, const Comment& comment) {
  const std::size_t open = comment.open.size();
  const std::size_t close = comment.close.size();
  if (find_marker(text.substr(0, end + close), begin, comment)) return std::nullopt;
  std::string_view inside = strip(text.substr(begin + open, end - begin - open));
  const bool is_closing = take(inside, "/");
  const std::string_view word = keyword.substr(0, keyword.size() - 1);
  if (!take(inside, word) || !take(inside, ":") || inside.empty()) return std::nullopt;
  return Marker{.kind = is_closing ? Marker::Kind::closing : Marker::Kind::opening,
                .name = inside,
                .begin = begin,
                .end = end + close};
}

}  // namespace

std::string opening_marker(std::string_view name, const Comment& comment) {
  return marker_of(comment, "", name);
}

std::string closing_marker(std::string_view name, const Comment& comment) {
  return marker_of(comment, "/", name);
}

std::optional<Marker> find_careless_marker(std::string_view text, std::size_t from,
                                           const Comment& comment) {
  constexpr std::size_t longest = 500;  // so that a text full of openings takes no longer
  const std::string close = comment.close.empty() ? "\n" : comment.close;
  for (std::size_t at = text.find(comment.open, from); at != std::string_view::npos;
       at = text.find(comment.open, at + 1)) {
    const std::size_t size = text.substr(at, longest).find(close);
    if (size == std::string_view::npos || size < comment.open.size()) continue;
    if (auto found = careless_marker(text, at, at + size, comment)) return found;
  }
  return std::nullopt;
}

std::optional<Marker> find_marker(std::string_view text, std::size_t from) {
  return next_marker(text, from, Html());
}

std::optional<Marker> find_marker(std::string_view text, std::size_t from,
                                  const Comment& comment) {
  if (comment == Comment()) return find_marker(text, from);
  return next_marker(text, from, Other(comment));
}

}  // namespace registry_docs
