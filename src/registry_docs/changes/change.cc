#include "registry_docs/changes/change.h"

#include "registry_docs/text.h"

namespace registry_docs::changes {

Verdict verdict_of(Effect effect, Side side) {
  switch (effect) {
    case Effect::words:
      return Verdict::words;
    case Effect::different:
      return Verdict::breaking;
    case Effect::narrower:
      return side == Side::input ? Verdict::breaking : Verdict::compatible;
    case Effect::wider:
      return side == Side::output ? Verdict::breaking : Verdict::compatible;
    case Effect::same:
      break;
  }
  return Verdict::compatible;
}

std::string shown(std::string_view text) { return visible(excerpt(text)); }

std::string shown(const json::Node& value) { return shown(value.json()); }

std::string shown(const std::vector<json::Node>& values) {
  std::string all;
  for (const json::Node& value : values) {
    if (!all.empty()) all += ", ";
    all += value.json();
  }
  return shown(all);
}

std::string was_and_is(std::string_view what, const std::optional<std::string>& before,
                       const std::optional<std::string>& after) {
  const std::string its = "its " + visible(what);
  if (!before) return its + " is " + *after + " now";
  const std::string was = its + " was " + *before;
  return after ? was + ", is " + *after : was + ", and is gone";
}

void Teller::tell_text(std::string_view what, std::string_view before,
                       std::string_view after) {
  if (before == after) return;
  const std::string is = what.ends_with('s') ? " are" : " is";
  const std::string how = before.empty()  ? is + " new"
                          : after.empty() ? is + " gone"
                                          : " changed";
  tell("its " + std::string(what) + how, Verdict::words);
}

void Teller::tell_name(std::string_view what, std::string_view before,
                       std::string_view after) {
  if (before == after) return;
  const auto given = [](std::string_view text) {
    return text.empty() ? std::nullopt : std::optional(shown(text));
  };
  tell(was_and_is(what, given(before), given(after)), Verdict::words);
}

}  // namespace registry_docs::changes
