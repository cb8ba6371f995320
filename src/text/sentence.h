// Sentences.
#ifndef TEXT_SENTENCE_H
#define TEXT_SENTENCE_H

#include <string>
#include <string_view>

namespace text {

// The first sentence of a Markdown text on one line, white space collapsed: up to its full
// stop or, where there is none, to the end of its paragraph. The marks of a heading or a list
// before it are left out. Empty only for a text of white space and such marks.
std::string first_sentence(std::string_view text);

}  // namespace text

#endif  // TEXT_SENTENCE_H
