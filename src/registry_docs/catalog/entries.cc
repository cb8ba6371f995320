#include "registry_docs/catalog/entries.h"

#include <optional>
#include <string>
#include <unordered_map>

#include "registry_docs/markdown/anchor.h"
#include "text/sentence.h"

namespace registry_docs::catalog {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

MaybeNode member(const MaybeNode& object, std::string_view name, Kind kind) {
  if (!object || object->kind() != Kind::object) return std::nullopt;
  const MaybeNode found = object->find(name);
  return found && found->kind() == kind ? found : std::nullopt;
}

std::string_view text_of(const MaybeNode& object, std::string_view name) {
  const MaybeNode found = member(object, name, Kind::string);
  return found ? found->string() : std::string_view();
}

// A text that must be there, and not be empty.
std::string_view name_of(const Node& entry, std::string_view name) {
  const Node found = entry.at(name);
  if (found.string().empty()) found.refuse("a name", "an empty string");
  return found.string();
}

void read_hint(const MaybeNode& annotations, Hint& hint) {
  const MaybeNode given = member(annotations, hint.name, Kind::boolean);
  if (!given) return;
  hint.value = given->boolean();
  hint.is_given = true;
}

template <typename Entry, typename Read>
std::vector<Entry> entries_of(const Node& answer, std::string_view list, Read read) {
  std::vector<Entry> entries;
  if (const MaybeNode declared = answer.find(list)) {
    declared->for_each_element([&](const Node& entry) { entries.push_back(read(entry)); });
  }
  return entries;
}

Argument argument_of(const Node& entry) {
  const MaybeNode required = member(entry, "required", Kind::boolean);
  return {.name = name_of(entry, "name"),
          .title = text_of(entry, "title"),
          .description = text_of(entry, "description"),
          .is_required = required && required->boolean(),
          .raw = entry};
}

Prompt prompt_of(const Node& entry) {
  Prompt prompt{.name = name_of(entry, "name"),
                .title = text_of(entry, "title"),
                .description = text_of(entry, "description"),
                .raw = entry};
  prompt.summary = text::first_sentence(prompt.description);
  if (member(entry, "arguments", Kind::array)) {
    prompt.arguments = entries_of<Argument>(entry, "arguments", argument_of);
  }
  return prompt;
}

Resource resource_of(const Node& entry, std::string_view uri) {
  const MaybeNode size = entry.find("size");
  const bool has_size =
      size && (size->kind() == Kind::integer || size->kind() == Kind::floating);
  Resource resource{.uri = name_of(entry, uri),
                    .name = text_of(entry, "name"),
                    .title = text_of(entry, "title"),
                    .description = text_of(entry, "description"),
                    .mime_type = text_of(entry, "mimeType"),
                    .size = has_size ? size->token().text() : std::string_view(),
                    .raw = entry};
  resource.summary = text::first_sentence(resource.description);
  return resource;
}

}  // namespace

Server server_of(const Node& answer) {
  const MaybeNode info = member(answer, "serverInfo", Kind::object);
  return {.name = text_of(info, "name"),
          .title = text_of(info, "title"),
          .version = text_of(info, "version"),
          .instructions = text_of(answer, "instructions"),
          .website = text_of(info, "websiteUrl"),
          .description = text_of(info, "description")};
}

Tool tool_of(const Node& entry) {
  const MaybeNode annotations = member(entry, "annotations", Kind::object);
  Tool tool{.name = name_of(entry, "name"),
            .title = text_of(entry, "title"),
            .description = text_of(entry, "description"),
            .raw = entry};
  if (tool.title.empty()) tool.title = text_of(annotations, "title");
  tool.summary = text::first_sentence(tool.description);
  for (Hint* const hint : {&tool.hints.read_only, &tool.hints.destructive,
                           &tool.hints.idempotent, &tool.hints.open_world}) {
    read_hint(annotations, *hint);
  }
  return tool;
}

bool is_default_hint(std::string_view name, const Node& value) {
  if (value.kind() != Kind::boolean) return false;
  const auto& [read_only, destructive, idempotent, open_world] = Hints();
  for (const Hint& hint : {read_only, destructive, idempotent, open_world}) {
    if (hint.name == name) return hint.value == value.boolean();
  }
  return false;
}

std::vector<Prompt> prompts_of(const Node& answer) {
  return entries_of<Prompt>(answer, "prompts", prompt_of);
}

std::vector<Resource> resources_of(const Node& answer) {
  return entries_of<Resource>(answer, "resources",
                              [](const Node& entry) { return resource_of(entry, "uri"); });
}

std::vector<Resource> templates_of(const Node& answer) {
  return entries_of<Resource>(answer, "resourceTemplates", [](const Node& entry) {
    return resource_of(entry, "uriTemplate");
  });
}

std::string_view effect_of(const Tool& tool) {
  const Hints& hints = tool.hints;
  if (hints.read_only.value) return "read-only";
  return hints.destructive.is_given && hints.destructive.value ? "destructive" : "";
}

void note_any(Catalog& catalog) {
  for (const Tool& tool : catalog.tools) {
    catalog.any.summaries = catalog.any.summaries || !tool.summary.empty();
    catalog.any.effects = catalog.any.effects || !effect_of(tool).empty();
    catalog.any.titles = catalog.any.titles || !tool.title.empty();
  }
}

void add_anchors(Catalog& catalog) {
  markdown::Anchors anchors;
  const auto next = [&anchors](auto& entry, std::string_view heading) {
    entry.anchor = anchors.next(heading);
  };
  if (catalog.groups.empty()) {
    for (Tool& tool : catalog.tools) next(tool, tool.name);
  }
  std::unordered_map<std::string_view, std::vector<Tool*>> tools;
  for (Tool& tool : catalog.tools) tools[tool.group].push_back(&tool);
  for (Group& group : catalog.groups) {
    next(group, group.title);
    for (Tool* const tool : tools[group.name]) next(*tool, tool->name);
  }
  for (Prompt& prompt : catalog.prompts) next(prompt, prompt.name);
  for (Resource& resource : catalog.resources) next(resource, resource.name);
  for (Resource& resource : catalog.templates) next(resource, resource.name);
}

}  // namespace registry_docs::catalog
