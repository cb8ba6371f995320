#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t usual_size = 1024;  // what most tables need, in bytes

}  // namespace

Table::Table(std::span<const std::string_view> header, std::string_view above) {
  text_.reserve(above.size() + usual_size);
  text_ += above;
  text_ += '|';
  for (const std::string_view title : header) plain(title);
  row();
  for (std::size_t i = 0; i < header.size(); ++i) text_ += " --- |";
}

Table& Table::row() {
  text_ += "\n|";
  return *this;
}

Table& Table::plain(std::string_view text) {
  begin_cell();
  text_ += text;
  return end_cell();
}

Table& Table::code(std::string_view text) {
  begin_cell();
  append_code(text_, text);
  return end_cell();
}

Table& Table::cell(std::string_view text) {
  begin_cell();
  append_cell(text_, text);
  return end_cell();
}

void Table::make_safe(std::size_t begin) { make_cell(text_, begin); }

}  // namespace registry_docs::markdown
