// What a JSON Schema says of a parameter, in the words of the parameter tables.
#ifndef JSON_SCHEMA_SCHEMA_READER_H
#define JSON_SCHEMA_SCHEMA_READER_H

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "json/node.h"
#include "registry_docs/value.h"

namespace json_schema {

// The values that a schema lists, and apart from them those that are strings.
struct ListedValues {
  std::vector<registry_docs::Value> all = {};
  std::vector<std::string_view> strings = {};
};

// Each member stands in the schema itself, or where its $ref leads.
struct Shape {
  std::vector<std::string_view> types = {};  // distinct texts, one at least; "any" is one
  json::MaybeNode description = {};
  json::MaybeNode default_value = {};
  json::MaybeNode minimum = {};
  json::MaybeNode maximum = {};
  std::shared_ptr<const ListedValues> values = {};  // null: any value of the types
};

// Whether JSON Schema has a type of this name.
bool is_type_name(std::string_view name);

// Reads the schemas within one tool's input schema. Refuses, and names the tool, what leads
// nowhere, allows nothing or has no text.
class SchemaReader {
 public:
  // All must outlive this. The texts that are made join `texts`, which keeps each in its
  // place.
  SchemaReader(const json::Node& input_schema, std::string_view tool,
               std::deque<std::string>& texts)
      : root_(input_schema), tool_(tool), texts_(texts) {}

  Shape read(const json::Node& schema);

  // The types of a shape in one text, as in "string or integer[]". `schema` is where they
  // stand.
  std::string_view type_text(const json::Node& schema, const Shape& shape);

  // An array that at least one element is in.
  void require_elements(const json::Node& list, const std::string& expected) const;

  // `json::Node::refuse`, with the tool's name.
  [[noreturn]] void refuse(const json::Node& at, const std::string& expected,
                           const std::string& found) const;

 private:
  using Types = std::vector<std::string_view>;
  struct Members;

  Shape read_members(const Members& members);
  Shape read_where_led(const Members& members);
  Shape read_union(const json::Node& branches);
  Shape read_intersection(const json::Node& branches);
  const Shape& read_reference(const json::Node& reference);
  [[nodiscard]] json::Node target(const json::Node& reference) const;
  Types declared_types(const Members& members);
  std::string_view declared_type(const json::Node& name, const Members& members);
  Shape read_items(const Members& members);
  std::string_view keep(const json::Node& schema, std::string text);

  const json::Node& root_;
  std::string_view tool_;
  std::deque<std::string>& texts_;
  // By the reference's text; unset while it is being followed.
  std::unordered_map<std::string_view, std::optional<Shape>> references_ = {};
  std::size_t depth_ = 0;
};

}  // namespace json_schema

#endif  // JSON_SCHEMA_SCHEMA_READER_H
