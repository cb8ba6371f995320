// A text written as a literal is read back as it was; any other source is read or refused.
#include <array>

#include "fuzz/target.h"
#include "tesmo_sorvet/setup/config.h"
#include "text/code_point.h"
#include "text/line_endings.h"

namespace registry_docs::fuzz {
namespace {

// The character as itself where it may stand so, as a short escape, or as a number.
std::string spelled(std::string_view character, std::int32_t value, std::string_view quotes,
                    std::size_t way) {
  const bool is_special = value == '\\' || value == quotes[0];
  const bool is_plain = !is_special && value != '\r' && (value != '\n' || quotes.size() == 3);
  if (way % 3 == 0 && is_plain) return std::string(character);
  if (way % 3 == 1 && is_special) return {'\\', '\n', '\\', character[0]};
  const char* format = value < 0x100 ? "\\x%02x" : value < 0x10000 ? "\\u%04X" : "\\U%08x";
  if (way % 5 == 0 && value < 01000) format = "\\%03o";
  std::array<char, 11> escape{};
  static_cast<void>(std::snprintf(escape.data(), escape.size(), format, value));
  return escape.data();
}

}  // namespace

void run(std::string_view input) {
  if (input.empty() || find_ill_formed(input)) return;
  const auto choice = static_cast<unsigned char>(input[0]);
  const std::string quotes = std::array{R"(")", "'", R"(""")", "'''"}.at(choice % 4);
  std::string source = "X = '1'\nTESMO_INSTRUCTION_CONTENT: str = " + quotes;
  for (std::size_t at = 0; at < input.size();) {
    const auto [value, size] = text::code_point_at(input, at);
    source += spelled(input.substr(at, size), value, quotes, at * choice);
    at += size;
  }
  source += quotes + "  # and\nY = '2'\n";
  std::string text = tesmo_sorvet::instruction_content("config.py", source);
  require(text == input, "the text that was written", source);
  try {
    source = text::with_line_feeds(std::string(input));
    text = tesmo_sorvet::instruction_content("config.py", source);
  } catch (const registry_docs::InputError& error) {
    text = error.what();
    require(text.starts_with("config.py:"), "the file's name first", text);
  }
  require(!find_ill_formed(text), "well-formed UTF-8", text);
}

}  // namespace registry_docs::fuzz
