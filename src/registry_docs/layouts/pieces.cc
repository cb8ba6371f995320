#include "registry_docs/layouts/pieces.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <utility>

#include "registry_docs/layouts/refusal.h"
#include "registry_docs/text.h"

namespace registry_docs::layouts {
namespace {

using Kind = Piece::Kind;

constexpr std::string_view white_space = " \t\r\n";

bool is_blank(std::string_view text) {
  return text.find_first_not_of(white_space) == std::string_view::npos;
}

// How a tag begins and ends within its delimiters, and what it is then.
struct Sign {
  std::string_view begin;
  std::string_view end;
  Kind kind;
};

constexpr std::array signs = {
    Sign{"#", "", Kind::section},    Sign{"^", "", Kind::inverted},
    Sign{"/", "", Kind::end},        Sign{">", "", Kind::partial},
    Sign{"{", "}", Kind::raw_value}, Sign{"&", "", Kind::raw_value},
    Sign{"!", "", Kind::comment},    Sign{"=", "=", Kind::delimiters},
    Sign{"", "", Kind::value},
};

const Sign& sign_of(std::string_view tag) {
  return *std::ranges::find_if(signs,
                               [&](const Sign& sign) { return tag.starts_with(sign.begin); });
}

struct Delimiters {
  std::string_view open = "{{";
  std::string_view close = "}}";
};

// `content` is what stands between the signs, "<% %>".
Delimiters delimiters_of(std::string_view content, const Place& place) {
  const std::size_t gap = std::min(content.find_first_of(white_space), content.size());
  const Delimiters found{.open = content.substr(0, gap), .close = strip(content.substr(gap))};
  if (found.close.empty() || content.find('=') != std::string_view::npos ||
      found.close.find_first_of(white_space) != std::string_view::npos) {
    refuse(place, "two delimiters without \"=\" and white space", in_quotes(content));
  }
  return found;
}

class Cutter {
 public:
  Cutter(std::string_view name, std::string_view source)
      : name_(name), source_(source), lines_(source) {}

  // Everything, in the order of the source.
  std::vector<Piece> cut() {
    for (std::size_t at = 0; at < source_.size();) {
      const std::size_t tag = std::min(source_.find(delimiters_.open, at), source_.size());
      add_lines(at, tag);
      at = tag == source_.size() ? tag : add_tag(tag);
    }
    return std::move(pieces_);
  }

 private:
  void add(Kind kind, std::string_view content, std::size_t at) {
    pieces_.push_back(
        {.kind = kind, .content = content, .line = lines_.line_of(source_.data() + at)});
  }

  void add_lines(std::size_t begin, std::size_t end) {
    for (std::string_view rest = source_.substr(begin, end - begin); !rest.empty();) {
      const std::string_view line =
          rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
      add(Kind::text, line, end - rest.size());
      rest.remove_prefix(line.size());
    }
  }

  // Says where the tag ends that begins at `tag`.
  std::size_t add_tag(std::size_t tag) {
    const Place place{.name = name_, .line = lines_.line_of(source_.data() + tag)};
    const std::size_t inside = std::min(
        source_.find_first_not_of(white_space, tag + delimiters_.open.size()), source_.size());
    const Sign& sign = sign_of(source_.substr(inside));
    const std::string close = std::string(sign.end).append(delimiters_.close);
    const std::size_t begin = inside + sign.begin.size();
    const std::size_t end = source_.find(close, begin);
    if (end == std::string_view::npos) {
      refuse(place, in_quotes(close) + " at the end of the tag", "none");
    }
    const std::string_view content = strip(source_.substr(begin, end - begin));
    add(sign.kind, content, tag);
    if (sign.kind == Kind::delimiters) delimiters_ = delimiters_of(content, place);
    return end + close.size();
  }

  std::string_view name_;
  std::string_view source_;
  LineCounter lines_;
  Delimiters delimiters_;
  std::vector<Piece> pieces_;
};

bool is_text(const Piece& piece) { return piece.kind == Kind::text; }

bool ends_line(const Piece& piece) { return is_text(piece) && piece.content.ends_with('\n'); }

// Whether nothing is left of a line but what its tags do.
bool shows_nothing(std::span<const Piece> line) {
  const auto is_shown = [](const Piece& piece) {
    return is_text(piece) ? !is_blank(piece.content)
                          : piece.kind == Kind::value || piece.kind == Kind::raw_value;
  };
  const auto texts = std::ranges::count_if(line, is_text);
  const auto partials = std::ranges::count(line, Kind::partial, &Piece::kind);
  const auto tags = std::ssize(line) - texts;
  return tags > 0 && std::ranges::none_of(line, is_shown) && (partials == 0 || tags == 1);
}

// Adds what is left of a line.
void add_line(std::vector<Piece>& pieces, std::span<const Piece> line) {
  const bool is_of_tags = shows_nothing(line);
  bool begins_line = !is_of_tags;
  for (Piece piece : line) {
    if (piece.kind == Kind::comment || piece.kind == Kind::delimiters) continue;
    if (is_of_tags && is_text(piece)) continue;
    if (is_of_tags && piece.kind == Kind::partial) {
      piece.is_alone = true;
      if (is_text(line.front())) piece.indent = line.front().content;
    }
    piece.begins_line = std::exchange(begins_line, false);
    pieces.push_back(piece);
  }
}

}  // namespace

std::vector<Piece> pieces_of(std::string_view name, std::string_view source) {
  const std::vector<Piece> all = Cutter(name, source).cut();
  std::vector<Piece> pieces;
  for (auto at = all.begin(); at != all.end();) {
    auto end = std::find_if(at, all.end(), ends_line);
    if (end != all.end()) ++end;
    add_line(pieces, {at, end});
    at = end;
  }
  return pieces;
}

}  // namespace registry_docs::layouts
