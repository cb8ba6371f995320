#include "registry/snapshot.h"

#include <gtest/gtest.h>

#include "gen_registry_docs/formats/model.h"
#include "registry/catalog.h"
#include "registry_docs/catalog/model.h"
#include "registry_docs/errors.h"
#include "support/text.h"

namespace registry {
namespace {

namespace support = registry_docs::support;

std::string snapshot(const std::string& answer, Order order) {
  return snapshot_text(json::Node(json::Document("the answer", answer)), order);
}

TEST(Snapshot, IsTheAnswerInOrderAndStaysAsItIs) {
  for (const auto& [name, answer, expected] : support::read_cases("registry/snapshots.txt")) {
    SCOPED_TRACE(name);
    const Order order = name.starts_with("by name") ? Order::by_name : Order::as_answered;
    const std::string text = snapshot(answer, order);
    EXPECT_EQ(text, expected + "\n");
    EXPECT_EQ(snapshot(text, order), text);
    EXPECT_EQ(snapshot(text, Order::as_answered), text);
  }
}

// All that layouts see of an answer.
std::string model_of(const std::string& answer) {
  const json::Document nothing("r", "{}");
  const json::Document document("a", answer);
  std::vector<json_schema::Fault> faults;
  const auto catalog = catalog_of(json::Node(nothing), json::Node(document), faults);
  const registry_docs::catalog::Model model(catalog, {});
  const gen_registry_docs::formats::NamedModel named{.name = "", .view = model.view()};
  return gen_registry_docs::formats::model_json({&named, 1});
}

TEST(Snapshot, HasTheModelOfTheAnswer) {
  for (const auto& [name, answer, expected] : support::read_cases("registry/snapshots.txt")) {
    if (name.starts_with("by name")) continue;
    SCOPED_TRACE(name);
    if (name.starts_with("hints")) {
      EXPECT_NE(model_of(answer), model_of(expected));  // that a hint is given is seen
    } else {
      EXPECT_EQ(model_of(answer), model_of(expected));
    }
  }
}

TEST(Snapshot, IsRefusedOfWhatIsNoObject) {
  EXPECT_EQ(
      support::message_of<registry_docs::InputError>([] { snapshot("[{}]", Order::by_name); }),
      "the answer: the document: expected an object, found an array");
}

}  // namespace
}  // namespace registry
