// Prints what is read of the schemas of an answer to tools/list, as JSON: print_fields FILE.
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <exception>
#include <iostream>
#include <string>
#include <string_view>

#include "json_schema/field_reader.h"
#include "registry_docs/text.h"

namespace {

using json_schema::Field;
using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void write(Writer& writer, std::string_view text) {
  writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

void write(Writer& writer, const json::Node& node) {
  const std::string json = node.json();
  writer.RawValue(json.data(), json.size(), rapidjson::kObjectType);
}

void write(Writer& writer, const json_schema::Limit& limit) {
  writer.StartObject();
  writer.Key("of_items");
  writer.Bool(limit.is_of_items);
  write(writer, limit.keyword);
  write(writer, limit.value);
  writer.EndObject();
}

void write(Writer& writer, const json_schema::Words& words) {
  std::string text;
  for (const auto& [piece, is_code] : words) text += is_code ? "`" + piece + "`" : piece;
  write(writer, text);
}

void write(Writer& writer, const json_schema::Remark& remark) {
  writer.StartObject();
  writer.Key("title");
  write(writer, remark.title);
  writer.Key("description");
  write(writer, remark.description);
  if (remark.default_value) {
    writer.Key("default");
    write(writer, *remark.default_value);
  }
  writer.EndObject();
}

void write(Writer& writer, const Field& field);

template <typename T>
void write_list(Writer& writer, const char* name, const std::vector<T>& items) {
  if (items.empty()) return;
  writer.Key(name);
  writer.StartArray();
  for (const T& item : items) write(writer, item);
  writer.EndArray();
}

void write_text(Writer& writer, const char* name, std::string_view text) {
  if (text.empty()) return;
  writer.Key(name);
  write(writer, text);
}

void write_flag(Writer& writer, const char* name, bool is_set) {
  if (!is_set) return;
  writer.Key(name);
  writer.Bool(true);
}

void write(Writer& writer, const Field& field) {
  writer.StartObject();
  writer.Key("path");
  write(writer, field.path);
  writer.Key("depth");
  writer.Uint64(field.depth);
  write_text(writer, "name", field.name);
  write_text(writer, "form", field.form);
  write_text(writer, "type", field.type);
  write_flag(writer, "required", field.is_required);
  write_flag(writer, "nullable", field.is_nullable);
  write_flag(writer, "deprecated", field.is_deprecated);
  write_flag(writer, "cut", field.is_cut);
  write_text(writer, "title", field.title);
  write_text(writer, "description", field.description);
  if (field.default_value) {
    writer.Key("default");
    write(writer, *field.default_value);
  }
  write_list(writer, "values", field.values);
  write_list(writer, "limits", field.limits);
  write_list(writer, "words", field.limit_words);
  write_list(writer, "notes", field.notes);
  write_list(writer, "examples", field.examples);
  write_list(writer, "remarks", field.remarks);
  write_list(writer, "fields", field.fields);
  writer.EndObject();
}

void write_tool(Writer& writer, const json::Node& tool) {
  std::vector<json_schema::Fault> faults;
  writer.StartObject();
  if (const auto schema = tool.find("inputSchema")) {
    writer.Key("inputSchema");
    write(writer, read_input(*schema, faults));
  }
  if (const auto schema = tool.find("outputSchema")) {
    writer.Key("outputSchema");
    write(writer, read_output(*schema, faults));
  }
  writer.Key("faults");
  writer.StartArray();
  for (const auto& [at, expected, found] : faults) {
    write(writer, "expected " + expected + ", found " + found);
  }
  writer.EndArray();
  writer.EndObject();
}

}  // namespace

int main(int, char** argv) try {
  const json::Document document(argv[1], registry_docs::read_text(argv[1]));
  rapidjson::StringBuffer buffer;
  Writer writer(buffer);
  writer.StartArray();
  json::Node(document).at("tools").for_each_element(
      [&writer](const json::Node& tool) { write_tool(writer, tool); });
  writer.EndArray();
  std::cout << buffer.GetString() << '\n';
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << '\n';
  return 1;
}
