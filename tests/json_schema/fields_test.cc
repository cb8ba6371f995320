#include "json_schema/field.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "json_schema/field_reader.h"
#include "registry_docs/errors.h"
#include "support/text.h"
#include "text/join.h"

namespace json_schema {
namespace {

namespace support = registry_docs::support;

std::string spelled(const Words& words) {
  return text::join(words, "", [](const Piece& piece) {
    return piece.is_code ? "`" + piece.text + "`" : piece.text;
  });
}

std::string spelled(const Remark& remark) {
  std::string text = "also " + std::string(remark.title) + ": ";
  text += remark.description;
  return remark.default_value ? text + " = " + remark.default_value->json() : text;
}

// One line for a field, and one for each within it.
void append(std::string& text, const Field& field) {
  text += std::string(2 * field.depth, ' ') + (field.path.empty() ? "." : field.path);
  if (!field.form.empty()) text += " <" + field.form + ">";
  text += " " + field.type + (field.is_required ? "!" : "") + (field.is_nullable ? "?" : "");
  const auto add = [&](const char* what, bool is_given, const std::string& more = "") {
    if (is_given) text += std::string("; ") + what + more;
  };
  add("deprecated", field.is_deprecated);
  add("cut", field.is_cut);
  add("# ", !field.title.empty(), std::string(field.title));
  add("", !field.description.empty(), std::string(field.description));
  if (field.default_value) text += "; = " + field.default_value->json();
  const auto json = [](const json::Node& value) { return value.json(); };
  add("one of ", !field.values.empty(), text::join(field.values, ", ", json));
  for (const Words& words : field.limit_words) text += "; " + spelled(words);
  add("like ", !field.examples.empty(), text::join(field.examples, ", ", json));
  for (const Words& note : field.notes) text += "; " + spelled(note);
  for (const Remark& remark : field.remarks) text += "; " + spelled(remark);
  text += "\n";
  for (const Field& part : field.fields) append(text, part);
}

std::string message_of(const Fault& fault) {
  return support::message_of<registry_docs::InputError>(
      [&fault] { fault.at.refuse(fault.expected, fault.found); });
}

// What is read of a schema, and what could not be.
std::string shown(const std::string& schema,
                  Field (*read)(const json::Node&, std::vector<Fault>&)) {
  const json::Document document("s", schema);
  std::vector<Fault> faults;
  std::string text;
  append(text, read(json::Node(document), faults));
  for (const Fault& fault : faults) text += message_of(fault) + "\n";
  return text;
}

TEST(Fields, SayWhatTheSchemaSays) {
  for (const auto& [name, schema, expected] : support::read_cases("json_schema/fields.txt")) {
    SCOPED_TRACE(name);
    EXPECT_EQ(shown(schema, name.starts_with("output") ? read_output : read_input),
              expected + "\n");
  }
}

struct Extent {
  std::size_t fields = 0;
  std::size_t depth = 0;
  bool is_cut = false;
};

void measure(const Field& field, Extent& extent) {
  ++extent.fields;
  extent.depth = std::max(extent.depth, field.depth);
  extent.is_cut = extent.is_cut || field.is_cut;
  for (const Field& part : field.fields) measure(part, extent);
}

// What a hundred schemas come to, or as many, of which each refers to the next.
Extent extent_of(const std::string& link, int count = 100) {
  std::string links;
  for (int i = 1; i < count; ++i) {
    const std::string next = R"({"$ref": "#/)" + std::to_string(i) + "\"}";
    links +=
        "\"" + std::to_string(i - 1) + "\": " + support::replaced(link, "NEXT", next) + ", ";
  }
  const json::Document document(
      "s", R"({"properties": {"first": {"$ref": "#/0"}, "last": {"type": "string"}}, )" +
               links + "\"" + std::to_string(count - 1) + R"(": {"type": "integer"}})");
  std::vector<Fault> faults;
  const Field field = read_input(json::Node(document), faults);
  EXPECT_EQ(field.fields.back().type, "string");
  EXPECT_EQ(field.fields.size(), 2U);
  Extent extent;
  measure(field, extent);
  return extent;
}

TEST(Fields, AreBoundedWhereReferencesMakeMuchOfLittle) {
  const Extent tree = extent_of(R"({"properties": {"a": NEXT, "b": NEXT}})");
  EXPECT_EQ(tree.fields, 10'001U);  // the schema itself is none
  EXPECT_TRUE(tree.is_cut);
  EXPECT_LE(extent_of(R"({"anyOf": [NEXT, {"properties": {"a": NEXT}}]})").fields, 10'001U);
  EXPECT_LE(extent_of(R"({"allOf": [NEXT, NEXT], "oneOf": [NEXT, NEXT]})").fields, 10'001U);
  EXPECT_EQ(extent_of(R"({"allOf": [NEXT, NEXT]})").fields, 3U);
  EXPECT_EQ(extent_of("NEXT", 3000).fields, 3U);
  const Extent chain = extent_of(R"({"type": "object", "properties": {"a": NEXT}})", 3000);
  EXPECT_EQ(chain.depth, 254U);  // in the 256th, the schema itself
  EXPECT_TRUE(chain.is_cut);
  EXPECT_LE(extent_of(R"({"type": "array", "items": NEXT})", 3000).depth, 255U);
}

TEST(Fields, AreTheFirstOfTooMany) {
  std::string properties;
  for (int i = 0; i < 12'000; ++i) {
    properties += (i > 0 ? ", \"" : "\"") + std::to_string(i) + R"(": {"enum": [{}]})";
  }
  const json::Document document("s", R"({"properties": {)" + properties + "}}");
  std::vector<Fault> faults;
  const Field field = read_input(json::Node(document), faults);
  EXPECT_EQ(field.fields.size(), 10'000U);
  EXPECT_TRUE(field.is_cut);
  EXPECT_EQ(field.fields.back().name, "9999");
}

}  // namespace
}  // namespace json_schema
