// What a message repeats of a text that may be of any size.
#ifndef TESMO_SORVET_EXCERPT_H
#define TESMO_SORVET_EXCERPT_H

#include <string>
#include <string_view>

#include "registry_docs/text.h"

namespace tesmo_sorvet {

using registry_docs::excerpt;

// The excerpt between two quotes.
std::string in_quotes(std::string_view text, char quote = '"');

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_EXCERPT_H
