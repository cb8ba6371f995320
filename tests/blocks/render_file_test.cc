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

}  // namespace
}  // namespace registry_docs
