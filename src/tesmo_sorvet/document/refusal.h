// What is said of a document that is refused as a whole.
#ifndef TESMO_SORVET_DOCUMENT_REFUSAL_H
#define TESMO_SORVET_DOCUMENT_REFUSAL_H

#include <rapidjson/error/error.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace tesmo_sorvet {

struct Refusal {
  std::size_t offset;   // in the document's bytes
  std::string message;  // what was expected and what was found
};

// What the parser found wrong at `offset`.
Refusal syntax_refusal(std::string_view json, std::size_t offset,
                       rapidjson::ParseErrorCode code);

// "NAME:LINE:COLUMN" of a byte of the document, both counted from 1, columns in code points.
std::string position(const std::string& name, std::string_view json, std::size_t offset);

}  // namespace tesmo_sorvet

#endif  // TESMO_SORVET_DOCUMENT_REFUSAL_H
