#include "gen_registry_docs/status_line.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "gen_registry_docs/output.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

constexpr const char* erase = "\r\x1b[K";

bool obeys(int file) {
  const char* const kind = std::getenv("TERM");
  return ::isatty(file) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
}

void put(const std::string& text) { static_cast<void>(std::fputs(text.c_str(), stderr)); }

}  // namespace

StatusLine::StatusLine() : is_terminal_(obeys(STDERR_FILENO)) {}

// The terminal cuts what is too long, which would take more than a line otherwise.
void StatusLine::show(const std::string& text) {
  clear();
  if (!is_terminal_ || text.empty()) return;
  text_ = text;
  put("\x1b[?7l" + registry_docs::visible(text) + "\x1b[?7h");
}

void StatusLine::clear() {
  if (!std::exchange(text_, {}).empty()) put(erase);
}

void StatusLine::print_above(const std::string& line) {
  const std::string text = text_;
  clear();
  print_error(line);
  show(text);
}

}  // namespace gen_registry_docs
