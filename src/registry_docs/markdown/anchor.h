// The anchors that GitHub gives to headings.
#ifndef REGISTRY_DOCS_MARKDOWN_ANCHOR_H
#define REGISTRY_DOCS_MARKDOWN_ANCHOR_H

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>

namespace registry_docs::markdown {

// The anchors of one document, heading by heading.
class Anchors {
 public:
  // The anchor of the next heading, whose visible text, as UTF-8, this is. A repeated one has
  // a number behind it.
  std::string next(std::string_view heading);

 private:
  std::unordered_map<std::string, std::size_t> seen_;  // with the last number behind each
};

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_ANCHOR_H
