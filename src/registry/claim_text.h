// The text of a claim: what a file says of a server, with places for counts and names.
#ifndef REGISTRY_CLAIM_TEXT_H
#define REGISTRY_CLAIM_TEXT_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/node.h"

namespace registry {

enum class Fact : std::uint8_t {
  tools,
  prompts,
  resources,
  templates,
  tool,
  prompt,
  resource
};

// A place for a count, "{tools}", or for a name, "{tool}".
struct Slot {
  Fact fact;
  std::string group = {};  // of which tools are counted
};

bool is_name(const Slot& slot);

// Texts with a place between every two; only the first and the last may be empty, and not both
// where they are all.
struct ClaimText {
  std::string spelling;  // as it is declared
  std::vector<std::string> literals = {};
  std::vector<Slot> slots = {};  // one less, and one at least
};

// Refuses a text that is none.
ClaimText claim_text(const json::Node& declared);

// Where a part of a text lies.
struct Span {
  std::size_t begin;
  std::size_t end;
};

// Where a claim's text stands, and what fills its places.
struct Match {
  Span all;
  std::vector<Span> slots;
};

// The longest of the literals, by which the claim is found.
std::size_t anchor_of(const ClaimText& claim);

// The claim around its anchor, which stands at `at`. Takes no longer than the claim is long,
// within what a number or a name may be.
std::optional<Match> match_around(const ClaimText& claim, std::string_view text,
                                  std::size_t at);

}  // namespace registry

#endif  // REGISTRY_CLAIM_TEXT_H
