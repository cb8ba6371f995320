#include "registry_docs/changes/rest.h"

#include <algorithm>
#include <array>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "json/pretty.h"
#include "registry_docs/catalog/entries.h"

namespace registry_docs::changes {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;
using Member = std::pair<std::string_view, Node>;

// A member that is held if it is of that kind. Any number is an integer here.
struct Held {
  std::string_view name;
  Kind kind;
};

bool is_held(const Member& member, std::span<const Held> held) {
  const Kind given = member.second.kind();
  const Kind kind = given == Kind::floating ? Kind::integer : given;
  return std::ranges::any_of(
      held, [&](const Held& each) { return each.name == member.first && each.kind == kind; });
}

std::vector<Member> members_of(const Node& object) {
  std::vector<Member> members;
  object.for_each_member([&members](std::string_view name, const Node& value) {
    members.emplace_back(name, value);
  });
  std::ranges::sort(members, {}, &Member::first);
  return members;
}

void append(std::string& text, const Node& value);

void append_object(std::string& text, const std::vector<Member>& members) {
  text += '{';
  for (const auto& [name, value] : members) {
    json::append_string(text, name);
    text += ':';
    append(text, value);
    text += ',';
  }
  text += '}';
}

void append(std::string& text, const Node& value) {
  if (value.kind() == Kind::object) {
    append_object(text, members_of(value));
  } else if (value.kind() == Kind::array) {
    text += '[';
    value.for_each_element([&text](const Node& element) {
      append(text, element);
      text += ',';
    });
    text += ']';
  } else {
    text += value.json();
  }
}

std::string without(const Node& entry, std::span<const Held> held) {
  std::vector<Member> members = members_of(entry);
  std::erase_if(members, [held](const Member& member) { return is_held(member, held); });
  std::string text;
  append_object(text, members);
  return text;
}

bool has_text(const Node& entry, std::string_view name) {
  const MaybeNode found = entry.find(name);
  return found && found->kind() == Kind::string && !found->string().empty();
}

// A title of the tool hides the one in its annotations.
std::string rest_of_annotations(const Node& annotations, bool shows_title) {
  constexpr std::array held = {
      Held{"readOnlyHint", Kind::boolean}, Held{"destructiveHint", Kind::boolean},
      Held{"idempotentHint", Kind::boolean}, Held{"openWorldHint", Kind::boolean},
      Held{"title", Kind::string}};
  const std::span<const Held> all = held;
  const std::string text = without(annotations, shows_title ? all : all.first(4));
  return text == "{}" ? std::string() : text;
}

}  // namespace

std::string text_of(const Node& value) {
  std::string text;
  append(text, value);
  return text;
}

std::string text_of_tool(const Node& entry) {
  constexpr std::array held = {Held{"annotations", Kind::object}};
  std::string text = without(entry, held);
  const MaybeNode annotations = entry.find("annotations");
  if (!annotations || annotations->kind() != Kind::object) return text;
  std::vector<Member> members = members_of(*annotations);
  std::erase_if(members, [](const Member& member) {
    return catalog::is_default_hint(member.first, member.second);
  });
  if (!members.empty()) append_object(text, members);
  return text;
}

// The last ones are those of a tool that a registry document declares.
std::string rest_of_tool(const Node& entry) {
  constexpr std::array held = {
      Held{"name", Kind::string},         Held{"title", Kind::string},
      Held{"description", Kind::string},  Held{"inputSchema", Kind::object},
      Held{"outputSchema", Kind::object}, Held{"annotations", Kind::object},
      Held{"params", Kind::array},        Held{"summary", Kind::string},
      Held{"extra", Kind::object}};
  const std::span<const Held> all = held;
  std::string text = without(entry, entry.find("inputSchema") ? all.first(6) : all);
  const MaybeNode annotations = entry.find("annotations");
  if (annotations && annotations->kind() == Kind::object) {
    text += rest_of_annotations(*annotations, !has_text(entry, "title"));
  }
  return text;
}

std::string rest_of_prompt(const Node& entry) {
  constexpr std::array held = {Held{"name", Kind::string}, Held{"title", Kind::string},
                               Held{"description", Kind::string},
                               Held{"arguments", Kind::array}};
  return without(entry, held);
}

std::string rest_of_argument(const Node& entry) {
  constexpr std::array held = {Held{"name", Kind::string}, Held{"title", Kind::string},
                               Held{"description", Kind::string},
                               Held{"required", Kind::boolean}};
  return without(entry, held);
}

std::string rest_of_resource(const Node& entry) {
  constexpr std::array held = {
      Held{"uri", Kind::string},         Held{"uriTemplate", Kind::string},
      Held{"name", Kind::string},        Held{"title", Kind::string},
      Held{"description", Kind::string}, Held{"mimeType", Kind::string},
      Held{"size", Kind::integer}};
  return without(entry, held);
}

}  // namespace registry_docs::changes
