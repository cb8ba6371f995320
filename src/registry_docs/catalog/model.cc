#include "registry_docs/catalog/model.h"

#include <algorithm>
#include <array>

#include "registry_docs/catalog/entries.h"
#include "registry_docs/catalog/field_view.h"
#include "registry_docs/layouts/view_of.h"

namespace registry_docs::catalog {
namespace {

using json_schema::Words;
using layouts::list_of;
using layouts::ListType;
using layouts::Member;
using layouts::member;
using layouts::ObjectType;
using layouts::View;
using layouts::view_of;

// --- Tools ---

constexpr std::array hint_members = {
    member<&Hint::name>("name"),
    member<&Hint::value>("value"),
    member<&Hint::is_given>("given"),
};
constexpr ObjectType hint_type = {.name = "hint", .members = hint_members};

template <Hint Hints::*hint>
View hint_of(const Hints& hints) {
  return View::object(hint_type, &(hints.*hint));
}

constexpr std::array hints_members = {
    member<Hints, hint_of<&Hints::read_only>>("read_only"),
    member<Hints, hint_of<&Hints::destructive>>("destructive"),
    member<Hints, hint_of<&Hints::idempotent>>("idempotent"),
    member<Hints, hint_of<&Hints::open_world>>("open_world"),
};
constexpr ObjectType hints_type = {.name = "hints", .members = hints_members};

// What the given hints say, in words.
struct HintWords {
  Hint Hints::*hint;
  std::string_view if_true;
  std::string_view if_false;
};
constexpr std::array hint_words = {
    HintWords{&Hints::read_only, "read-only", "not read-only"},
    HintWords{&Hints::destructive, "destructive", "not destructive"},
    HintWords{&Hints::idempotent, "idempotent", "not idempotent"},
    HintWords{&Hints::open_world, "open world", "closed world"},
};

constexpr ListType hint_words_type = {
    .size =
        [](const void* list) {
          const Hints& hints = *static_cast<const Hints*>(list);
          return static_cast<std::size_t>(std::ranges::count_if(
              hint_words, [&](const HintWords& each) { return (hints.*each.hint).is_given; }));
        },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          const Hints& hints = *static_cast<const Hints*>(list);
          for (const HintWords& each : hint_words) {
            const Hint& hint = hints.*each.hint;
            if (hint.is_given) visit(View::text(hint.value ? each.if_true : each.if_false));
          }
        }};

View shown_effect(const Tool& tool) { return View::text(effect_of(tool)); }

View hints_of(const Tool& tool) { return View::object(hints_type, &tool.hints); }
View hint_words_of(const Tool& tool) { return View::list(hint_words_type, &tool.hints); }
View parameters_of(const Tool& tool) { return fields_view(tool.parameters); }
View all_parameters_of(const Tool& tool) { return all_fields_view(tool.parameters); }
View output_of(const Tool& tool) { return fields_view(tool.output); }
View all_output_of(const Tool& tool) { return all_fields_view(tool.output); }
View notes_of(const Tool& tool) { return list_of<Words, words_view>(tool.notes); }

constexpr std::array tool_members = {
    member<&Tool::name>("name"),
    member<&Tool::title>("title"),
    member<&Tool::description>("description"),
    member<&Tool::summary>("summary"),
    member<Tool, hints_of>("hints"),
    member<Tool, hint_words_of>("hint_words"),
    member<Tool, shown_effect>("effect"),
    member<&Tool::group>("group"),
    member<&Tool::anchor>("anchor"),
    member<Tool, parameters_of>("parameters"),
    member<Tool, all_parameters_of>("all_parameters"),
    member<Tool, notes_of>("notes"),
    member<Tool, output_of>("output"),
    member<Tool, all_output_of>("all_output"),
    member<&Tool::extra>("extra"),
    member<&Tool::raw>("raw"),
};
constexpr ObjectType tool_type = {.name = "tool", .members = tool_members};

View tool_view(const Tool& tool) { return View::object(tool_type, &tool); }
View tool_pointer_view(const Tool* const& tool) { return tool_view(*tool); }

View tools_of_group(const Group& group) {
  return list_of<const Tool*, tool_pointer_view>(group.tools);
}

constexpr std::array group_members = {
    member<&Group::name>("name"),     member<&Group::title>("title"),
    member<&Group::anchor>("anchor"), member<Group, tools_of_group>("tools"),
    member<&Group::extra>("extra"),
};
constexpr ObjectType group_type = {.name = "group", .members = group_members};

View group_view(const Group& group) { return View::object(group_type, &group); }

// --- Prompts and resources ---

constexpr std::array argument_members = {
    member<&Argument::name>("name"),
    member<&Argument::title>("title"),
    member<&Argument::description>("description"),
    member<&Argument::is_required>("required"),
    member<&Argument::raw>("raw"),
};
constexpr ObjectType argument_type = {.name = "argument", .members = argument_members};

View argument_view(const Argument& argument) { return View::object(argument_type, &argument); }
View arguments_of(const Prompt& prompt) {
  return list_of<Argument, argument_view>(prompt.arguments);
}

constexpr std::array prompt_members = {
    member<&Prompt::name>("name"),
    member<&Prompt::title>("title"),
    member<&Prompt::description>("description"),
    member<&Prompt::summary>("summary"),
    member<&Prompt::anchor>("anchor"),
    member<Prompt, arguments_of>("arguments"),
    member<&Prompt::raw>("raw"),
};
constexpr ObjectType prompt_type = {.name = "prompt", .members = prompt_members};

View prompt_view(const Prompt& prompt) { return View::object(prompt_type, &prompt); }

View size_of(const Resource& resource) {
  return resource.size.empty() ? View() : View::number(resource.size);
}

constexpr std::array resource_members = {
    member<&Resource::uri>("uri"),         member<&Resource::name>("name"),
    member<&Resource::title>("title"),     member<&Resource::description>("description"),
    member<&Resource::summary>("summary"), member<&Resource::mime_type>("mime_type"),
    member<Resource, size_of>("size"),     member<&Resource::anchor>("anchor"),
    member<&Resource::raw>("raw"),
};
constexpr ObjectType resource_type = {.name = "resource", .members = resource_members};

View resource_view(const Resource& resource) { return View::object(resource_type, &resource); }

// --- The whole ---

constexpr std::array server_members = {
    member<&Server::name>("name"),       member<&Server::title>("title"),
    member<&Server::version>("version"), member<&Server::instructions>("instructions"),
    member<&Server::website>("website"), member<&Server::description>("description"),
};
constexpr ObjectType server_type = {.name = "server", .members = server_members};

constexpr std::array any_members = {
    member<&Any::summaries>("summaries"),
    member<&Any::effects>("effects"),
    member<&Any::titles>("titles"),
};
constexpr ObjectType any_type = {.name = "any", .members = any_members};

constexpr std::array reference_members = {Member{
    "path", [](const void* path) { return view_of(*static_cast<const std::string*>(path)); }}};
constexpr ObjectType reference_type = {.name = "reference", .members = reference_members};

View reference_of(const Model& model) {
  if (!model.block.reference) return {};
  return View::object(reference_type, &*model.block.reference);
}
View block_name(const Model& model) { return view_of(model.block.name); }

constexpr std::array block_members = {
    member<Model, block_name>("name"),
    member<&Model::h1>("h1"),
    member<&Model::h2>("h2"),
    member<&Model::h3>("h3"),
    member<Model, reference_of>("reference"),
};
constexpr ObjectType block_type = {.name = "block", .members = block_members};

template <std::string Model::Counts::*count>
View count_of(const Model::Counts& counts) {
  return View::number(counts.*count);
}

constexpr std::array counts_members = {
    member<Model::Counts, count_of<&Model::Counts::tools>>("tools"),
    member<Model::Counts, count_of<&Model::Counts::groups>>("groups"),
    member<Model::Counts, count_of<&Model::Counts::prompts>>("prompts"),
    member<Model::Counts, count_of<&Model::Counts::resources>>("resources"),
    member<Model::Counts, count_of<&Model::Counts::templates>>("templates"),
};
constexpr ObjectType counts_type = {.name = "counts", .members = counts_members};

View server_of(const Model& model) {
  return View::object(server_type, &model.catalog->server);
}
View tools_of(const Model& model) { return list_of<Tool, tool_view>(model.catalog->tools); }
View groups_of(const Model& model) {
  return list_of<Group, group_view>(model.catalog->groups);
}
View prompts_of(const Model& model) {
  return list_of<Prompt, prompt_view>(model.catalog->prompts);
}
View resources_of(const Model& model) {
  return list_of<Resource, resource_view>(model.catalog->resources);
}
View templates_of(const Model& model) {
  return list_of<Resource, resource_view>(model.catalog->templates);
}
View counts_of(const Model& model) { return View::object(counts_type, &model.counts); }
View any_of(const Model& model) { return View::object(any_type, &model.catalog->any); }
View block_of(const Model& model) { return View::object(block_type, &model); }
View tool_of(const Model& model) {
  return model.block.tool == nullptr ? View() : tool_view(*model.block.tool);
}

constexpr std::array model_members = {
    member<Model, server_of>("server"),       member<Model, counts_of>("counts"),
    member<Model, groups_of>("groups"),       member<Model, tools_of>("tools"),
    member<Model, prompts_of>("prompts"),     member<Model, resources_of>("resources"),
    member<Model, templates_of>("templates"), member<Model, any_of>("any"),
    member<Model, block_of>("block"),         member<Model, tool_of>("tool"),
};
constexpr ObjectType model_type = {.name = "the model", .members = model_members};

std::string marks(std::size_t level) {
  return std::string(std::clamp<std::size_t>(level, 1, 6), '#');
}

}  // namespace

Model::Model(const Catalog& from, Block of)
    : catalog(&from),
      block(std::move(of)),
      h1(marks(block.heading)),
      h2(marks(block.heading + 1)),
      h3(marks(block.heading + 2)),
      counts{.tools = std::to_string(from.tools.size()),
             .prompts = std::to_string(from.prompts.size()),
             .resources = std::to_string(from.resources.size()),
             .templates = std::to_string(from.templates.size()),
             .groups = std::to_string(from.groups.size())} {}

View Model::view() const { return View::object(model_type, this); }

}  // namespace registry_docs::catalog
