#include "gen_registry_docs/github_format.h"

#include <algorithm>
#include <string_view>
#include <vector>

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

// Where a person has to begin: at the first step that has a place, or else at the first block
// that is not current.
std::size_t line_of_problem(const FileReport& file, const std::vector<Step>& steps) {
  const auto has_place = [](const Step& step) { return step.line != 0; };
  const auto step = std::ranges::find_if(steps, has_place);
  if (step != steps.end()) return step->line;
  const auto is_at_fault = [](const BlockReport& block) {
    return block.state != BlockState::current && block.line != 0;
  };
  const auto block = std::ranges::find_if(file.blocks, is_at_fault);
  return block == file.blocks.end() ? 1 : block->line;
}

// The command of a file with a problem.
std::string annotation(const FileReport& file, const std::string& path) {
  const std::vector<Step> steps = advice(file);
  std::string message = file.problem;
  for (const Step& step : steps) {
    for (const std::string& line : step_lines(step)) message += "\n" + line;
  }
  return "::error file=" + escaped_property(path) +
         ",line=" + std::to_string(line_of_problem(file, steps)) +
         "::" + escaped_data(message) + "\n";
}

}  // namespace

std::string github_report(std::span<const FileReport> files,
                          const std::filesystem::path& root) {
  std::string commands;
  for (const FileReport& file : files) {
    if (file.state == FileState::current) continue;
    commands += annotation(file, (root / file.path).lexically_normal().string());
  }
  return commands;
}

std::string github_failure(const std::string& message) {
  return "::error::" + escaped_data(registry_docs::visible(message)) + "\n";
}

}  // namespace gen_registry_docs
