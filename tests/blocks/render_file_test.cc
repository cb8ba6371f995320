#include <gtest/gtest.h>

#include <sstream>

#include "registry_docs/registry_docs.h"
#include "support/text.h"

namespace registry_docs {
namespace {

using support::markers;

// A renderer of the block of this name: it returns a text of its own, or else its name and
// how many renderers have been called by then.
Renderer renderer(const std::string& name, int& calls) {
  if (name == "empty") return [] { return ""; };
  if (name == "ended") return [] { return "1\n"; };
  if (name == "literal") return [] { return "\\1 $& ${0} \\g<name> %s \\|"; };
  if (name == "marked") return [&calls] { return ++calls, markers("[a]\n3[/a]"); };
  return [name, &calls] { return name + std::to_string(++calls); };
}

// The text, or the message of the refusal.
std::string rendered(const std::string& text, const GeneratedFile& generated) {
  try {
    return render_file(text, generated);
  } catch (const ValueError& error) {
    return error.what();
  }
}

TEST(RenderFile, ReplacesTheBodiesAloneOrRefusesTheMarkers) {
  for (const auto& [name, text, expected] : support::read_cases("blocks/render_cases.txt")) {
    SCOPED_TRACE(name);
    GeneratedFile generated{.path = "docs/x.md"};
    generated.encode = [](const std::string& block) {
      return block.empty() ? "" : "<" + block + ">";
    };
    int calls = 0;
    std::istringstream declared(name.substr(name.find(':') + 1));
    for (std::string block; declared >> block;) {
      generated.blocks.emplace_back(block, renderer(block, calls));
    }
    const bool is_refused = expected.starts_with("docs/x.md: ");
    EXPECT_EQ(rendered(markers(text), generated), is_refused ? expected : markers(expected));
    EXPECT_TRUE(!is_refused || calls == 0);
  }
}

TEST(RenderFile, PutsTheLinesOfABlockBehindItsMargin) {
  const Syntax markdown{.is_markdown = true, .keeps_form = true};
  const Syntax source{.comment = {"#", ""}, .keeps_form = true};
  const struct {
    const char* name;
    Syntax syntax;
    std::string text;
    std::string expected;
  } rows[] = {
      {"none", markdown, "[a]\n[/a]\n", "[a]\n\n1\n\n2\n\n[/a]\n"},
      {"blanks", markdown, "- x\n\n  [a]\n[/a]\n", "- x\n\n  [a]\n\n  1\n\n  2\n\n  [/a]\n"},
      {"item", markdown, "10. - [a]\nx[/a]", "10. - [a]\n\n      1\n\n      2\n\n      [/a]"},
      {"quotation", markdown, "> [a]\n> [/a]", "> [a]\n>\n> 1\n>\n> 2\n>\n> [/a]"},
      {"item in a quotation", markdown, ">\t- [a]\n[/a]",
       ">\t- [a]\n>\n>\t  1\n>\n>\t  2\n>\n>\t  [/a]"},
      {"behind a text", markdown, " x: [a]\n[/a]", " x: [a]\n\n 1\n\n 2\n\n [/a]"},
      {"source", source, "\t# registry:a\n# /registry:a\n",
       "\t# registry:a\n\t1\n\n\t2\n\t# /registry:a\n"},
      {"first host", {}, "  [a]\n[/a]", "  [a]\n1\n\n2\n[/a]"},
  };
  for (const auto& [name, syntax, text, expected] : rows) {
    GeneratedFile generated{.path = "x", .syntax = syntax};
    generated.blocks.emplace_back("a", [] { return "1\n\n2"; });
    EXPECT_EQ(render_file(markers(text), generated), markers(expected)) << name;
    EXPECT_EQ(render_file(markers(expected), generated), markers(expected)) << name;
  }
}

TEST(RenderFile, LeavesABlankLineForAnEmptyText) {
  GeneratedFile generated{.path = "x", .syntax = {.is_markdown = true, .keeps_form = true}};
  generated.blocks.emplace_back("a", [] { return "\n"; });
  EXPECT_EQ(render_file(markers("> [a]\n[/a]"), generated), markers("> [a]\n>\n> [/a]"));
}

}  // namespace
}  // namespace registry_docs
