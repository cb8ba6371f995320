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

WordFinder::State WordFinder::add_state() {
  steps_.resize(steps_.size() + classes_, root);
  ends_.emplace_back();
  return static_cast<State>(ends_.size() - 1);
}

void WordFinder::add(std::string_view word, std::size_t index) {
  State state = root;
  for (const char c : word) {
    const std::size_t step = state * classes_ + class_of_[static_cast<unsigned char>(c)];
    if (steps_[step] == root) {
      const State added = add_state();
      steps_[step] = added;
    }
    state = steps_[step];
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
      State& step = steps_[state * classes_ + c];
      const State behind = state == root ? root : steps_[fallback[state] * classes_ + c];
      if (step == root) {
        step = behind;
        continue;
      }
      fallback[step] = behind;
      Ends& ends = ends_[step];
      ends.shorter = ends_[behind].first;
      if (ends.words.empty()) ends.first = ends.shorter;
      states.push_back(step);
    }
  }
}

}  // namespace text
