// Texts in short, and failures as texts.
#ifndef SUPPORT_TEXT_H
#define SUPPORT_TEXT_H

#include <string>
#include <string_view>
#include <utility>

namespace support {

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
  text = replaced(std::move(text), "[/", "<!-- /registry:");
  return replaced(replaced(std::move(text), "[", "<!-- registry:"), "]", " -->");
}

// The message of the `Failure` that the operation throws; says so when it throws none. A
// failure of another kind passes on, and so fails the test.
template <typename Failure, typename Operation>
std::string message_of(Operation operation) {
  try {
    operation();
  } catch (const Failure& failure) {
    return failure.what();
  }
  return "(nothing was thrown)";
}

}  // namespace support

#endif  // SUPPORT_TEXT_H
