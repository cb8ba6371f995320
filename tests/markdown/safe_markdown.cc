// Writes texts as Markdown. Standard input holds names of operations and texts in turn, each
// with the byte FF behind it, which UTF-8 never has; standard output what became of the texts.
#include <iostream>
#include <string>
#include <string_view>

#include "registry_docs/markdown/safe.h"

namespace {

constexpr char end = '\xff';

std::string written(std::string_view operation, std::string_view text) {
  namespace markdown = registry_docs::markdown;
  std::string to;
  if (operation == "inline") markdown::append_inline(to, text);
  if (operation == "blocks") markdown::append_blocks(to, text, "");
  if (operation == "item") markdown::append_blocks(to, text, "  ");
  if (operation == "span") markdown::append_code_span(to, text);
  if (operation == "html") markdown::append_html(to, text);
  if (operation == "cell") markdown::append_inline(to, text);
  if (operation == "blocks in a cell") markdown::append_blocks(to, text, "");
  if (operation.ends_with("cell")) markdown::fit_cell(to, 0);
  return to;
}

}  // namespace

int main() {
  std::ios::sync_with_stdio(false);
  std::string operation;
  std::string text;
  while (std::getline(std::cin, operation, end) && std::getline(std::cin, text, end)) {
    std::cout << written(operation, text) << end;
  }
}
