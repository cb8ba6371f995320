// Texts in short, failures as texts, and tables of cases kept in files.
#ifndef SUPPORT_TEXT_H
#define SUPPORT_TEXT_H

#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace registry_docs::support {

// The text with `to` wherever `from` stood.
inline std::string replaced(std::string text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
  return text;
}

// The text with "[NAME]" and "[/NAME]" written out as block markers.
inline std::string markers(std::string text) {
  text = replaced(text, "[/", "<!-- /registry:");
  return replaced(replaced(text, "[", "<!-- registry:"), "]", " -->");
}

// The message of the `Failure` that the operation throws. Any other failure passes on.
template <typename Failure, typename Operation>
std::string message_of(Operation operation) {
  try {
    operation();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "(nothing was thrown)";
}

struct Case {
  std::string name, text, expected;
};

// The cases of a file: for each "# NAME", the lines of the text, "=>", and the lines of
// what is expected of it. The line feed at the end of either is not part of it.
inline std::vector<Case> read_cases(const std::string& file_name) {
  std::ifstream file(TESTS_DIRECTORY "/" + file_name);
  std::vector<Case> cases;
  std::string* part = nullptr;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("# ")) {
      part = &cases.emplace_back(Case{line.substr(2), {}, {}}).text;
    } else if (line == "=>") {
      part = &cases.back().expected;
    } else {
      *part += line + "\n";
    }
  }
  if (cases.empty()) throw std::runtime_error(file_name + ": no cases");
  for (Case& each : cases) {
    if (!each.text.empty()) each.text.pop_back();
    if (!each.expected.empty()) each.expected.pop_back();
  }
  return cases;
}

}  // namespace registry_docs::support

#endif  // SUPPORT_TEXT_H
