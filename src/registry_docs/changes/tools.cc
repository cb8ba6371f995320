#include "registry_docs/changes/tools.h"

#include <array>
#include <utility>

#include "json_schema/field_reader.h"
#include "registry_docs/changes/fields.h"
#include "registry_docs/changes/rest.h"

namespace registry_docs::changes {
namespace {

using catalog::Hint;
using catalog::Hints;
using catalog::Tool;
using json::Kind;
using json::MaybeNode;
using json_schema::Fault;
using json_schema::Field;

struct HintOf {
  Hint Hints::*hint;
  bool is_of_writes;  // means nothing of a tool that only reads
};
constexpr std::array hints = {
    HintOf{&Hints::read_only, false}, HintOf{&Hints::destructive, true},
    HintOf{&Hints::idempotent, true}, HintOf{&Hints::open_world, false}};

// What holds of a tool that says nothing, which is the worst.
constexpr Hints unsaid = {};

void tell_hints(const Hints& before, const Hints& after, Teller& teller) {
  const bool only_reads = before.read_only.value || after.read_only.value;
  for (const auto& [hint, is_of_writes] : hints) {
    const Hint& from = before.*hint;
    const Hint& to = after.*hint;
    if (from.value == to.value) continue;
    const auto text = [](bool value) { return std::string(value ? "true" : "false"); };
    const Verdict verdict =
        to.value == (unsaid.*hint).value ? Verdict::breaking : Verdict::compatible;
    teller.tell(was_and_is(to.name, text(from.value), text(to.value)),
                only_reads && is_of_writes ? Verdict::words : verdict);
  }
}

MaybeNode schema_of(const Tool& tool, std::string_view name) {
  return tool.raw && tool.raw->kind() == Kind::object ? tool.raw->find(name) : std::nullopt;
}

// A whole schema, which says more than the parameters that the catalog keeps of it.
Field input_of(const Tool& tool) {
  if (const MaybeNode schema = schema_of(tool, "inputSchema")) {
    std::vector<Fault> faults;
    return json_schema::read_input(*schema, faults);
  }
  return {.type = "object", .notes = tool.notes, .fields = tool.parameters};
}

Field output_of(const json::Node& schema) {
  std::vector<Fault> faults;
  return json_schema::read_output(schema, faults);
}

void compare_output(const Tool& before, const Tool& after, const std::string& place,
                    std::vector<Change>& changes) {
  const MaybeNode from = schema_of(before, "outputSchema");
  const MaybeNode to = schema_of(after, "outputSchema");
  if (from && to) {
    const Field fields_before = output_of(*from);
    add_changes(fields_before, output_of(*to), place, Side::output, changes);
  } else if (from || to) {
    Teller(changes, place + ", output")
        .tell(to ? "is new" : "is gone", to ? Verdict::compatible : Verdict::breaking);
  }
}

// Only where both have such a schema, for else all of it is told of already.
bool has_other_rest(const Tool& before, const Tool& after, std::string_view schema) {
  const MaybeNode from = schema_of(before, schema);
  const MaybeNode to = schema_of(after, schema);
  return from && to && rest_of_schema(*from) != rest_of_schema(*to);
}

bool has_other_rest(const Tool& before, const Tool& after) {
  if (!before.raw || !after.raw) return false;
  return rest_of_tool(*before.raw) != rest_of_tool(*after.raw) ||
         has_other_rest(before, after, "inputSchema") ||
         has_other_rest(before, after, "outputSchema");
}

bool are_same_entries(const Tool& before, const Tool& after) {
  if (!before.raw || !after.raw) return before.raw.has_value() == after.raw.has_value();
  return text_of_tool(*before.raw) == text_of_tool(*after.raw);
}

void compare_entries(const Tool& before, const Tool& after, const std::string& place,
                     std::vector<Change>& changes) {
  const std::size_t told = changes.size();
  Teller teller(changes, place);
  teller.tell_text("title", before.title, after.title);
  teller.tell_text("description", before.description, after.description);
  tell_hints(before.hints, after.hints, teller);
  const Field input = input_of(before);
  add_changes(input, input_of(after), place, Side::input, changes);
  compare_output(before, after, place, changes);
  if (has_other_rest(before, after) ||
      (changes.size() == told && !are_same_entries(before, after))) {
    teller.tell(changed_besides, Verdict::words);
  }
}

// What the registry document says of it.
void compare_arrangement(const Tool& before, const Tool& after, Teller& teller) {
  if (before.description == after.description) {
    teller.tell_text("summary", before.summary, after.summary);
  }
  teller.tell_name("group", before.group, after.group);
  const auto text = [](const MaybeNode& extra) {
    return extra ? text_of(*extra) : std::string();
  };
  teller.tell_text("extra", text(before.extra), text(after.extra));
}

}  // namespace

void add_changes(const Tool& before, const Tool& after, const std::string& place,
                 std::vector<Change>& changes) {
  compare_entries(before, after, place, changes);
  Teller teller(changes, place);
  compare_arrangement(before, after, teller);
}

}  // namespace registry_docs::changes
