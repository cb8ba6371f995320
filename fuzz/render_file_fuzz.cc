// A text is refused for its markers alone, and only the bodies of its blocks change.
// Parts: what each renderer's text begins with, a name to declare amiss or nothing, the text.
#include <set>

#include "fuzz/target.h"
#include "registry_docs/blocks/scan.h"

namespace registry_docs::fuzz {

void run(std::string_view input) {
  std::istringstream parts{std::string(input)};
  const std::string beginning = next_part(parts);
  const std::string amiss = next_part(parts);
  const std::string text = next_part(parts);
  const auto names = block_names(text);
  std::set<std::string> declared(names.begin(), names.end());
  const bool match = declared.size() == names.size() && amiss.empty();
  if (!amiss.empty() && declared.erase(amiss) == 0) declared.insert(amiss);
  GeneratedFile file{.path = "x.md", .encode = [](auto block) { return block + "}"; }};
  for (const std::string& name : declared) {
    file.blocks.emplace_back(name, [&] { return beginning + name; });
  }

  std::string expected;
  const char* from = text.data();
  for (const blocks::Block& block : blocks::scan(text)) {
    expected.append(from, block.body.data()) += beginning + std::string(block.name) + "}\n";
    from = block.close.data();
  }
  expected.append(from, text.data() + text.size());
  try {
    require(render_file(text, file) == expected && match, "new bodies alone", expected);
    if (beginning.find("-->") != std::string::npos) return;  // which may be a marker's
    require(render_file(expected, file) == expected, "no change", expected);
  } catch (const ValueError& error) {
    require(!match, "no refusal", error.what());
  }
}

}  // namespace registry_docs::fuzz
