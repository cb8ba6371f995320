#include "registry_docs/changes/changes.h"

#include <algorithm>
#include <string>

#include "registry_docs/changes/pairs.h"
#include "registry_docs/changes/rest.h"
#include "registry_docs/changes/tools.h"

namespace registry_docs::changes {
namespace {

using catalog::Argument;
using catalog::Catalog;
using catalog::Group;
using catalog::Prompt;
using catalog::Resource;
using catalog::Server;
using catalog::Tool;
using json::MaybeNode;
using json::Node;

// One or the other is there.
template <typename Entry>
void tell_one(const Pair<Entry>& pair, Teller& teller, Verdict verdict_if_new) {
  if (pair.after == nullptr) {
    teller.tell("is gone", Verdict::breaking);
  } else {
    teller.tell("is new", verdict_if_new);
  }
}

// Compares two lists whose places are called "KIND KEY".
template <typename Entry, typename Key, typename Compare>
void compare_lists(const std::vector<Entry>& before, const std::vector<Entry>& after,
                   const std::string& kind, Key key, std::vector<Change>& changes,
                   Compare compare) {
  const auto pairs = pairs_of(before, after, key);
  if (!are_in_order(pairs)) {
    Teller(changes, "server").tell("the order of its " + kind + "s changed", Verdict::words);
  }
  for (const auto& pair : pairs) {
    const Entry& entry = pair.before == nullptr ? *pair.after : *pair.before;
    const std::string place = kind + " " + shown(entry.*key);
    if (pair.before != nullptr && pair.after != nullptr) {
      compare(*pair.before, *pair.after, place);
    } else {
      Teller teller(changes, place);
      tell_one(pair, teller, Verdict::compatible);
    }
  }
}

void compare_servers(const Server& before, const Server& after, Teller teller) {
  teller.tell_name("name", before.name, after.name);
  teller.tell_text("title", before.title, after.title);
  teller.tell_name("version", before.version, after.version);
  teller.tell_text("instructions", before.instructions, after.instructions);
  teller.tell_name("website", before.website, after.website);
  teller.tell_text("description", before.description, after.description);
}

// Whether two entries of which nothing, or not all, is told say different things.
bool differ(const MaybeNode& before, const MaybeNode& after,
            std::string (*text)(const Node& entry)) {
  return before && after && text(*before) != text(*after);
}

void compare_arguments(const Argument& before, const Argument& after, Teller teller) {
  if (before.is_required != after.is_required) {
    teller.tell(after.is_required ? "is required now" : "is no longer required",
                after.is_required ? Verdict::breaking : Verdict::compatible);
  }
  teller.tell_text("title", before.title, after.title);
  teller.tell_text("description", before.description, after.description);
  if (differ(before.raw, after.raw, rest_of_argument)) {
    teller.tell(changed_besides, Verdict::words);
  }
}

void compare_all_arguments(const Prompt& before, const Prompt& after, const std::string& place,
                           std::vector<Change>& changes) {
  const auto pairs = pairs_of(before.arguments, after.arguments, &Argument::name);
  if (!are_in_order(pairs)) {
    Teller(changes, place).tell("the order of its arguments changed", Verdict::words);
  }
  for (const auto& pair : pairs) {
    const Argument& argument = pair.before == nullptr ? *pair.after : *pair.before;
    Teller teller(changes, place + ", argument " + shown(argument.name));
    if (pair.before != nullptr && pair.after != nullptr) {
      compare_arguments(*pair.before, *pair.after, teller);
    } else if (pair.before == nullptr && argument.is_required) {
      teller.tell("is new and required", Verdict::breaking);
    } else {
      tell_one(pair, teller, Verdict::compatible);
    }
  }
}

void compare_prompts(const Prompt& before, const Prompt& after, const std::string& place,
                     std::vector<Change>& changes) {
  const std::size_t told = changes.size();
  Teller teller(changes, place);
  teller.tell_text("title", before.title, after.title);
  teller.tell_text("description", before.description, after.description);
  compare_all_arguments(before, after, place, changes);
  if (differ(before.raw, after.raw, rest_of_prompt) ||
      (changes.size() == told && differ(before.raw, after.raw, text_of))) {
    teller.tell(changed_besides, Verdict::words);
  }
}

void compare_resources(const Resource& before, const Resource& after, Teller teller) {
  teller.tell_name("name", before.name, after.name);
  teller.tell_text("title", before.title, after.title);
  teller.tell_text("description", before.description, after.description);
  teller.tell_name("mimeType", before.mime_type, after.mime_type);
  teller.tell_name("size", before.size, after.size);
  if (differ(before.raw, after.raw, rest_of_resource)) {
    teller.tell(changed_besides, Verdict::words);
  }
}

void compare_groups(const Group& before, const Group& after, Teller teller) {
  teller.tell_text("title", before.title, after.title);
  const auto text = [](const MaybeNode& extra) {
    return extra ? text_of(*extra) : std::string();
  };
  teller.tell_text("extra", text(before.extra), text(after.extra));
}

// What a group holds is told of with each tool, and so is only its name here.
void compare_all_groups(const Catalog& before, const Catalog& after,
                        std::vector<Change>& changes) {
  const auto pairs = pairs_of(before.groups, after.groups, &Group::name);
  if (!are_in_order(pairs)) {
    Teller(changes, "server").tell("the order of its groups changed", Verdict::words);
  }
  for (const auto& [from, to] : pairs) {
    Teller teller(changes, "group " + shown((from == nullptr ? to : from)->name));
    if (from != nullptr && to != nullptr) {
      compare_groups(*from, *to, teller);
    } else {
      teller.tell(from == nullptr ? "is new" : "is gone", Verdict::words);
    }
  }
}

}  // namespace

std::vector<Change> changes(const Catalog& before, const Catalog& after) {
  std::vector<Change> all;
  compare_servers(before.server, after.server, Teller(all, "server"));
  compare_lists(before.tools, after.tools, "tool", &Tool::name, all,
                [&all](const Tool& from, const Tool& to, const std::string& place) {
                  add_changes(from, to, place, all);
                });
  compare_lists(before.prompts, after.prompts, "prompt", &Prompt::name, all,
                [&all](const Prompt& from, const Prompt& to, const std::string& place) {
                  compare_prompts(from, to, place, all);
                });
  const auto compare = [&all](const Resource& from, const Resource& to,
                              const std::string& place) {
    compare_resources(from, to, Teller(all, place));
  };
  compare_lists(before.resources, after.resources, "resource", &Resource::uri, all, compare);
  compare_lists(before.templates, after.templates, "resource template", &Resource::uri, all,
                compare);
  compare_all_groups(before, after, all);
  return all;
}

}  // namespace registry_docs::changes
