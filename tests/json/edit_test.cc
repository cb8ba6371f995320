#include "json/edit.h"

#include <gtest/gtest.h>

#include "registry_docs/errors.h"
#include "support/text.h"

namespace json {
namespace {

using registry_docs::support::message_of;
using Texts = std::vector<std::string>;

// The text with the same value at each of the pointers.
std::string with(const std::string& text, const Texts& pointers, const std::string& value) {
  const Document document("m.json", text);
  const Document held("v", value);
  std::vector<Member> members;
  for (const std::string& pointer : pointers) members.push_back({pointer, Node(held)});
  return edited(text, edits(document, members));
}

struct Row {
  std::string name, text;
  Texts pointers;
  std::string value, expected;
};

const std::vector<Row> changed = {
    {"two blanks",
     "{\n  \"a\": 1,\n  \"b\": [ 7 ]\n}\n",
     {"/a"},
     R"([{"x":"y"},{}])",
     "{\n  \"a\": [\n    {\n      \"x\": \"y\"\n    },\n    {}\n  ],\n  \"b\": [ 7 ]\n}\n"},
    {"four blanks, deep, no last line feed",
     "{\n    \"d\": {\n        \"a\": null\n    }\n}",
     {"/d/a"},
     "[true]",
     "{\n    \"d\": {\n        \"a\": [\n            true\n        ]\n    }\n}"},
    {"tabs", "{\n\t\"a\":0\n}", {"/a"}, R"({"b":1})", "{\n\t\"a\":{\n\t\t\"b\":1\n\t}\n}"},
    {"CR LF",
     "{\r\n  \"a\": 0\r\n}\r\n",
     {"/a"},
     "[1]",
     "{\r\n  \"a\": [\r\n    1\r\n  ]\r\n}\r\n"},
    {"no indentation", "{\n\"a\": 0}", {"/a"}, "[1]", "{\n\"a\": [\n1\n]}"},
    {"one line",
     R"({"b": 1, "a": 2} )",
     {"/a"},
     R"([{"x": 1}, 3])",
     R"({"b": 1, "a": [{"x": 1}, 3]} )"},
    {"one line without blanks",
     R"({"b":1,"a":2})",
     {"/a"},
     R"([{"x": 1}, 3])",
     R"({"b":1,"a":[{"x":1},3]})"},
    {"an object on one line among lines",
     "{\n  \"d\": {\"a\": 0}\n}",
     {"/d/a"},
     "[1, 2]",
     "{\n  \"d\": {\"a\": [1, 2]}\n}"},
    {"several, some of them new",
     "{\n  \"b\": 0\n}",
     {"/c", "/b", "/a"},
     "1",
     "{\n  \"b\": 1,\n  \"c\": 1,\n  \"a\": 1\n}"},
    {"a new one behind the last",
     "{\n  \"b\": [\n    1\n  ]\n\n}\n",
     {"/a"},
     "[]",
     "{\n  \"b\": [\n    1\n  ],\n  \"a\": []\n\n}\n"},
    {"a new one behind a blank line",
     "{\n  \"b\": 0,\n\n  \"c\": 0\n}",
     {"/a"},
     "1",
     "{\n  \"b\": 0,\n\n  \"c\": 0,\n  \"a\": 1\n}"},
    {"a new one on one line", R"({"b": {}})", {"/a"}, "[1, 2]", R"({"b": {}, "a": [1, 2]})"},
    {"a new one of an empty object",
     "{\n\t\"d\": { }\n}",
     {"/d/a"},
     "[1]",
     "{\n\t\"d\": {\n\t\t\"a\": [\n\t\t\t1\n\t\t]\n\t}\n}"},
    {"new ones of an empty object on one line",
     R"({"b":1,"d":{}})",
     {"/d/a", "/d/c"},
     "[1,2]",
     R"({"b":1,"d":{"a":[1,2],"c":[1,2]}})"},
    {"new ones of an empty document",
     "{}\n",
     {"/a", "/b"},
     "1",
     "{\n  \"a\": 1,\n  \"b\": 1\n}\n"},
    {"escapes of pointers and of names",
     R"({"~/\u0061\"": 0})",
     {"/~0~1a\"", "/é\n"},
     "1",
     R"({"~/\u0061\"": 1, "é\n": 1})"},
    {"an object within an array",
     R"({"d": ["]", {"a": "}\\\""}]})",
     {"/d/1/a"},
     "1",
     R"({"d": ["]", {"a": 1}]})"},
    {"a name among values", R"({"b": "a", "a": 0})", {"/a"}, "1", R"({"b": "a", "a": 1})"},
    {"other numbers",
     R"({"a": 18446744073709551615})",
     {"/a"},
     "18446744073709551614",
     R"({"a": 18446744073709551614})"},
    {"another order of elements", R"({"a": [1, 2]})", {"/a"}, "[2, 1]", R"({"a": [2, 1]})"},
    {"fewer elements", R"({"a": [1, 2]})", {"/a"}, "[1]", R"({"a": [1]})"},
    {"another kind", R"({"a": "1"})", {"/a"}, "1", R"({"a": 1})"},
};

TEST(Edit, ChangesTheMembersAloneAndLaysThemOutAsTheFileIs) {
  for (const auto& [name, text, pointers, value, expected] : changed) {
    SCOPED_TRACE(name);
    EXPECT_EQ(with(text, pointers, value), expected);
    EXPECT_EQ(with(expected, pointers, value), expected);
  }
}

TEST(Edit, LeavesTheSameValueAsItIsLaidOut) {
  for (const auto& [name, text, value] : std::initializer_list<std::array<std::string, 3>>{
           {"white space", "{\"a\" :[\n1 ,{ }\t]}", "[1, {}]"},
           {"the order of members", R"({"a": {"x": 1, "y": 2}})", R"({"y": 2, "x": 1})"},
           {"escapes", R"({"\u0061": "\u00e9\/"})", R"("é/")"},
           {"numbers", R"({"a": [1.0, 100, -0, 1e-1]})", "[1, 1e2, 0, 0.1]"},
           {"words", R"({"a": [null, true]})", "[null,true]"}}) {
    SCOPED_TRACE(name);
    EXPECT_EQ(with(text, {"/a"}, value), text);
  }
}

TEST(Edit, RefusesAPlaceInNoObject) {
  for (const auto& row : std::initializer_list<std::array<std::string, 3>>{
           {"{}", "/d/a",
            "m.json: /d: expected an object that has a, or may have it, found nothing"},
           {R"({"d": [{}]})", "/d/0/a/b",
            "m.json: /d/0/a: expected an object that has b, or may have it, found nothing"},
           {R"({"d": []})", "/d/0",
            "m.json: /d: expected an object that has 0, or may have it, found an array"},
           {R"({"d": 1})", "/d/a",
            "m.json: /d: expected an object that has a, or may have it, found a number"},
           {"[]", "/a",
            "m.json: the document: expected an object that has a, or may have it, found an "
            "array"}}) {
    const auto refused = [&row] { with(row[0], {row[1]}, "1"); };
    SCOPED_TRACE(row[0]);
    EXPECT_EQ(message_of<registry_docs::InputError>(refused), row[2]);
  }
}

}  // namespace
}  // namespace json
