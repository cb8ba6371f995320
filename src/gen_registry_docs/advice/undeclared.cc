#include "gen_registry_docs/advice/undeclared.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <exception>
#include <limits>
#include <memory>
#include <numeric>
#include <optional>
#include <set>
#include <string_view>
#include <utility>

#include "gen_registry_docs/advice/wrong_count.h"
#include "json/document.h"
#include "json/pretty.h"
#include "registry/claim_search.h"
#include "registry/matching_files.h"
#include "registry_docs/text.h"
#include "text/ascii.h"

namespace gen_registry_docs::advice {
namespace {

namespace fs = std::filesystem;
using registry::Fact;
using registry::FoundClaim;
using registry::KnownClaim;
using registry::Span;
using registry_docs::FileReport;
using registry_docs::catalog::Catalog;

constexpr std::string_view manifest = "manifest.json";

// Where servers are told of, beside the files that are declared.
constexpr std::array<std::string_view, 7> at_the_root = {
    "README.md", "AGENTS.md",   "CLAUDE.md",   "GEMINI.md",
    manifest,    "server.json", "package.json"};
const std::set<std::string> of_agents = {"skills/**/SKILL.md", ".claude/**/*.md"};

constexpr std::array<std::string_view, 3> nouns = {" tools", " Tools", " MCP tools"};
constexpr std::string_view mcp = "mcp__";

KnownClaim count_before(std::string_view noun, std::size_t count) {
  return {.text = {.spelling = "{tools}" + std::string(noun),
                   .literals = {"", std::string(noun)},
                   .slots = {{.fact = Fact::tools}}},
          .truths = {{.count = count}}};
}

// What is looked for: a claim for each of the nouns, and "mcp__{tool}" behind them.
std::vector<KnownClaim> wanted(const Catalog& catalog) {
  std::vector<KnownClaim> claims;
  claims.reserve(nouns.size() + 1);
  for (const std::string_view noun : nouns) {
    claims.push_back(count_before(noun, catalog.tools.size()));
  }
  registry::Names names;
  names.reserve(catalog.tools.size());
  for (const auto& tool : catalog.tools) names.push_back(tool.name);
  std::ranges::sort(names);
  claims.push_back({.text = {.spelling = "mcp__{tool}",
                             .literals = {std::string(mcp), ""},
                             .slots = {{.fact = Fact::tool}}},
                    .truths = {{.names = std::make_shared<const registry::Names>(names)}}});
  return claims;
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

// "tools" may begin "toolsets".
bool goes_on(std::string_view text, std::size_t end) {
  return end < text.size() && (text::is_letter_or_digit(text[end]) || text[end] == '-');
}

// Whose numbers are those of days gone by.
bool is_history(std::string_view path) {
  const std::string_view name = path.substr(path.rfind('/') + 1);
  constexpr std::array<std::string_view, 4> histories = {"change", "history", "news",
                                                         "release"};
  return std::ranges::any_of(histories, [name](std::string_view history) {
    return std::ranges::equal(name.substr(0, history.size()), history, {}, text::lower);
  });
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
  explicit Look(const Catalog& catalog)
      : count_(catalog.tools.size()), search_(wanted(catalog)) {
    all_.resize(search_.claims().size());
    std::iota(all_.begin(), all_.end(), 0);
  }

  void at(const FileReport& file) {
    const auto found = search_.find(file.text, all_, generated_spans(file));
    if (!is_history(file.path) && !has_count(file)) tell_of_number(file, found);
    std::vector<std::string> prefixes;
    for (const FoundClaim& each : found) {
      if (each.claim == nouns.size()) tell_of_name(file, each, prefixes);
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

  static std::string_view filling_of(const FileReport& file, const FoundClaim& found) {
    const Span& slot = found.match.slots.front();
    return std::string_view(file.text).substr(slot.begin, slot.end - slot.begin);
  }

  void tell(const FileReport& file, const FoundClaim& found, const std::string& what,
            std::string_view claim) {
    registry_docs::LineCounter lines(file.text);
    const std::size_t line = lines.line_of(file.text.data() + found.match.all.begin);
    lines_.push_back(file.path + ":" + std::to_string(line) + ": " + what +
                     " \"claims\": " + claim_json(file.path, claim));
  }

  static Number number_of(const FileReport& file, const FoundClaim& found) {
    std::string digits(filling_of(file, found));
    std::erase(digits, ',');
    Number number{.value = std::numeric_limits<std::size_t>::max()};  // if it is too large
    std::from_chars(digits.data(), digits.data() + digits.size(), number.value);
    number.is_at_least = file.text[found.match.slots.front().end] == '+';
    return number;
  }

  void tell_of_number(const FileReport& file, std::span<const FoundClaim> found) {
    std::vector<Number> numbers;
    std::vector<const FoundClaim*> places;
    for (const FoundClaim& each : found) {
      if (each.claim == nouns.size() || goes_on(file.text, each.match.all.end)) continue;
      numbers.push_back(number_of(file, each));
      places.push_back(&each);
    }
    const auto wrong = wrong_count(numbers, count_);
    if (!wrong) return;
    const FoundClaim& place = *places[*wrong];
    const std::string noun(nouns[place.claim]);
    tell(file, place,
         std::string(filling_of(file, place)) + noun + ", but the server has " +
             std::to_string(count_) + "; if all are meant, a claim keeps the number right:",
         "{tools}" + noun);
  }

  void tell_of_name(const FileReport& file, const FoundClaim& found,
                    std::vector<std::string>& prefixes) {
    const std::string_view filling = filling_of(file, found);
    const std::size_t end = filling.find("__");
    if (end == std::string_view::npos || end == 0) return;
    std::string_view name = filling.substr(end + 2);
    while (name.ends_with('.')) name.remove_suffix(1);
    std::string prefix = std::string(mcp) + std::string(filling.substr(0, end)) + "__";
    const bool is_tool =
        std::ranges::binary_search(*search_.claims()[nouns.size()].truths[0].names, name);
    if (!is_tool || std::ranges::find(prefixes, prefix) != prefixes.end()) return;
    tell(file, found,
         prefix + " stands before names of tools; a claim checks them:", prefix + "{tool}");
    prefixes.push_back(std::move(prefix));
  }

  std::size_t count_;
  registry::ClaimSearch search_;
  std::vector<std::size_t> all_ = {};  // claims
  std::vector<std::string> lines_ = {};
};

// Whether it is a manifest whose tools are kept by hand.
bool has_tools_by_hand(const FileReport& file) {
  if (file.path != manifest) return false;
  try {
    const json::Document document("", file.text);
    const json::Node object(document);
    const auto tools =
        object.kind() == json::Kind::object ? object.find("tools") : std::nullopt;
    return tools && tools->kind() == json::Kind::array;
  } catch (const std::exception&) {
    return false;
  }
}

// A file that no one declared, if there is one that can be read.
std::optional<FileReport> other_file(const fs::path& root, std::string_view path) {
  std::error_code failure;
  if (!fs::is_regular_file(root / path, failure)) return std::nullopt;
  try {
    FileReport file{.path = std::string(path)};
    file.text = registry_docs::read_text(root / path);
    return file;
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

std::set<std::string> other_paths(std::span<const FileReport> declared, const fs::path& root) {
  std::set<std::string> paths(at_the_root.begin(), at_the_root.end());
  try {
    for (auto& [pattern, files] : registry::matching_files(root, of_agents)) {
      paths.insert(files.begin(), files.end());
    }
  } catch (const std::exception&) {
    // What cannot be read needs no advice.
  }
  for (const FileReport& file : declared) paths.erase(file.path);
  return paths;
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
  bool is_by_hand = false;
  for (const std::string& path : other_paths(files, root)) {
    const auto file = other_file(root, path);
    if (!file) continue;
    look.at(*file);
    is_by_hand = is_by_hand || has_tools_by_hand(*file);
  }
  std::vector<std::string> lines = look.take();
  if (is_by_hand) {
    lines.push_back(
        std::string(manifest) +
        ": its tools are kept by hand; a generated member keeps them right: \"files\": "
        R"({"path": "manifest.json", "member": "/tools", )"
        R"("value": "names-and-descriptions"})");
  }
  return lines;
}

}  // namespace gen_registry_docs::advice
