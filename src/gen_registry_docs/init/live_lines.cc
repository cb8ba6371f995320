#include "gen_registry_docs/init/live_lines.h"

#include <algorithm>
#include <string>

#include "registry_docs/blocks/fences.h"
#include "registry_docs/report.h"
#include "text/ascii.h"

namespace gen_registry_docs::init {
namespace {

using registry_docs::BlockReport;
using registry_docs::Syntax;

std::vector<LiveLine> all_lines(std::string_view text) {
  std::vector<LiveLine> lines;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t feed = std::min(text.find('\n', begin), text.size());
    const std::size_t end = std::min(feed + 1, text.size());
    lines.push_back({text.substr(begin, feed - begin), begin, end, lines.size() + 1});
    begin = end;
  }
  return lines;
}

std::size_t front_matter_end(std::string_view text) {
  constexpr std::string_view fence = "---\n";
  if (!text.starts_with(fence)) return 0;
  const std::size_t close = text.find("\n---\n", fence.size() - 1);
  return close == std::string_view::npos ? 0 : close + 1 + fence.size();
}

// Reads a text from its beginning to its end.
class Reader {
 public:
  Reader(std::string_view text, const Syntax& syntax)
      : syntax_(syntax),
        front_matter_end_(front_matter_end(text)),
        fences_(text),
        blocks_(registry_docs::blocks_of(text, syntax)),
        next_(blocks_.begin()) {}

  bool is_live(const LiveLine& line) {
    while (next_ != blocks_.end() && next_->end <= line.begin) ++next_;
    if (next_ != blocks_.end() && line.begin >= next_->begin) {
      fences_.skip_to(next_->end);
      return false;
    }
    if (!syntax_.is_markdown) return true;
    const bool is_code = fences_.hold(line.begin);  // of each line, for the next ones' sake
    return line.begin >= front_matter_end_ && !is_code && !is_in_comment(line.text);
  }

 private:
  bool is_in_comment(std::string_view line) {
    const auto& [open, close] = syntax_.comment;
    if (!is_comment_) {
      const std::string_view text = text::trimmed(line, text::is_blank);
      if (!text.starts_with(open)) return false;
      is_comment_ = text.find(close, open.size()) == std::string_view::npos;
      return is_comment_;
    }
    is_comment_ = line.find(close) == std::string_view::npos;
    return true;
  }

  const Syntax& syntax_;
  std::size_t front_matter_end_;
  registry_docs::blocks::Fences fences_;
  std::vector<BlockReport> blocks_;
  std::vector<BlockReport>::const_iterator next_;
  bool is_comment_ = false;
};

}  // namespace

std::vector<LiveLine> live_lines(std::string_view text, const Syntax& syntax) {
  std::vector<LiveLine> lines = all_lines(text);
  Reader reader(text, syntax);
  std::erase_if(lines, [&](const LiveLine& line) { return !reader.is_live(line); });
  return lines;
}

}  // namespace gen_registry_docs::init
