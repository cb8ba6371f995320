#include "registry_docs/changes/facts.h"

#include <algorithm>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "registry_docs/changes/limits.h"
#include "registry_docs/changes/pairs.h"
#include "text/join.h"

namespace registry_docs::changes {
namespace {

using json::Node;
using json_schema::Limit;

class Facts {
 public:
  Facts(const Part& before, const Part& after, Side side, Teller& teller)
      : before_(before), after_(after), side_(side), teller_(teller) {}

  void tell_required() {
    if (before_.is_required == after_.is_required) return;
    tell(after_.is_required ? "is required now" : "is no longer required",
         after_.is_required ? Effect::narrower : Effect::wider);
  }

  void tell_types() {
    if (before_.forms_say_types && after_.forms_say_types) return;
    if (before_.types.empty() || after_.types.empty()) return tell_null();
    const Types from = all_types(before_);
    const Types to = all_types(after_);
    if (from == to) return;
    const auto text = [](const Types& types) { return shown(text::join(types, " or ")); };
    tell(was_and_is("type", text(from), text(to)), effect_of_types(from, to));
  }

  void tell_values() {
    if (before_.forms_say_values && after_.forms_say_values) return;
    if (before_.values.empty() || after_.values.empty()) return tell_set_of_values();
    const std::vector<Node> lost = missing(before_.values, after_.values);
    const std::vector<Node> gained = missing(after_.values, before_.values);
    if (!lost.empty()) tell("its values lost " + shown(lost), Effect::narrower);
    if (!gained.empty()) tell("its values gained " + shown(gained), Effect::wider);
    if (lost.empty() && gained.empty() && !are_spelled_alike(before_.values, after_.values)) {
      tell("the order of its values changed", Effect::words);
    }
  }

  void tell_limits(Closing closing) {
    std::vector<Limit> from = missing(before_.limits, after_.limits);
    std::vector<Limit> to = missing(after_.limits, before_.limits);
    const auto is_told = [&](const Limit& limit) {
      return (closing == Closing::by_parts && is_closing(limit)) ||
             (limit.keyword == "deprecated" && before_.is_deprecated != after_.is_deprecated);
    };
    std::erase_if(from, is_told);
    std::erase_if(to, is_told);
    for (const auto& [before, after] : pairs_of(from, to, &Limit::keyword)) {
      tell_limit(before, after);
    }
  }

  void tell_notes() {
    for (const auto& [before, after] : pairs_of(before_.notes, after_.notes, &Note::rest)) {
      if (after == nullptr) {
        tell("it says no longer: " + shown(before->text), Effect::wider);
      } else if (before == nullptr || before->text != after->text) {
        tell("it says now: " + shown(after->text),
             before == nullptr ? Effect::narrower : Effect::words);
      }
    }
  }

  void tell_default() {
    const auto text = [](const json::MaybeNode& value) {
      return value ? std::optional(value->json()) : std::nullopt;
    };
    const auto cut = [](const std::optional<std::string>& value) {
      return value ? std::optional(shown(*value)) : std::nullopt;
    };
    const auto from = text(before_.default_value);
    const auto to = text(after_.default_value);
    if (from != to) tell(was_and_is("default", cut(from), cut(to)), Effect::same);
  }

  void tell_words() {
    teller_.tell_text("title", before_.title, after_.title);
    if (!before_.forms_say_description || !after_.forms_say_description) {
      teller_.tell_text("description", before_.description, after_.description);
    }
    if (before_.is_deprecated != after_.is_deprecated) {
      tell(after_.is_deprecated ? "is deprecated now" : "is no longer deprecated",
           Effect::words);
    }
    if (!are_spelled_alike(before_.examples, after_.examples)) {
      tell("its examples changed", Effect::words);
    }
    if (before_.remarks != after_.remarks) {
      tell("what else is said of it changed", Effect::words);
    }
  }

 private:
  static std::string spelling_of(const Node& value) { return value.json(); }
  static std::string spelling_of(const Limit& limit) {
    return std::string(limit.keyword) + '=' + limit.value.json();
  }

  static bool are_spelled_alike(const std::vector<Node>& left,
                                const std::vector<Node>& right) {
    return std::ranges::equal(left, right, {}, &Node::json, &Node::json);
  }

  // Those that the others are not among.
  template <typename Each>
  static std::vector<Each> missing(const std::vector<Each>& from,
                                   const std::vector<Each>& others) {
    std::unordered_set<std::string> spellings;
    for (const Each& other : others) spellings.insert(spelling_of(other));
    std::vector<Each> rest;
    for (const Each& each : from) {
      if (!spellings.contains(spelling_of(each))) rest.push_back(each);
    }
    return rest;
  }

  // What an array says of the types of its items leaves out null.
  void tell_null() {
    if (before_.is_nullable == after_.is_nullable) return;
    tell(after_.is_nullable ? "may be null now" : "may no longer be null",
         after_.is_nullable ? Effect::wider : Effect::narrower);
  }

  void tell_set_of_values() {
    if (before_.values.empty() && after_.values.empty()) return;
    const bool is_new = before_.values.empty();
    const std::string values = shown(is_new ? after_.values : before_.values);
    tell(is_new ? "its values are " + values + " now"
                : "its values were " + values + ", and may be others",
         is_new ? Effect::narrower : Effect::wider);
  }

  void tell_limit(const Limit* before, const Limit* after) {
    const auto text = [](const Limit* limit) {
      return limit == nullptr ? std::nullopt : std::optional(shown(limit->value));
    };
    const Limit& either = before == nullptr ? *after : *before;
    // Who reads an answer takes what is new in it as it comes.
    const bool is_same = side_ == Side::output && is_closing(either);
    tell(was_and_is(shown(either.keyword), text(before), text(after)),
         is_same ? Effect::same : effect_of_limit(before, after));
  }

  void tell(std::string what, Effect effect) {
    teller_.tell(std::move(what), verdict_of(effect, side_));
  }

  const Part& before_;
  const Part& after_;
  Side side_;
  Teller& teller_;
};

}  // namespace

void tell_facts(const Part& before, const Part& after, Side side, Closing closing,
                Teller& teller) {
  Facts facts(before, after, side, teller);
  facts.tell_required();
  facts.tell_types();
  facts.tell_values();
  facts.tell_limits(closing);
  facts.tell_notes();
  facts.tell_default();
  facts.tell_words();
}

}  // namespace registry_docs::changes
