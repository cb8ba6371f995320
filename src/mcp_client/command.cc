#include "mcp_client/command.h"

#include <uv.h>

#include <algorithm>
#include <span>

namespace mcp_client {
namespace {

std::vector<std::string> variables() {
  uv_env_item_t* items = nullptr;
  int count = 0;
  std::vector<std::string> lines;
  if (::uv_os_environ(&items, &count) != 0) throw std::bad_alloc();
  for (const uv_env_item_t& item : std::span(items, static_cast<std::size_t>(count))) {
    lines.push_back(std::string(item.name) + "=" + item.value);
  }
  ::uv_os_free_environ(items, count);
  return lines;
}

void set(std::vector<std::string>& lines, const std::string& name, const std::string& value) {
  std::erase_if(lines, [&](const std::string& line) { return line.starts_with(name + "="); });
  lines.push_back(name + "=" + value);
}

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

}  // namespace

Command::Command(const Server& server) : texts_{server.command}, variables_(variables()) {
  texts_.insert(texts_.end(), server.args.begin(), server.args.end());
  for (const auto& [name, value] : server.env) set(variables_, name, value);
  arguments_ = pointers(texts_);
  environment_ = pointers(variables_);
}

}  // namespace mcp_client
