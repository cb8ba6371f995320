// Any JSON is read as a schema: within bounds, and what cannot be read is told with its place.
#include "fuzz/target.h"
#include "json_schema/field_reader.h"
#include "registry_docs/errors.h"

namespace registry_docs::fuzz {
namespace {

using json_schema::Field;

std::size_t count_of(const Field& field) {
  std::size_t count = 1;
  for (const Field& part : field.fields) {
    require(part.path.starts_with(field.path), "a path within the one around it", part.path);
    require(part.path != field.path || !part.form.empty(), "a path of its own", part.path);
    require(part.depth == field.depth + 1 || field.path.empty(), "a depth of one more",
            part.path);
    count += count_of(part);
  }
  return count;
}

void check(const Field& field) {
  require(!field.type.empty(), "a type", field.path);
  require(!find_ill_formed(field.type + field.path + field.form), "UTF-8", field.path);
  for (const Field& part : field.fields) check(part);
}

}  // namespace

void run(std::string_view input) {
  try {
    const json::Document document("s", std::string(input));
    for (const auto& read : {json_schema::read_input, json_schema::read_output}) {
      std::vector<json_schema::Fault> faults;
      const Field field = read(json::Node(document), faults);
      require(count_of(field) <= 10'001, "at most 10,000 fields", std::string(input));
      check(field);
      for (const auto& [at, expected, found] : faults) {
        try {
          at.refuse(expected, found);
        } catch (const InputError& error) {
          const std::string_view message = error.what();
          require(message.starts_with("s: "), "the document's name first", error.what());
        }
      }
    }
  } catch (const InputError&) {  // no JSON
  } catch (const DecodeError&) {
  }
}

}  // namespace registry_docs::fuzz
