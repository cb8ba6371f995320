#include "gen_registry_docs/advice/undeclared.h"

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <string_view>
#include <utility>

#include "json/document.h"
#include "json/pretty.h"
#include "registry/claim_search.h"
#include "registry_docs/text.h"

namespace gen_registry_docs::advice {
namespace {

namespace fs = std::filesystem;
using registry::Fact;
using registry::FoundClaim;
using registry::KnownClaim;
using registry::Span;
using registry_docs::FileReport;
using registry_docs::catalog::Catalog;

constexpr std::array<std::size_t, 2> both = {0, 1};
constexpr std::string_view manifest = "manifest.json";

// What is looked for: "{tools} tools" and "mcp__{tool}".
std::vector<KnownClaim> wanted(const Catalog& catalog) {
  registry::Names names;
  for (const auto& tool : catalog.tools) names.push_back(tool.name);
  std::ranges::sort(names);
  return {{.text = {.spelling = "{tools} tools",
                    .literals = {"", " tools"},
                    .slots = {{.fact = Fact::tools}}},
           .truths = {{.count = catalog.tools.size()}}},
          {.text = {.spelling = "mcp__{tool}",
                    .literals = {"mcp__", ""},
                    .slots = {{.fact = Fact::tool}}},
           .truths = {{.names = std::make_shared<const registry::Names>(std::move(names))}}}};
}

std::vector<Span> generated_spans(const FileReport& file) {
  std::vector<Span> spans;
  const auto add = [&spans](const registry_docs::BlockReport& block) {
    if (block.line != 0) spans.push_back({block.begin, block.end});
  };
  std::ranges::for_each(file.blocks, add);
  std::ranges::for_each(registry_docs::blocks_of(file.text, file.syntax), add);
  std::ranges::sort(spans, {}, &Span::end);
  return spans;
}

std::string claim_json(const std::string& path, std::string_view text) {
  std::string json = "{\"path\": ";
  json::append_string(json, path);
  json += ", \"text\": ";
  json::append_string(json, text);
  return json + "}";
}

// Looks for what is wanted in one file after the other.
class Look {
 public:
  explicit Look(const Catalog& catalog) : search_(wanted(catalog)) {}

  void at(const FileReport& file) {
    const auto found = search_.find(file.text, both, generated_spans(file));
    bool is_told = has_count(file);
    std::vector<std::string> prefixes;
    for (const FoundClaim& each : found) {
      const std::string_view filling = std::string_view(file.text).substr(
          each.match.slots[0].begin, each.match.slots[0].end - each.match.slots[0].begin);
      if (each.claim == 0) {
        is_told = is_told || tell_of_number(file, each, filling);
      } else {
        tell_of_name(file, each, filling, prefixes);
      }
    }
  }

  std::vector<std::string> take() { return std::move(lines_); }

 private:
  // A claim that finds a count of tools somewhere in the file.
  static bool has_count(const FileReport& file) {
    return std::ranges::any_of(file.blocks, [](const registry_docs::BlockReport& part) {
      return part.name.find("{tools") != std::string::npos;
    });
  }

  void tell(const FileReport& file, const FoundClaim& found, const std::string& what,
            std::string_view claim) {
    registry_docs::LineCounter lines(file.text);
    const std::size_t line = lines.line_of(file.text.data() + found.match.all.begin);
    lines_.push_back(file.path + ":" + std::to_string(line) + ": " + what +
                     " \"claims\": " + claim_json(file.path, claim));
  }

  bool tell_of_number(const FileReport& file, const FoundClaim& found,
                      std::string_view number) {
    const auto parts = parts_of(search_, std::span(&found, 1), file.text);
    if (parts.front().text == number) return false;
    tell(file, found,
         std::string(number) + " tools, of " + parts.front().text +
             "; if all are meant, a claim keeps the number right:",
         "{tools} tools");
    return true;
  }

  void tell_of_name(const FileReport& file, const FoundClaim& found, std::string_view filling,
                    std::vector<std::string>& prefixes) {
    const std::size_t end = filling.find("__");
    if (end == filling.npos || end == 0) return;
    std::string_view name = filling.substr(end + 2);
    while (name.ends_with('.')) name.remove_suffix(1);
    std::string prefix = "mcp__" + std::string(filling.substr(0, end)) + "__";
    const bool is_tool =
        std::ranges::binary_search(*search_.claims()[1].truths[0].names, name);
    if (!is_tool || std::ranges::find(prefixes, prefix) != prefixes.end()) return;
    tell(file, found, prefix + " stands before names of tools; a claim has them looked up:",
         prefix + "{tool}");
    prefixes.push_back(std::move(prefix));
  }

  registry::ClaimSearch search_;
  std::vector<std::string> lines_ = {};
};

// Whether the repository has a manifest whose tools are kept by hand.
bool has_tools_by_hand(std::span<const FileReport> files, const fs::path& root) {
  if (std::ranges::find(files, manifest, &FileReport::path) != files.end()) return false;
  try {
    const json::Document document(
        "", registry_docs::read_bytes(root / manifest, registry_docs::FileKind::regular));
    const json::Node object(document);
    const auto tools =
        object.kind() == json::Kind::object ? object.find("tools") : std::nullopt;
    return tools && tools->kind() == json::Kind::array;
  } catch (const std::exception&) {
    return false;  // there is none, or nothing that could be advised of
  }
}

}  // namespace

std::vector<std::string> undeclared(std::span<const FileReport> files,
                                    const registry::Bound& bound, const fs::path& root) {
  const bool is_one = bound.layouts.size() == 1 && bound.layouts.front()->name().empty();
  if (!is_one) return {};
  Look look(bound.layouts.front()->catalog());
  for (const FileReport& file : files) {
    // Where the markers are wrong, no claim was looked for.
    if (file.state != registry_docs::FileState::wrong_markers) look.at(file);
  }
  std::vector<std::string> lines = look.take();
  if (has_tools_by_hand(files, root)) {
    lines.push_back(
        std::string(manifest) +
        ": its tools are kept by hand; a generated member keeps them right: \"files\": "
        R"({"path": "manifest.json", "member": "/tools", )"
        R"("value": "names-and-descriptions"})");
  }
  return lines;
}

}  // namespace gen_registry_docs::advice
