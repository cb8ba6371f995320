#include "json_schema/parts.h"

namespace json_schema {
namespace {

struct Named {
  std::string_view name;
  Keyword keyword;
};

// By size, by which a name is looked up.
constexpr std::array<Named, 27> keywords = {
    {{"$id", Keyword::silent},
     {"type", Keyword::type},
     {"enum", Keyword::enumeration},
     {"$ref", Keyword::reference},
     {"items", Keyword::items},
     {"const", Keyword::constant},
     {"title", Keyword::title},
     {"anyOf", Keyword::any_of},
     {"oneOf", Keyword::one_of},
     {"allOf", Keyword::all_of},
     {"$defs", Keyword::silent},
     {"default", Keyword::default_value},
     {"minimum", Keyword::minimum},
     {"maximum", Keyword::maximum},
     {"example", Keyword::example},
     {"$schema", Keyword::silent},
     {"$anchor", Keyword::silent},
     {"required", Keyword::required},
     {"examples", Keyword::examples},
     {"$comment", Keyword::silent},
     {"properties", Keyword::properties},
     {"deprecated", Keyword::deprecated},
     {"description", Keyword::description},
     {"prefixItems", Keyword::prefix_items},
     {"definitions", Keyword::silent},
     {"patternProperties", Keyword::pattern_properties},
     {"additionalProperties", Keyword::additional_properties}}};

constexpr std::size_t longest = 20;

// Where the names of each size begin.
constexpr auto begins = [] {
  std::array<std::size_t, longest + 2> places{};
  for (std::size_t size = 0, at = 0; size < places.size(); ++size) {
    while (at < keywords.size() && keywords[at].name.size() < size) ++at;
    places[size] = at;
  }
  return places;
}();

}  // namespace

Keyword keyword_of(std::string_view name) {
  if (name.size() > longest) return Keyword::other;
  for (std::size_t at = begins[name.size()]; at < begins[name.size() + 1]; ++at) {
    if (keywords[at].name[0] == name[0] && keywords[at].name == name)
      return keywords[at].keyword;
  }
  return Keyword::other;
}

Parts::Parts(const json::Node& schema) : schema_(schema) {
  if (schema.kind() != json::Kind::object) return;
  schema.for_each_member([this](std::string_view name, const json::Node& member) {
    const Keyword keyword = keyword_of(name);
    if (keyword < Keyword::silent) {
      members_[static_cast<std::size_t>(keyword)] = &member.token();
      given_ |= keywords_of(keyword);
    } else if (keyword == Keyword::other) {
      has_others_ = true;
    }
  });
}

}  // namespace json_schema
