// The rules text of the host's configuration module.
#ifndef TESMO_SORVET_SETUP_CONFIG_H
#define TESMO_SORVET_SETUP_CONFIG_H

#include <string>
#include <string_view>

namespace tesmo_sorvet {

// The value of the plain string literal that the Python source `text` assigns to
// TESMO_INSTRUCTION_CONTENT at the start of a line, its escapes read. `text` has line
// feeds as line endings; `path` is what messages call it. Throws InputError, with the
// line, for anything else in the literal's place and for a second assignment.
std::string instruction_content(const std::string& path, std::string_view text);

// `text` without its block markers, with or without a partner, each taken out together
// with the one line feed that follows it.
std::string without_markers(std::string_view text);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_SETUP_CONFIG_H
