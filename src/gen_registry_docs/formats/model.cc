#include "gen_registry_docs/formats/model.h"

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <string_view>

namespace gen_registry_docs::formats {
namespace {

using registry_docs::layouts::Member;
using registry_docs::layouts::ObjectType;
using registry_docs::layouts::View;
using Json = rapidjson::PrettyWriter<rapidjson::StringBuffer>;

rapidjson::SizeType size_of(std::string_view text) {
  return static_cast<rapidjson::SizeType>(text.size());
}

void put(Json& json, View view);

void put_member(Json& json, std::string_view name, View view) {
  json.Key(name.data(), size_of(name));
  put(json, view);
}

void put_object(Json& json, View view) {
  const ObjectType& type = view.object_type();
  json.StartObject();
  for (const Member& member : type.members) {
    put_member(json, member.name, member.get(view.data()));
  }
  if (type.for_each != nullptr) {
    type.for_each(view.data(),
                  [&json](std::string_view name, View each) { put_member(json, name, each); });
  }
  json.EndObject();
}

void put_list(Json& json, View view) {
  json.StartArray();
  view.list_type().for_each(view.data(), [&json](View element) { put(json, element); });
  json.EndArray();
}

void put(Json& json, View view) {
  const std::string_view text =
      view.kind() == View::Kind::number || view.kind() == View::Kind::text ? view.characters()
                                                                           : "";
  switch (view.kind()) {
    case View::Kind::none:
      json.Null();
      break;
    case View::Kind::truth:
      json.Bool(view.is_shown());
      break;
    case View::Kind::number:
      json.RawValue(text.data(), text.size(), rapidjson::kNumberType);
      break;
    case View::Kind::text:
      json.String(text.data(), size_of(text));
      break;
    case View::Kind::list:
      put_list(json, view);
      break;
    case View::Kind::object:
      put_object(json, view);
      break;
  }
}

}  // namespace

std::string model_json(std::span<const NamedModel> models) {
  rapidjson::StringBuffer text;
  Json json(text);
  json.SetIndent(' ', 2);
  const bool is_one = models.size() == 1 && models.front().name.empty();
  if (is_one) {
    put(json, models.front().view);
  } else {
    json.StartObject();
    for (const auto& [name, view] : models) put_member(json, name, view);
    json.EndObject();
  }
  return std::string(text.GetString(), text.GetSize()) + "\n";
}

}  // namespace gen_registry_docs::formats
