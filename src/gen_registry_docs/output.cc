#include "gen_registry_docs/output.h"

#include <cerrno>
#include <cstdio>

#include "registry_docs/errors.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {

void print(std::string_view text) {
  const bool is_whole = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
  if (!is_whole || std::fflush(stdout) != 0) {
    throw registry_docs::FileError("standard output", {errno, std::generic_category()});
  }
}

void print_lines(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + "\n";
  print(text);
}

void print_error(std::string_view message) {
  const std::string line = registry_docs::visible(message) + "\n";
  static_cast<void>(std::fputs(line.c_str(), stderr));  // there is nowhere to say it failed
}

void print_error_lines(std::string_view message) {
  std::size_t end = message.find('\n');
  for (; end != std::string_view::npos; end = message.find('\n')) {
    print_error(message.substr(0, end));
    message.remove_prefix(end + 1);
  }
  print_error(message);
}

}  // namespace gen_registry_docs
