// How a file stores a rendered block.
#ifndef REGISTRY_DOCS_REPOSITORY_ENCODE_H
#define REGISTRY_DOCS_REPOSITORY_ENCODE_H

#include <string>

namespace registry_docs::repository {

// As a plain string literal of a Python source file holds it: backslashes doubled.
std::string literal_text(std::string block);

// As a literal that str.format fills in holds it: backslashes, then braces doubled.
std::string skill_text(std::string block);

}  // namespace registry_docs::repository

#endif  // REGISTRY_DOCS_REPOSITORY_ENCODE_H
