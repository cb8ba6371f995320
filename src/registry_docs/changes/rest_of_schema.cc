#include <algorithm>
#include <cstddef>
#include <string_view>
#include <vector>

#include "json_schema/parts.h"
#include "registry_docs/changes/rest.h"

namespace registry_docs::changes {
namespace {

using json::Kind;
using json::Node;
using json_schema::Keyword;

// Gathers what no field is made of, each with its place.
class RestOfSchema {
 public:
  void add(const Node& schema) {
    if (schema.kind() != Kind::object) return;
    schema.for_each_member([this](std::string_view name, const Node& value) {
      at(name, [&] { add_member(name, value); });
    });
  }

  std::string take() {
    std::ranges::sort(said_);
    std::string text;
    for (const std::string& each : said_) text += each;
    return text;
  }

 private:
  template <typename Add>
  void at(std::string_view name, Add add_there) {
    const std::size_t size = place_.size();
    place_.append(name) += '/';
    add_there();
    place_.resize(size);
  }

  void add_member(std::string_view name, const Node& value) {
    switch (json_schema::keyword_of(name)) {
      case Keyword::silent:
        if (value.kind() == Kind::object) return add_each_member(value);
        said_.push_back(place_ + text_of(value) + '\n');
        break;
      case Keyword::properties:
      case Keyword::pattern_properties:
        if (value.kind() == Kind::object) add_each_member(value);
        break;
      case Keyword::all_of:
      case Keyword::any_of:
      case Keyword::one_of:
      case Keyword::items:
      case Keyword::prefix_items:
      case Keyword::additional_properties:
        add_schemas(value);
        break;
      default:
        break;
    }
  }

  void add_each_member(const Node& schemas) {
    schemas.for_each_member(
        [this](std::string_view name, const Node& schema) { at(name, [&] { add(schema); }); });
  }

  void add_schemas(const Node& value) {
    if (value.kind() != Kind::array) return add(value);
    std::size_t place = 0;
    value.for_each_element(
        [&](const Node& schema) { at(std::to_string(place++), [&] { add(schema); }); });
  }

  std::string place_ = {};
  std::vector<std::string> said_ = {};
};

}  // namespace

std::string rest_of_schema(const Node& schema) {
  RestOfSchema rest;
  rest.add(schema);
  return rest.take();
}

}  // namespace registry_docs::changes
