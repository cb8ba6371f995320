// Fenced code in a Markdown text, where markers are examples.
#ifndef REGISTRY_DOCS_BLOCKS_FENCES_H
#define REGISTRY_DOCS_BLOCKS_FENCES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace registry_docs::blocks {

// Reads a text once, from its beginning to its end, as CommonMark finds fences in it, within
// quotations and lists too.
class Fences {
 public:
  // Borrows `text`.
  explicit Fences(std::string_view text) : text_(text) {}

  // Whether the byte `at` stands in a fenced block or in the line that opens one. `at` never
  // decreases between calls.
  bool hold(std::size_t at);

  // Passes over a generated block that ends at `at`, whatever fences stand in it.
  void skip_to(std::size_t at);

 private:
  // A quotation, or an item of a list whose text begins in that column.
  struct Container {
    bool is_quotation;
    std::size_t column;
  };
  // What is left of a line behind the marks of its containers.
  struct Rest {
    std::string_view text;
    std::size_t column = 0;  // where it begins
  };
  struct Open {
    std::string marks;
    std::size_t indent;
  };

  void take_line(std::string_view line);
  bool enter_known(Rest& rest);
  void enter_new(Rest& rest);
  void look_for_fence(const Rest& rest);
  [[nodiscard]] bool is_closed_by(const Rest& rest) const;

  std::string_view text_;
  std::size_t next_line_ = 0;
  std::vector<Container> containers_;
  std::optional<Open> open_;
  bool was_held_ = false;  // the last line that was taken
};

}  // namespace registry_docs::blocks

#endif  // REGISTRY_DOCS_BLOCKS_FENCES_H
