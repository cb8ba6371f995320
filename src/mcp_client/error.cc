#include "mcp_client/error.h"

#include <array>
#include <stdexcept>
#include <string_view>

#include "mcp_client/message.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using json::Document;
using json::Kind;
using json::MaybeNode;
using json::Node;
using registry_docs::visible_in_quotes;

bool is_integer(const MaybeNode& value, std::string_view spelling) {
  return value && value->kind() == Kind::integer && value->spelling() == spelling;
}

std::vector<std::string> versions_in(const MaybeNode& data) {
  if (!data || data->kind() != Kind::object) return {};
  const Document object("data", std::string(data->spelling()), json::Rules::message);
  return texts_in(Node(object).find("supported"));
}

}  // namespace

Error error_in(const Node& error) {
  const std::string_view json = error.spelling();
  if (error.kind() != Kind::object) return {.text = "the error " + visible_in_quotes(json)};
  constexpr std::array<std::string_view, 3> names = {"message", "code", "data"};
  const Document object("error", std::string(json), json::Rules::message);
  const auto [text, code, data] = members_of(object, names);
  const bool is_told = text && text->kind() == Kind::string;
  Error found{.text = "the error " + visible_in_quotes(is_told ? text->string() : json),
              .is_unknown_method = is_integer(code, "-32601")};
  if (is_integer(code, "-32022")) found.versions = versions_in(data);
  return found;
}

std::vector<std::string> texts_in(const MaybeNode& value) {
  std::vector<std::string> texts;
  if (!value || value->kind() != Kind::array) return texts;
  try {
    const Document array("array", std::string(value->spelling()));
    Node(array).for_each_element([&texts](const Node& element) {
      if (element.kind() == Kind::string) texts.emplace_back(element.string());
    });
  } catch (const std::runtime_error&) {  // Such an array says nothing.
    texts.clear();
  }
  return texts;
}

}  // namespace mcp_client
