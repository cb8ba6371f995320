#include "gen_registry_docs/github_format.h"

#include <algorithm>
#include <string_view>

#include "gen_registry_docs/advice.h"
#include "registry_docs/text.h"

namespace gen_registry_docs {
namespace {

using registry_docs::BlockReport;
using registry_docs::BlockState;
using registry_docs::FileReport;
using registry_docs::FileState;

// The text with each of the characters as "%" and two digits.
std::string escaped(std::string_view text, std::string_view characters) {
  constexpr std::string_view digits = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    if (characters.find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += {'%', digits[static_cast<std::size_t>(c >> 4)],
                 digits[static_cast<std::size_t>(c & 15)]};
    }
  }
  return result;
}

std::string escaped_property(std::string_view text) { return escaped(text, "%\r\n:,"); }
std::string escaped_data(std::string_view text) { return escaped(text, "%\r\n"); }

// The line of the first block that is not as it should be, or the file's first.
std::size_t line_of_problem(const FileReport& file) {
  const auto is_at_fault = [](const BlockReport& block) {
    return block.state != BlockState::current && block.line != 0;
  };
  const auto block = std::ranges::find_if(file.blocks, is_at_fault);
  return block == file.blocks.end() ? 1 : block->line;
}

}  // namespace

std::string github_report(std::span<const FileReport> files,
                          const std::filesystem::path& root) {
  std::string commands;
  for (const FileReport& file : files) {
    if (file.state == FileState::current) continue;
    const std::string path = (root / file.path).lexically_normal().string();
    commands += "::error file=" + escaped_property(path) +
                ",line=" + std::to_string(line_of_problem(file)) +
                "::" + escaped_data(file.problem);
    for (const std::string& line : advice(file)) commands += escaped_data("\n" + line);
    commands += '\n';
  }
  return commands;
}

std::string github_failure(const std::string& message) {
  return "::error::" + escaped_data(registry_docs::visible(message)) + "\n";
}

}  // namespace gen_registry_docs
