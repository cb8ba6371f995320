#include <gtest/gtest.h>

#include <map>

#include "json/document.h"
#include "layouts/server.h"
#include "registry_docs/errors.h"
#include "registry_docs/layouts/json_view.h"
#include "registry_docs/layouts/render.h"
#include "support/text.h"

namespace registry_docs::layouts {
namespace {

using support::message_of;
using support::replaced;

const json::Document document("data", R"({
  "name": "n", "text": "a<b", "empty": "", "zero": 0, "number": -1.50,
  "yes": true, "no": false, "nothing": null,
  "list": ["a", "<", 3], "lists": [[1, 2], [3]], "none": [], "one": ["x"], "pair": [1, 2],
  "lines": "1\n2\r\n\r\n4\r5\n", "two_lines": "first\nsecond",
  "object": {"name": "o", "inner": {"deep": "d"}, "nothing": null},
  "tools": [{"name": "b", "n": 1}, {"name": "a", "n": 2, "note": "first\nsecond"},
            {"name": "b", "n": 3}],
  "names": [{"name": "b"}, {"name": "é"}, {"name": "ab"}, {"name": "B"}, {"name": "a"},
            {"name": null}],
  "fields": [{"name": "x", "fields": [{"name": "y", "fields": [{"name": "z", "fields": []}]}]},
             {"name": "w", "fields": []}]
})");

void append_code(std::string& to, std::string_view text, std::string_view) {
  to.append("`").append(text).append("`");
}

void append_upper(std::string& to, std::string_view text, std::string_view) {
  for (const char c : text)
    to += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
}

void append_quoted(std::string& to, std::string_view text, std::string_view indent) {
  to += replaced(std::string(text), "\n", "\n" + std::string(indent));
}

const TextFilter filters[] = {
    {"code", append_code}, {"upper", append_upper}, {"quoted", append_quoted, true}};

const Wrapper wrappers[] = {
    {"@cell",
     [](std::string& text, std::size_t begin) {
       text = text.substr(0, begin) + replaced(text.substr(begin), "\n", ";");
     }},
    {"@braces", [](std::string& text, std::size_t begin) { text.insert(begin, "{") += '}'; }}};

const Vocabulary vocabulary = {.filters = filters, .wrappers = wrappers};

const std::map<std::string_view, const char*> partials = {
    {"dot", "."},
    {"item", "{{name}}-{{name}}"},
    {"lines", "{{{text}}} {\n{{name}}\nfirst\n\nlast }\n"},
    {"outer", "( {{>lines}}\n  {{>lines}}\n)"},
    {"values", "{{two_lines}}\n\r\n\n{{#pair}}x{{.}}\n{{/pair}}x{{#yes}}.{{/yes}}\n{{! }}y"},
    {"fields", "{{#fields}}\n- {{name}}\n  {{>fields}}\n{{/fields}}\n"},
    {"quoted", "- {{two_lines | quoted}}"},
    {"forever", "{{>forever}}"},
    {"broken", "x\n{{#yes}}"},
    {"unknown", "\n{{unknown}}"},
};

void escape(std::string& to, std::string_view text) {
  to += replaced(replaced(std::string(text), "<", "&lt;"), "-", "&minus;");
}

// What becomes of a template, or the message of its refusal.
std::string rendered(const std::string& source, View root) {
  std::map<std::string_view, Template> parsed;
  const Environment environment{
      .escape = escape, .partial = [&](std::string_view name) -> const Template* {
        const auto found = partials.find(name);
        if (found == partials.end()) return nullptr;
        return &parsed.try_emplace(name, std::string(name), found->second, vocabulary)
                    .first->second;
      }};
  try {
    return render(Template("t", source, vocabulary), root, environment);
  } catch (const InputError& error) {
    return error.what();
  }
}

void expect_cases(const std::string& file, View root) {
  for (const auto& [name, text, expected] : support::read_cases(file)) {
    SCOPED_TRACE(name);
    EXPECT_EQ(rendered(replaced(text, "\\r", "\r"), root), replaced(expected, "\\r", "\r"));
  }
}

TEST(Template, ShowsJson) {
  expect_cases("layouts/json_cases.txt", view_of(json::Node(document)));
}

TEST(Template, ShowsObjectsOfKnownTypes) {
  const json::Document meta("meta", R"({"x": {"y": 1}})");
  const support::Server server{
      .tools = {{.name = "b",
                 .title = "Tool B",
                 .fields = {{.name = "x", .fields = {{.name = "z"}}}, {.name = "y"}},
                 .meta = json::Node(meta)},
                {.name = "a", .title = "Tool A"}},
      .limits = {{}}};
  expect_cases("layouts/typed_cases.txt", view_of(server));
}

TEST(Template, ShowsAValueThatIsNoObject) {
  EXPECT_EQ(rendered("{{.}}{{#.}}<{{.}}>{{/.}}", View::text("<")), "&lt;<&lt;>");
  EXPECT_EQ(rendered("{{name}}", View::text("x")),
            "t:1: expected a member of an object, found \"name\"");
}

TEST(Template, NeedsNeitherAnEscapeNorPartials) {
  const Template source("t", "{{.}}{{#.}}{{>item}}{{/.}}", {});
  EXPECT_EQ(render(source, View::text(""), {}), "");
  EXPECT_EQ(message_of<InputError>([&] { render(source, View::text("<"), {}); }),
            "t:1: expected a partial, found \"item\"");
}

// So many sections within each other, with a line in the innermost.
std::string nested(std::size_t depth) {
  std::string source = "x\n";
  for (std::size_t i = 0; i < depth; ++i) source = "{{#.}}" + source + "{{/.}}";
  return source;
}

TEST(Template, RefusesToGoTooDeepOrOnForLong) {
  EXPECT_EQ(rendered(nested(1000), View::truth(true)), "x\n");
  EXPECT_EQ(rendered(nested(1001), View::truth(true)),
            "t:1: expected at most 1000 sections and partials within each other, found more");
  std::string many;
  for (int i = 0; i < 1001; ++i) many += "{{#.}}{{>dot}}{{/.}}";
  EXPECT_EQ(rendered(many, View::truth(true)), std::string(1001, '.'));
  const std::string numbers = "{{#pair}}{{#pair}}{{.}}{{/pair}}{{/pair}}";
  const Template source("t", numbers, {});
  const View root = view_of(json::Node(document));
  EXPECT_EQ(render(source, root, {.most_passes = 6}), "1212");
  EXPECT_EQ(message_of<InputError>([&] { render(source, root, {.most_passes = 5}); }),
            "t:1: expected at most 5 passes through sections and partials, found more");
}

TEST(Template, IndentsByNoMoreThan200Columns) {
  const View root = view_of(json::Node(document));
  const std::string long_line = std::string(1000, ' ') + "x";
  const std::string blanks(200, ' ');
  EXPECT_EQ(rendered(long_line + "{{two_lines | quoted}}\n {{two_lines | quoted}}", root),
            long_line + "first\n" + blanks + "second\n first\n second");
  EXPECT_EQ(rendered(long_line + "{{#@indent}}\n1\n{{/@indent}}", root),
            long_line + "\n" + blanks + "1\n");
}

TEST(Template, CutsWhatMessagesRepeat) {
  const std::string name(300, 'x');
  EXPECT_EQ(rendered("{{" + name + "}}", view_of(json::Node(document))), "");
  EXPECT_EQ(rendered("{{name | " + name + "}}", View()),
            "t:1: expected a filter, found \"" + name.substr(0, 200) + "...\"");
}

}  // namespace
}  // namespace registry_docs::layouts
