#include "registry/file_member.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "json/edit.h"
#include "json/pretty.h"
#include "registry/members.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "text/join.h"

namespace registry {
namespace {

using json::Kind;
using json::Node;
using json::Pretty;
using registry_docs::in_quotes;
using registry_docs::Part;

std::string pointer_of(const Node& declared) {
  const std::string_view pointer = declared.string();
  bool is_one = pointer.starts_with('/');
  for (std::size_t at = pointer.find('~'); at != std::string_view::npos;
       at = pointer.find('~', at + 1)) {
    const std::string_view escape = pointer.substr(at, 2);
    is_one = is_one && (escape == "~0" || escape == "~1");
  }
  if (!is_one || registry_docs::visible(pointer) != pointer) {
    declared.refuse("a JSON pointer to a member, as in \"/tools\"",
                    in_quotes(registry_docs::visible(pointer)));
  }
  return std::string(pointer);
}

// The place of a text among those that may be given.
template <std::size_t Count>
std::size_t choice(const Node& declared, const std::array<std::string_view, Count>& choices) {
  const auto found = std::ranges::find(choices, declared.string());
  if (found == choices.end()) {
    declared.refuse("one of " + text::join(choices, ", "), in_quotes(declared.string()));
  }
  return static_cast<std::size_t>(found - choices.begin());
}

void put_entry(Pretty& json, Shown shown, std::string_view name, std::string_view description,
               const json::MaybeNode& raw) {
  if (shown == Shown::answer && raw) return json.value(*raw);
  if (shown == Shown::names) return json.string(name);
  json.open(Kind::object);
  json.name("name");
  json.string(name);
  if (!description.empty()) {
    json.name("description");
    json.string(description);
  }
  json.close(Kind::object);
}

template <typename Entries>
std::string json_of(const Entries& entries, Shown shown) {
  Pretty json;
  json.open(Kind::array);
  for (const auto& each : entries) {
    put_entry(json, shown, each.name, each.description, each.raw);
  }
  json.close(Kind::array);
  return std::move(json).take();
}

std::string json_of(const FileMember& member, const registry_docs::catalog::Catalog& from) {
  switch (member.of) {
    case Offered::prompts:
      return json_of(from.prompts, member.value);
    case Offered::resources:
      return json_of(from.resources, member.value);
    case Offered::tools:
      break;
  }
  return json_of(from.tools, member.value);
}

std::vector<Part> parts_in(const json::Document& document,
                           const std::vector<MadeMember>& members) {
  std::vector<json::Member> values;
  values.reserve(members.size());
  for (const MadeMember& each : members) {
    values.push_back({each.pointer, json::Node(*each.value)});
  }
  auto edits = json::edits(document, values);
  std::vector<Part> parts;
  for (std::size_t i = 0; i < edits.size(); ++i) {
    parts.push_back({.name = members[i].pointer,
                     .begin = edits[i].begin,
                     .end = edits[i].end,
                     .text = std::move(edits[i].text)});
  }
  std::ranges::stable_sort(parts, {}, &Part::begin);
  return parts;
}

}  // namespace

FileMember file_member(const Node& declared, const std::vector<std::string>& servers) {
  constexpr std::array<std::string_view, 5> names = {"path", "member", "value", "of",
                                                     "server"};
  require_known_members(declared, names);
  FileMember member{.pointer = pointer_of(declared.at("member"))};
  constexpr std::array<std::string_view, 3> values = {"names", "names-and-descriptions",
                                                      "answer"};
  member.value = static_cast<Shown>(choice(declared.at("value"), values));
  if (const auto of = declared.find("of")) {
    constexpr std::array<std::string_view, 3> lists = {"tools", "prompts", "resources"};
    member.of = static_cast<Offered>(choice(*of, lists));
  }
  if (const auto server = server_among(declared, servers)) {
    member.server = *server;
  } else if (!servers.empty()) {
    declared.refuse_lack("server");
  }
  return member;
}

bool are_apart(const std::string& pointer, const std::string& other) {
  return !(pointer + "/").starts_with(other + "/") &&
         !(other + "/").starts_with(pointer + "/");
}

MadeMember made_member(const FileMember& member, const registry_docs::catalog::Catalog& from) {
  return {member.pointer,
          std::make_shared<const json::Document>("a value", json_of(member, from))};
}

registry_docs::Parts parts_of(std::vector<MadeMember> members) {
  return [members = std::move(members)](std::string_view text) {
    try {
      return parts_in(json::Document("", std::string(text)), members);
    } catch (const registry_docs::InputError& error) {
      throw registry_docs::ValueError(error.what());
    }
  };
}

}  // namespace registry
