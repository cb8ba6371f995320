// The pieces of Markdown that the generator's tables are written with, for hosts whose
// own tables stand beside them.
#ifndef REGISTRY_DOCS_MARKDOWN_H
#define REGISTRY_DOCS_MARKDOWN_H

#include <concepts>
#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "registry_docs/value.h"

namespace registry_docs::markdown {

// A code span: the text between two backticks, otherwise as it is.
std::string code(std::string_view text);

// A text made safe for one table cell: white space trimmed at both ends and each run of
// it inside, line ends included, made one blank; each "|" written "\|".
std::string cell(std::string_view text);

// A value as a reader writes it: booleans as in JSON, the items of a list joined with
// ", ", a floating-point number in the shortest form that reads back the same and with a
// fraction or an exponent, null as "None".
std::string value(const Value& value);

// A table, written cell by cell from left to right and from top to bottom:
//
//     Table table({"Tool", "Purpose"});
//     table.row().code(tool.name).cell(tool.summary);
//
// A cell may also be given as an operation that appends it to the table's text and changes
// nothing that stands there.
//
// Rows are not compared with the header: each has the cells that it is given.
class Table {
 public:
  // The header row, and the rule row with one "---" for each title, below the text `above`.
  explicit Table(std::span<const std::string_view> header, std::string_view above = {});
  explicit Table(std::initializer_list<std::string_view> header, std::string_view above = {})
      : Table(std::span(header.begin(), header.size()), above) {}

  // Begins a row; the cells that follow are its own.
  Table& row();

  // One cell: the text as it is, as a code span, or made safe.
  Table& plain(std::string_view text);
  Table& code(std::string_view text);
  Table& cell(std::string_view text);
  template <std::invocable<std::string&> Append>
  Table& plain(Append append) {
    begin_cell();
    append(text_);
    return end_cell();
  }
  template <std::invocable<std::string&> Append>
  Table& cell(Append append) {
    const std::size_t begin = begin_cell();
    append(text_);
    make_safe(begin);
    return end_cell();
  }

  // Text that stands below the table, beginning with the line feed that ends it.
  template <std::invocable<std::string&> Append>
  Table& below(Append append) {
    append(text_);
    return *this;
  }

  // All of it so far; a row does not end with a line feed.
  [[nodiscard]] const std::string& text() const& { return text_; }
  [[nodiscard]] std::string text() && { return std::move(text_); }

 private:
  std::size_t begin_cell() {  // returns where the cell's text begins
    text_ += ' ';
    return text_.size();
  }
  Table& end_cell() {
    text_ += std::string_view(" |");
    return *this;
  }
  void make_safe(std::size_t begin);

  std::string text_;
};

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_H
