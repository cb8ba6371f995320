// A change, and how it is judged and put into words.
#ifndef REGISTRY_DOCS_CHANGES_CHANGE_H
#define REGISTRY_DOCS_CHANGES_CHANGE_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "json/node.h"

namespace registry_docs::changes {

enum class Verdict : std::uint8_t {
  breaking,    // what worked may fail, or do more harm than it was said to
  compatible,  // what worked still works
  words        // only what is told to people changed
};

// Both texts are one line, safe at a terminal, their values cut where they are long.
struct Change {
  std::string place;  // "tool search, parameter options.limit"
  std::string what;   // "its maximum was 100, is 50"
  Verdict verdict;

  bool operator==(const Change&) const = default;
};

// Whose values a schema describes: those that users give, or those that they are given.
enum class Side : std::uint8_t { input, output };

// What happens to the set of values that are allowed, or are to be expected.
enum class Effect : std::uint8_t {
  narrower,
  wider,
  different,  // some are gone and others came, or nobody can tell
  same,       // and yet not for people alone
  words
};

Verdict verdict_of(Effect effect, Side side);

// A text, a value and several values as changes show them.
std::string shown(std::string_view text);
std::string shown(const json::Node& value);
std::string shown(const std::vector<json::Node>& values);

// "its WHAT was A, is B", "its WHAT is B now" or "its WHAT was A, and is gone". What is
// compared must differ.
std::string was_and_is(std::string_view what, const std::optional<std::string>& before,
                       const std::optional<std::string>& after);

// Gathers the changes at one place.
class Teller {
 public:
  Teller(std::vector<Change>& changes, std::string place)
      : changes_(changes), place_(std::move(place)) {}

  void tell(std::string what, Verdict verdict) {
    changes_.push_back({place_, std::move(what), verdict});
  }

  // Words too long to be shown: "its WHAT changed", "is new" or "is gone".
  void tell_text(std::string_view what, std::string_view before, std::string_view after);
  // Words that are shown.
  void tell_name(std::string_view what, std::string_view before, std::string_view after);

 private:
  std::vector<Change>& changes_;
  std::string place_;
};

}  // namespace registry_docs::changes

#endif  // REGISTRY_DOCS_CHANGES_CHANGE_H
