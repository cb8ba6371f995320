// A member of a JSON file that is made from what a server offers.
#ifndef REGISTRY_FILE_MEMBER_H
#define REGISTRY_FILE_MEMBER_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "json/document.h"
#include "json/node.h"
#include "registry_docs/catalog/catalog.h"
#include "registry_docs/registry_docs.h"

namespace registry {

enum class Offered : std::uint8_t { tools, prompts, resources };
enum class Shown : std::uint8_t { names, names_and_descriptions, answer };

struct FileMember {
  std::string pointer;  // a JSON pointer to it
  Offered of = Offered::tools;
  Shown value = Shown::names;
  std::string server = {};  // the name of one among several
};

// From an entry of the registry's "files" that has a member "member".
FileMember file_member(const json::Node& declared, const std::vector<std::string>& servers);

// Whether one of two pointers leads to the other's member, or into it.
bool are_apart(const std::string& pointer, const std::string& other);

// A member and its value, a document.
struct MadeMember {
  std::string pointer;
  std::shared_ptr<const json::Document> value;
};

MadeMember made_member(const FileMember& member, const registry_docs::catalog::Catalog& from);

// These members as parts of a JSON text, which are named as their pointers are.
registry_docs::Parts parts_of(std::vector<MadeMember> members);

}  // namespace registry

#endif  // REGISTRY_FILE_MEMBER_H
