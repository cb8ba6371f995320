#include "registry_docs/renderers/tools.h"

#include <algorithm>
#include <unordered_map>

#include "registry_docs/markdown/append.h"
#include "registry_docs/registry_docs.h"
#include "text/join.h"

namespace registry_docs {
namespace renderers {
namespace {

using Ranks = std::unordered_map<std::string_view, std::size_t>;

// Each tier's first place in the documentation, by name.
Ranks tier_ranks(const Host& host) {
  Ranks ranks;
  for (std::size_t rank = 0; rank < host.TIERS.size(); ++rank) {
    ranks.try_emplace(host.TIERS[rank], rank);
  }
  return ranks;
}

// Calls `visit` with each tool whose tier is one of the host's, and with that tier's rank.
template <typename Visit>
void for_each_ranked(const Host& host, Visit visit) {
  const Ranks ranks = tier_ranks(host);
  for (const auto& tool : host.TOOLS) {
    const auto rank = ranks.find(tool->tier);
    if (rank != ranks.end()) visit(tool, rank->second);
  }
}

}  // namespace

std::vector<Tools> tier_tools(const Host& host) {
  std::vector<Tools> tiers(host.TIERS.size());
  for_each_ranked(
      host, [&tiers](const auto& tool, std::size_t rank) { tiers[rank].push_back(tool); });
  return tiers;
}

std::string tier_counts(const Host& host) {
  std::vector<std::size_t> counts(host.TIERS.size());
  for_each_ranked(host, [&counts](const auto&, std::size_t rank) { ++counts[rank]; });
  std::vector<std::string> texts;
  for (std::size_t rank = 0; rank < counts.size(); ++rank) {
    texts.push_back(std::to_string(counts[rank]) + " " + host.TIERS[rank]);
  }
  return text::join(texts, " and ");
}

void append_actions(std::string& to, const ToolSpec& tool, std::string_view placeholder) {
  if (tool.action_names.empty()) to += placeholder;
  text::append_joined(to, tool.action_names, ", ",
                      [&to](std::string_view action) { markdown::append_code(to, action); });
}

void append_cli_usage(std::string& to, const Host& host, const ToolSpec& tool) {
  if (host.PRODUCT.command) {
    to += *host.PRODUCT.command;
    to += ' ';
  }
  to += host.snake_to_kebab(tool.name);
  for (const ParamSpec& param : tool.all_params) {
    if (!param.required) continue;
    to += " --";
    to += host.snake_to_kebab(param.name);
    to += " <";
    to += param.name;
    to += '>';
  }
}

}  // namespace renderers

std::vector<std::shared_ptr<const ToolSpec>> ordered_tools(const Host& host) {
  const std::vector<renderers::Tools> tiers = renderers::tier_tools(host);
  renderers::Tools ordered;
  ordered.reserve(host.TOOLS.size());
  for (const renderers::Tools& tools : tiers) {
    ordered.insert(ordered.end(), tools.begin(), tools.end());
  }
  if (ordered.size() == host.TOOLS.size()) return ordered;
  const auto stray = std::ranges::find_if(
      host.TOOLS, [ranks = renderers::tier_ranks(host)](const auto& tool) {
        return !ranks.contains(tool->tier);
      });
  throw ValueError(std::string((*stray)->name) + ": expected one of the tiers " +
                   text::join(host.TIERS, ", ") + ", found " + std::string((*stray)->tier));
}

std::string cli_usage(const Host& host, const ToolSpec& tool) {
  std::string line;
  renderers::append_cli_usage(line, host, tool);
  return line;
}

}  // namespace registry_docs
