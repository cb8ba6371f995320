#include <gtest/gtest.h>

#include "registry_docs/registry_docs.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using support::markers;
using support::message_of;

// What the renderer of the block of this name returns.
std::string text_of(char name) {
  if (name == 'e') return "";
  if (name == 'f') return "1\n";
  if (name == 'l') return "\\1 $& ${0} \\g<name> %s \\|";
  if (name == 'm') return markers("[a]\n3[/a]");
  return "the " + std::string(1, name);
}

// A file of these blocks; each renderer adds its block's name to `called`.
GeneratedFile file(std::string_view names, std::string& called) {
  GeneratedFile generated{.path = "docs/x.md"};
  for (const char name : names) {
    generated.blocks.emplace_back(std::string(1, name), [&called, name] {
      called += name;
      return text_of(name);
    });
  }
  return generated;
}

TEST(RenderFile, ReplacesTheBodiesAndNothingElse) {
  const struct {
    const char* name;
    const char* text;
    const char* declared;
    const char* rendered;
    const char* called;
  } rows[] = {
      {"no block", "x\\1 {y} $0\n", "", "x\\1 {y} $0\n", ""},
      {"lines", "x\n[a]\n1\n2\n[/a]\ny", "a", "x\n[a]\nthe a\n[/a]\ny", "a"},
      {"current", "{\\}[a]\nthe a\n[/a]{\\}", "a", "{\\}[a]\nthe a\n[/a]{\\}", "a"},
      {"order", "[b]\n[/b]-[a]\n[/a]", "ab", "[b]\nthe b\n[/b]-[a]\nthe a\n[/a]", "ba"},
      {"empty text", "[e]\n1[/e]", "e", "[e]\n\n[/e]", "e"},
      {"ended text", "[f]\n1[/f]", "f", "[f]\n1\n\n[/f]", "f"},
      {"literal", "[l]\n[/l]$1", "l", "[l]\n\\1 $& ${0} \\g<name> %s \\|\n[/l]$1", "l"},
      {"markers", "[m]\n[/m][a]\n[/a]", "am", "[m]\n[a]\n3[/a]\n[/m][a]\nthe a\n[/a]", "ma"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string called;
    EXPECT_EQ(render_file(markers(row.text), file(row.declared, called)),
              markers(row.rendered));
    EXPECT_EQ(called, row.called);
  }
}

TEST(RenderFile, EncodesEachTextOnceWithoutTheLineFeedBehindIt) {
  std::string called;
  GeneratedFile generated = file("af", called);
  generated.encode = [&called](std::string block) {
    called += '+';
    return "<" + block + ">";
  };
  EXPECT_EQ(render_file(markers("x[f]\n[/f]<[a]\n[/a]>"), generated),
            markers("x[f]\n<1\n>\n[/f]<[a]\n<the a>\n[/a]>"));
  EXPECT_EQ(called, "f+a+");
}

TEST(RenderFile, RefusesWrongMarkersBeforeItRenders) {
  const struct {
    const char* name;
    const char* text;
    std::vector<std::string> declared;
    const char* lists[3];
  } rows[] = {
      {"none there", "", {"b", "a", "c"}, {"'a', 'b', 'c'", "", ""}},
      {"none declared", "[a]\n[/a]", {}, {"", "'a'", ""}},
      {"misspelt", "[tool]\n[/tool]", {"tools"}, {"'tools'", "'tool'", ""}},
      {"repeated", "[a]\n[/a][b]\n[/b][a]\n[/a]", {"a", "b"}, {"", "", "'a'"}},
      {"all", "[x]\n[/x][a]\n[/a][x]\n[/x][a]\n[/a]", {"b", "a"}, {"'b'", "'x'", "'a', 'x'"}},
      {"prefixes", "", {"ab", "a:b", "a", "a-b"}, {"'a', 'a-b', 'a:b', 'ab'", "", ""}},
      {"code points", "", {"𝒜", "é", "ﬀ", "z", "B"}, {"'B', 'z', 'é', 'ﬀ', '𝒜'", "", ""}},
      {"declared twice", "[a]\n[/a]", {"a", "a"}, {"", "", ""}},
      {"there twice as well", "[a]\n[/a][a]\n[/a]", {"a", "a"}, {"", "", "'a'"}},
      {"no marker's name", "[a.b]\n[/a.b]", {"a.b", "a'b"}, {"'a'b', 'a.b'", "", ""}},
      {"nested", "[a]\n[b]\n[/b][/a]", {"a", "b"}, {"'b'", "", ""}},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    GeneratedFile generated{.path = "docs/x.md"};
    for (const std::string& name : row.declared) {
      generated.blocks.emplace_back(name,
                                    []() -> std::string { throw std::logic_error("called"); });
    }
    EXPECT_EQ(message_of<ValueError>([&] { render_file(markers(row.text), generated); }),
              "docs/x.md: the markers do not match the blocks it holds (missing [" +
                  std::string(row.lists[0]) + "], unknown [" + row.lists[1] + "], repeated [" +
                  row.lists[2] + "])");
  }
}

}  // namespace
}  // namespace registry_docs
