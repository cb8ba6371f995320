#include "mcp_client/line_buffer.h"

#include <utility>

namespace mcp_client {

void LineBuffer::add(std::string_view bytes) {
  bytes_.erase(0, begin_);
  searched_ -= std::exchange(begin_, 0);
  bytes_ += bytes;
}

std::optional<std::string> LineBuffer::take() {
  constexpr std::size_t is_long = 1 << 16;
  const std::size_t end = bytes_.find('\n', searched_);
  if (end == std::string::npos) {
    searched_ = bytes_.size();
    return std::nullopt;
  }
  searched_ = end + 1;
  const std::size_t begin = std::exchange(begin_, searched_);
  if (end - begin < is_long) return bytes_.substr(begin, end - begin);
  std::string rest = bytes_.substr(begin_);
  bytes_.resize(end);
  bytes_.erase(0, begin);
  begin_ = searched_ = 0;
  return std::exchange(bytes_, std::move(rest));
}

}  // namespace mcp_client
