// One rule of a .gitignore file.
#ifndef REGISTRY_IGNORE_RULE_H
#define REGISTRY_IGNORE_RULE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/glob.h"

namespace registry {

struct IgnoreRule {
  std::string beginning;           // of what it fits, up to the first wildcard
  std::optional<text::Glob> rest;  // what follows, unless there is no wildcard
  bool is_of_names = false;  // at any depth; otherwise of paths from the file's directory
  bool is_of_directories = false;  // alone
  bool is_inclusion = false;       // "!": what it fits is not ignored
};

// The rules of a file, in its order, any bytes. Those that fit nothing are left out.
std::vector<IgnoreRule> ignore_rules(std::string_view bytes);

// Whether the rule is of the path, relative to the directory of the rule's file, or of its
// last part. As git does it, this looks at bytes, "?" for one of them.
bool is_of(const IgnoreRule& rule, std::string_view path, bool is_directory);

}  // namespace registry

#endif  // REGISTRY_IGNORE_RULE_H
