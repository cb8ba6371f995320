#include "registry_docs/changes/changes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "json/pretty.h"
#include "registry/catalog.h"
#include "registry_docs/errors.h"
#include "support/text.h"

namespace registry_docs::changes {
namespace {

// A catalog with the documents that it borrows from.
class Read {
 public:
  explicit Read(const std::string& answer, const std::string& registry = "{}")
      : registry_("r", registry), answer_("a", answer) {}

  [[nodiscard]] const catalog::Catalog& catalog() const { return catalog_; }

 private:
  json::Document registry_;
  json::Document answer_;
  std::vector<json_schema::Fault> faults_ = {};
  catalog::Catalog catalog_ =
      registry::catalog_of(json::Node(registry_), json::Node(answer_), faults_);
};

std::vector<Change> changes_of(const std::string& before, const std::string& after) {
  return changes(Read(before).catalog(), Read(after).catalog());
}

const char* name_of(Verdict verdict) {
  if (verdict == Verdict::breaking) return "breaking";
  return verdict == Verdict::compatible ? "compatible" : "words";
}

std::string text_of(const std::vector<Change>& all) {
  std::string text;
  for (const auto& [place, what, verdict] : all) {
    text += std::string(name_of(verdict)) + ": " + place + ": " + what + "\n";
  }
  return text.empty() ? "none\n" : text;
}

// Of two schemas of a parameter p, and of a member p of an output: both verdicts of each.
std::string text_of_both(const std::string& before, const std::string& after) {
  const auto changes_at = [&](const std::string& name) {
    const std::string tool = R"({"tools": [{"name": "t", ")" + name +
                             R"(": {"type": "object", "properties": {"p": SCHEMA}}}]})";
    return changes_of(support::replaced(tool, "SCHEMA", before),
                      support::replaced(tool, "SCHEMA", after));
  };
  const std::vector<Change> input = changes_at("inputSchema");
  const std::vector<Change> output = changes_at("outputSchema");
  std::string text;
  for (std::size_t i = 0; i < std::min(input.size(), output.size()); ++i) {
    const auto& [place, what, verdict] = input[i];
    const std::string same = support::replaced(place, "parameter ", "output ");
    text += std::string(name_of(verdict)) + "/" + name_of(output[i].verdict) + ": " +
            support::replaced(place, "tool t, parameter ", "") + ": " + what + "\n";
    if (same != output[i].place) text += "but in " + output[i].place + "\n";
    if (what != output[i].what) text += "but " + output[i].what + "\n";
  }
  if (input.size() != output.size()) text += "and others\n";
  return text.empty() ? "none\n" : text;
}

TEST(Changes, AreToldWithTheirVerdicts) {
  for (const auto& [name, text, expected] : support::read_cases("changes/changes.txt")) {
    SCOPED_TRACE(name);
    const std::size_t arrow = text.find("\n->\n");
    const std::string before = text.substr(0, arrow);
    const std::string after = text.substr(arrow + 4);
    if (name.starts_with("tool")) {
      const auto with = [](const std::string& members) {
        return R"({"tools": [{"name": "t")" + (members.empty() ? "" : ", " + members) + "}]}";
      };
      EXPECT_EQ(text_of(changes_of(with(before), with(after))), expected + "\n");
    } else if (name.starts_with("answer")) {
      EXPECT_EQ(text_of(changes_of(before, after)), expected + "\n");
    } else {
      EXPECT_EQ(text_of_both(before, after), expected + "\n");
    }
  }
}

// Writes a document with one of its leaves, or of its names, made another one.
class Mutation {
 public:
  enum class Hit : std::uint8_t { nothing, name, value };

  explicit Mutation(std::size_t target) : left_(target) {}

  std::string of(const json::Node& value) {
    using json::Kind;
    std::string text;
    if (value.kind() == Kind::object) {
      value.for_each_member([&](std::string_view name, const json::Node& member) {
        text += text.empty() ? "{" : ",";
        json::append_string(text, std::string(name) + (hits(Hit::name) ? "x" : ""));
        text += ':' + of(member);
      });
      return text.empty() ? "{}" : text + '}';
    }
    if (value.kind() == Kind::array) {
      value.for_each_element([&](const json::Node& element) {
        text += (text.empty() ? '[' : ',') + of(element);
      });
      return text.empty() ? "[]" : text + ']';
    }
    return hits(Hit::value) ? other(value) : value.json();
  }

  [[nodiscard]] Hit hit() const { return hit_; }

 private:
  bool hits(Hit what) {
    if (left_-- != 0) return false;
    hit_ = what;
    return true;
  }

  static std::string other(const json::Node& value) {
    const std::string json = value.json();
    if (value.kind() == json::Kind::boolean) return json == "true" ? "false" : "true";
    if (value.kind() == json::Kind::string) return "\"z" + json.substr(1);
    return value.kind() == json::Kind::null ? "0" : json + "1";
  }

  std::size_t left_;
  Hit hit_ = Hit::nothing;
};

TEST(Changes, AreToldOfWhateverIsAnother) {
  const std::string answer = support::read_cases("changes/answer.txt").front().text;
  const json::Document document("a", answer);
  ASSERT_EQ(text_of(changes_of(answer, answer)), "none\n");
  std::size_t told = 0;
  for (std::size_t target = 0;; ++target) {
    Mutation mutation(target);
    const std::string mutated = mutation.of(json::Node(document));
    if (mutation.hit() == Mutation::Hit::nothing) break;
    SCOPED_TRACE(mutated);
    try {
      const std::vector<Change> there = changes_of(answer, mutated);
      EXPECT_FALSE(there.empty());
      EXPECT_EQ(there.size(), changes_of(mutated, answer).size());
      const auto is_besides = [](const Change& change) {
        return change.what == "its entry changed besides";
      };
      EXPECT_TRUE(there.size() == 1 || mutation.hit() == Mutation::Hit::name ||
                  std::ranges::none_of(there, is_besides))
          << text_of(there);
      ++told;
    } catch (const InputError&) {  // no catalog
    }
  }
  EXPECT_GT(told, 250U);
}

TEST(Changes, AreToldOfWhatTheRegistryDocumentSays) {
  const std::string answer =
      R"({"tools": [{"name": "a", "description": "A."}, {"name": "b"}]})";
  const Read before(answer, R"({"groups": [{"name": "x", "tools": ["a"], "extra": {"i": 1}},
      {"name": "y", "tools": ["*"]}], "tools": [{"name": "b", "summary": "B"}]})");
  const Read after(answer, R"({"order": "name", "groups": [{"name": "z", "tools": ["b"]},
      {"name": "x", "tools": ["*"], "title": "X", "extra": {"i": 2}}],
      "tools": [{"name": "a", "extra": {"k": [1]}}, {"name": "b", "summary": "Bee"}]})");
  EXPECT_EQ(text_of(changes(before.catalog(), after.catalog())),
            "words: tool a: its extra is new\n"
            "words: tool b: its summary changed\n"
            "words: tool b: its group was y, is z\n"
            "words: group x: its title changed\n"
            "words: group x: its extra changed\n"
            "words: group y: is gone\n"
            "words: group z: is new\n");
}

}  // namespace
}  // namespace registry_docs::changes
