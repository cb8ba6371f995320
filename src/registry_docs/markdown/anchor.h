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
  // The anchor of the next heading, whose visible text this is: a repeated one has a number.
  std::string next(std::string_view heading);

 private:
  std::unordered_map<std::string, std::size_t> seen_;
};

}  // namespace registry_docs::markdown

#endif  // REGISTRY_DOCS_MARKDOWN_ANCHOR_H
