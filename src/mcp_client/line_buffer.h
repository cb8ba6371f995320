// Bytes as they come, taken line by line.
#ifndef MCP_CLIENT_LINE_BUFFER_H
#define MCP_CLIENT_LINE_BUFFER_H

#include <optional>
#include <string>
#include <string_view>

namespace mcp_client {

class LineBuffer {
 public:
  void add(std::string_view bytes);

  // The next whole line, without its line feed. Takes time by the length of the line, however
  // many pieces it came in, and does not copy a long one.
  std::optional<std::string> take();

  // Of the bytes that were not taken.
  [[nodiscard]] std::size_t size() const { return bytes_.size() - begin_; }

 private:
  std::string bytes_;
  std::size_t begin_ = 0;     // of the line at hand
  std::size_t searched_ = 0;  // no line feed from there up to here
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_LINE_BUFFER_H
