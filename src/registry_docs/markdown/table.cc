#include "registry_docs/markdown.h"
#include "registry_docs/markdown/append.h"

namespace registry_docs::markdown {
namespace {

constexpr std::size_t usual_size = 1024;  // what most tables need, in bytes

}  // namespace

Table::Table(std::initializer_list<std::string_view> header) {
  text_.reserve(usual_size);
  text_ += '|';
  for (const std::string_view title : header) plain(title);
  row();
  for (std::size_t i = 0; i < header.size(); ++i) plain("---");
}

Table& Table::row() {
  text_ += '\n';
  text_ += '|';
  return *this;
}

Table& Table::plain(std::string_view text) {
  text_ += ' ';
  text_ += text;
  end_cell();
  return *this;
}

Table& Table::code(std::string_view text) {
  text_ += ' ';
  append_code(text_, text);
  end_cell();
  return *this;
}

Table& Table::cell(std::string_view text) {
  text_ += ' ';
  append_cell(text_, text);
  end_cell();
  return *this;
}

void Table::end_cell() {
  text_ += ' ';
  text_ += '|';
}

}  // namespace registry_docs::markdown
