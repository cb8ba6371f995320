#include "registry_docs/changes/fields.h"

#include <algorithm>
#include <utility>

#include "registry_docs/changes/facts.h"
#include "registry_docs/changes/limits.h"
#include "registry_docs/changes/pairs.h"
#include "registry_docs/changes/part.h"

namespace registry_docs::changes {
namespace {

class Comparison {
 public:
  Comparison(const std::string& tool, Side side, std::vector<Change>& changes)
      : tool_(tool), side_(side), changes_(changes) {}

  void compare(Part& before, Part& after);

  void tell_order() {
    const char* const what = side_ == Side::input ? "the order of its parameters changed"
                                                  : "the order of its output changed";
    if (!is_in_order_) Teller(changes_, tool_).tell(what, Verdict::words);
  }

 private:
  void compare_items(Part& before, Part& after);
  void compare_forms(Part& before, Part& after);
  void compare_form(Part& before, Part& after);
  void compare_parts(const Part& before, const Part& after,
                     const std::vector<Pair<Part>>& pairs);
  [[nodiscard]] Effect effect_of_one(const Pair<Part>& pair, bool is_closed) const;
  [[nodiscard]] std::string place_of(const Part& part) const;

  void tell(const Part& part, std::string what, Effect effect) {
    Teller(changes_, place_of(part)).tell(std::move(what), verdict_of(effect, side_));
  }

  const std::string& tool_;
  Side side_;
  std::vector<Change>& changes_;
  std::string forms_ = {};  // around what is compared
  bool is_in_order_ = true;
};

std::string Comparison::place_of(const Part& part) const {
  const bool is_input = side_ == Side::input;
  std::string place = tool_ + (part.path.empty() ? is_input ? ", input" : ", output"
                               : is_input        ? ", parameter "
                                                 : ", output ");
  return place + shown(part.path) + shown(forms_);
}

bool is_closed(const Part& part) { return std::ranges::any_of(part.limits, is_closing); }

bool is_one_of_others(const Pair<Part>& pair) {
  const Part* const one = pair.before == nullptr  ? pair.after
                          : pair.after == nullptr ? pair.before
                                                  : nullptr;
  return one != nullptr && !one->is_property;
}

void Comparison::compare(Part& before, Part& after) {
  if (before.forms.empty() != after.forms.empty()) {
    fold_forms(before);
    fold_forms(after);
  }
  const auto pairs = pairs_of(before.parts, after.parts, &Part::path);
  is_in_order_ = is_in_order_ && are_in_order(pairs);
  const bool parts_close = std::ranges::any_of(pairs, is_one_of_others);
  Teller teller(changes_, place_of(before));
  tell_facts(before, after, side_, parts_close ? Closing::by_parts : Closing::by_itself,
             teller);
  compare_forms(before, after);
  compare_items(before, after);
  compare_parts(before, after, pairs);
}

// Items of which nothing is said are no part.
void Comparison::compare_items(Part& before, Part& after) {
  if (before.items.empty() && after.items.empty()) return;
  Part nothing{.path = before.path + "[]"};
  compare(before.items.empty() ? nothing : before.items.front(),
          after.items.empty() ? nothing : after.items.front());
}

// Where one form on each side is called as none on the other, they are the same.
void Comparison::compare_forms(Part& before, Part& after) {
  const auto pairs = pairs_of(before.forms, after.forms, &Part::form);
  is_in_order_ = is_in_order_ && are_in_order(pairs);
  const auto gone = std::ranges::count(pairs, nullptr, &Pair<Part>::after);
  const auto added = std::ranges::count(pairs, nullptr, &Pair<Part>::before);
  Part* const other = gone == 1 && added == 1 ? pairs.back().after : nullptr;
  for (const auto& [from, with] : pairs) {
    Part* const to = with != nullptr || from == nullptr ? with : other;
    if (from != nullptr && to != nullptr) {
      compare_form(*from, *to);
    } else if (from != nullptr) {
      tell(before, "its form " + shown(from->form) + " is gone", Effect::narrower);
    } else if (to != nullptr && to != other) {
      tell(before, "its form " + shown(to->form) + " is new", Effect::wider);
    }
  }
}

void Comparison::compare_form(Part& before, Part& after) {
  const std::size_t size = forms_.size();
  const std::size_t told = changes_.size();
  forms_.append(", form ").append(before.form);
  compare(before, after);
  if (changes_.size() == told && before.form != after.form) {
    tell(before, "is called " + shown(after.form) + " now", Effect::words);
  }
  forms_.resize(size);
}

// A property may be given where it is not named, and who does not know it passes over it. All
// other parts say of what they hold.
Effect Comparison::effect_of_one(const Pair<Part>& pair, bool is_closed) const {
  const Part* const known = pair.before != nullptr ? pair.before : pair.after;
  if (known == nullptr) return Effect::same;
  const Part& part = *known;
  if (!part.is_property) {
    return (pair.after == nullptr) == is_closed ? Effect::narrower : Effect::wider;
  }
  if (pair.after == nullptr) return Effect::different;
  return side_ == Side::input && part.is_required ? Effect::different : Effect::same;
}

void Comparison::compare_parts(const Part& before, const Part& after,
                               const std::vector<Pair<Part>>& pairs) {
  for (const Pair<Part>& pair : pairs) {
    if (pair.after == nullptr) {
      tell(*pair.before, "is gone", effect_of_one(pair, is_closed(after)));
    } else if (pair.before == nullptr) {
      const bool is_required = side_ == Side::input && pair.after->is_required;
      tell(*pair.after, is_required ? "is new and required" : "is new",
           effect_of_one(pair, is_closed(before)));
    } else {
      compare(*pair.before, *pair.after);
    }
  }
}

}  // namespace

void add_changes(const json_schema::Field& before, const json_schema::Field& after,
                 const std::string& tool, Side side, std::vector<Change>& changes) {
  Part from = part_of(before);
  Part to = part_of(after);
  Comparison comparison(tool, side, changes);
  comparison.compare(from, to);
  comparison.tell_order();
}

}  // namespace registry_docs::changes
