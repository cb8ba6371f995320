#include "registry/claim_text.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "registry_docs/text.h"
#include "text/join.h"

namespace registry {
namespace {

constexpr std::array<std::string_view, 7> facts = {
    "tools", "prompts", "resources", "templates", "tool", "prompt", "resource"};
constexpr std::string_view of_group = "tools:";

[[noreturn]] void refuse(const json::Node& declared, const std::string& expected) {
  declared.refuse(expected,
                  registry_docs::in_quotes(registry_docs::visible(declared.string())));
}

Slot slot_of(std::string_view name, const json::Node& declared) {
  if (name.starts_with(of_group) && name.size() > of_group.size()) {
    return {.fact = Fact::tools, .group = std::string(name.substr(of_group.size()))};
  }
  const auto* const found = std::ranges::find(facts, name);
  if (found == facts.end()) {
    refuse(declared, "a place such as {tools}, {tools:GROUP} or " +
                         text::join(std::span(facts).subspan(1), ", ",
                                    [](std::string_view each) {
                                      return "{" + std::string(each) + "}";
                                    }) +
                         ", and {{ and }} for braces");
  }
  return {.fact = static_cast<Fact>(found - facts.begin())};
}

bool is_control(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

void require_sense(const ClaimText& claim, const json::Node& declared) {
  const auto& literals = claim.literals;
  if (claim.slots.empty()) refuse(declared, "a place in it, such as {tools}");
  if (std::ranges::all_of(literals, &std::string::empty)) {
    refuse(declared, "text beside the place");
  }
  if (std::any_of(literals.begin() + 1, literals.end() - 1,
                  [](const std::string& literal) { return literal.empty(); })) {
    refuse(declared, "text between two places");
  }
}

}  // namespace

bool is_name(const Slot& slot) { return slot.fact >= Fact::tool; }

ClaimText claim_text(const json::Node& declared) {
  const std::string_view text = declared.string();
  if (std::ranges::any_of(text, is_control)) refuse(declared, "one line of text");
  ClaimText claim{.spelling = std::string(text), .literals = {""}};
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    if ((c == '{' || c == '}') && text.substr(at + 1).starts_with(c)) {
      claim.literals.back() += c;
      ++at;
    } else if (c == '{' || c == '}') {
      const std::size_t end = c == '{' ? text.find('}', at) : at;
      const std::size_t begin = std::min(at + 1, end);
      claim.slots.push_back(slot_of(
          text.substr(begin, end == std::string_view::npos ? 0 : end - begin), declared));
      claim.literals.emplace_back();
      at = end;
    } else {
      claim.literals.back() += c;
    }
  }
  require_sense(claim, declared);
  return claim;
}

}  // namespace registry
