// What a message repeats of a text that may be of any size.
#ifndef TESMO_SORVET_EXCERPT_H
#define TESMO_SORVET_EXCERPT_H

#include <string>
#include <string_view>

namespace tesmo_sorvet {

// A text of up to 200 bytes as it is; of a longer one a beginning, cut between characters,
// and "...". `text` must be UTF-8.
std::string excerpt(std::string_view text);

// The excerpt between two quotes.
std::string in_quotes(std::string_view text, char quote = '"');

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_EXCERPT_H
