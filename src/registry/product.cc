#include "registry/product.h"

#include <array>

#include "registry/members.h"
#include "registry_docs/text.h"

namespace registry {
namespace {

std::string phrase(const json::Node& declared) {
  const std::string_view text = declared.string();
  if (!is_phrase(text)) {
    declared.refuse("one line of text without \"<!--\"",
                    registry_docs::in_quotes(registry_docs::visible(text)));
  }
  return std::string(text);
}

std::optional<std::string> command_of(const json::Node& declared) {
  if (declared.kind() == json::Kind::null) return std::nullopt;
  if (declared.string().find('`') != std::string_view::npos) {
    declared.refuse("a command without \"`\"", registry_docs::in_quotes(declared.string()));
  }
  return phrase(declared);
}

}  // namespace

bool is_phrase(std::string_view text) {
  return !registry_docs::strip(text).empty() && registry_docs::visible(text) == text &&
         text.find("<!--") == std::string_view::npos;
}

registry_docs::Product product(const json::Node& registry) {
  registry_docs::Product product;
  const auto declared = registry.find("product");
  if (!declared) return product;
  constexpr std::array<std::string_view, 3> names = {"name", "purpose", "command"};
  require_known_members(*declared, names);
  const auto [name, purpose, command] = declared->find_each(names);
  if (name) product.name = phrase(*name);
  if (purpose) product.purpose = phrase(*purpose);
  if (command) product.command = command_of(*command);
  return product;
}

}  // namespace registry
