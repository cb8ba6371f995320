// A line at a terminal that says what goes on, and is gone when it is over.
#ifndef GEN_REGISTRY_DOCS_STATUS_LINE_H
#define GEN_REGISTRY_DOCS_STATUS_LINE_H

#include <string>

namespace gen_registry_docs {

// On standard error. Where that is no terminal, nothing is shown.
class StatusLine {
 public:
  StatusLine();
  ~StatusLine() { clear(); }
  StatusLine(const StatusLine&) = delete;
  StatusLine& operator=(const StatusLine&) = delete;

  // Replaces what is shown.
  void show(const std::string& text);
  void clear();

  // Prints a line that stays, wherever standard error leads, and shows the text below it
  // again.
  void print_above(const std::string& line);

 private:
  bool is_terminal_;
  std::string text_;
};

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_STATUS_LINE_H
