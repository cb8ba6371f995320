// Of any two JSON documents, each the answer of a server or a schema in one: what changed is
// told safely and, where anything did, at all. Nothing changes where an answer is kept.
#include <optional>

#include "fuzz/target.h"
#include "registry/catalog.h"
#include "registry/snapshot.h"
#include "registry_docs/changes/changes.h"
#include "registry_docs/changes/rest.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using changes::Change;

// A catalog with the documents that it borrows from.
class Read {
 public:
  explicit Read(const std::string& answer) : answer_("a", answer) {}

  [[nodiscard]] const catalog::Catalog& catalog() const { return catalog_; }
  [[nodiscard]] json::Node answer() const { return json::Node(answer_); }

 private:
  json::Document registry_{"r", "{}"};
  json::Document answer_;
  std::vector<json_schema::Fault> faults_ = {};
  catalog::Catalog catalog_ =
      registry::catalog_of(json::Node(registry_), json::Node(answer_), faults_);
};

std::string tool_with(const std::string& schema) {
  return R"({"tools":[{"name":"t","inputSchema":)" + schema + R"(,"outputSchema":)" + schema +
         "}]}";
}

// Nothing for what is refused, which other targets try.
void read(std::optional<Read>& to, const std::string& answer) {
  try {
    to.emplace(answer);
  } catch (const InputError&) {
  }
}

void require_nothing(const std::vector<Change>& found, const char* what) {
  require(found.empty(), what, found.empty() ? "" : found[0].place + ": " + found[0].what);
}

void check(const Read& before, const Read& after) {
  const auto found = changes::changes(before.catalog(), after.catalog());
  for (const Change& change : found) {
    const std::string text = change.place + change.what;
    require(visible(text) == text, "one safe line", text);
  }
  require_nothing(changes::changes(before.catalog(), before.catalog()), "no change of itself");
}

void check_tools(const Read& before, const Read& after) {
  const bool is_same = changes::text_of_tool(*before.catalog().tools[0].raw) ==
                       changes::text_of_tool(*after.catalog().tools[0].raw);
  const auto found = changes::changes(before.catalog(), after.catalog());
  require(is_same || !found.empty(), "a change of what differs", "none");
}

void check_snapshot(const Read& answer) {
  const auto order = registry::Order::as_answered;
  const std::string text = registry::snapshot_text(answer.answer(), order);
  const Read kept(text);
  require(registry::snapshot_text(kept.answer(), order) == text, "the snapshot itself", text);
  require_nothing(changes::changes(answer.catalog(), kept.catalog()), "what was answered");
  require_nothing(changes::changes(kept.catalog(), answer.catalog()), "what was answered");
}

void check_all(const std::string& before, const std::string& after,
               void (*check_more)(const Read&, const Read&)) {
  std::optional<Read> from;
  std::optional<Read> to;
  read(from, before);
  read(to, after);
  if (from) check_snapshot(*from);
  if (!from || !to) return;
  check(*from, *to);
  check(*to, *from);
  if (check_more != nullptr) check_more(*from, *to);
}

}  // namespace

void run(std::string_view input) {
  if (find_ill_formed(input)) return;
  std::istringstream parts{std::string(input)};
  const std::string before = next_part(parts);
  const std::string after = next_part(parts);
  check_all(before, after, nullptr);
  check_all(tool_with(before), tool_with(after), check_tools);
}

}  // namespace registry_docs::fuzz
