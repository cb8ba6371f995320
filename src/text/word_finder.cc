#include "text/word_finder.h"

namespace text {

WordFinder::WordFinder(std::span<const std::string_view> words) {
  for (const std::string_view word : words) {
    for (const char c : word) {
      std::uint16_t& its_class = class_of_[static_cast<unsigned char>(c)];
      if (its_class == 0) its_class = static_cast<std::uint16_t>(classes_++);
    }
  }
  add_state();
  for (std::size_t i = 0; i < words.size(); ++i) add(words[i], i);
  close();
}

void WordFinder::set_target(State state, std::size_t its_class, State target) {
  Step& step = steps_[state * classes_ + its_class];
  step.row = static_cast<std::uint32_t>(target * classes_) & 0x7FFF'FFFF;
}

WordFinder::State WordFinder::add_state() {
  steps_.resize(steps_.size() + classes_);
  ends_.emplace_back();
  return static_cast<State>(ends_.size() - 1);
}

void WordFinder::add(std::string_view word, std::size_t index) {
  State state = root;
  for (const char c : word) {
    const std::size_t its_class = class_of_[static_cast<unsigned char>(c)];
    if (target(state, its_class) == root) set_target(state, its_class, add_state());
    state = target(state, its_class);
  }
  ends_[state].words.push_back(index);
  ends_[state].first = state;
}

// Fills in the steps that no word has: to where the longest end of what was read that begins a
// word leads. Those of shorter beginnings come first.
void WordFinder::close() {
  std::vector<State> fallback(ends_.size(), root);
  std::vector<State> states = {root};
  states.reserve(ends_.size());
  for (std::size_t i = 0; i < states.size(); ++i) {
    const State state = states[i];
    for (std::size_t c = 0; c < classes_; ++c) {
      const State to = target(state, c);
      const State behind = state == root ? root : target(fallback[state], c);
      if (to == root) {
        set_target(state, c, behind);
        continue;
      }
      fallback[to] = behind;
      ends_[to].shorter = ends_[behind].first;
      if (ends_[to].words.empty()) ends_[to].first = ends_[to].shorter;
      states.push_back(to);
    }
  }
  for (Step& step : steps_) step.ends_word = ends_[step.row / classes_].first != root;
}

}  // namespace text
