// A member that is written into a JSON text is read there by RapidJSON, and all else as
// before; before it and behind it no byte differs.
#include <rapidjson/document.h>
#include <rapidjson/pointer.h>

#include <algorithm>

#include "fuzz/target.h"
#include "json/edit.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using json::Document;
using json::Edit;
using json::Member;
using json::Node;

rapidjson::Document parsed(const std::string& json) {
  rapidjson::Document document;
  constexpr unsigned flags = rapidjson::kParseFullPrecisionFlag;
  document.Parse<flags>(json.data(), json.size());
  return document;
}

bool is_refused(const std::string& json) {
  try {
    Document("j", json);
  } catch (const InputError&) {
    return true;
  }
  return false;
}

bool is_json(const std::string& json) {
  return !find_ill_formed(json) && !is_refused(json) && !parsed(json).HasParseError();
}

void require_change(const std::string& before, const std::string& pointer,
                    const std::string& value, const Edit& edit) {
  const std::string after = json::edited(before, {edit});
  auto expected = parsed(before);
  const auto found = parsed(after);
  require(!found.HasParseError(), "JSON", after);
  const rapidjson::Pointer place(pointer.data(), pointer.size());
  auto held = parsed(value);
  place.Set(expected, held);
  require(expected == found, "the member's value and no other", before + "\n" + after);
  require(!edit.is_current || after == before, "no change", after);
  require(after.ends_with(before.substr(edit.end)), "the same end", after);
}

}  // namespace

void run(std::string_view input) {
  std::istringstream parts{std::string(input)};
  const std::string before = next_part(parts);
  const std::string pointer = next_part(parts);
  const std::string value = next_part(parts);
  const rapidjson::Pointer place(pointer.data(), pointer.size());
  if (find_ill_formed(pointer) || !pointer.starts_with('/') || !place.IsValid()) return;
  if (!is_json(before) || !is_json(value)) return;
  const Document document("j", before);
  const Document held("v", value);
  const std::vector<Member> members = {{pointer, Node(held)}};
  std::vector<Edit> edits;
  try {
    edits = json::edits(document, members);
  } catch (const InputError&) {
    const rapidjson::Pointer parent(pointer.data(), pointer.rfind('/'));
    const auto root = parsed(before);
    const rapidjson::Value* const object = parent.Get(root);
    require(object == nullptr || !object->IsObject(), "no refusal", before + "\n" + pointer);
    return;
  }
  require_change(before, pointer, value, edits.front());
  const std::string after = json::edited(before, edits);
  const Document changed("j", after);
  require(json::edits(changed, members).front().is_current, "a current member", after);
}

}  // namespace registry_docs::fuzz
