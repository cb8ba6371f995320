// What the readers of one schema share: where its references lead, which schemas are being
// read, and what could not be.
#ifndef JSON_SCHEMA_WALK_H
#define JSON_SCHEMA_WALK_H

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "json/node.h"
#include "json_schema/fault.h"

namespace json_schema {

// Schemas within one another. A document is at most as deep; only references get deeper.
constexpr std::size_t deepest = 256;

// A schema to go on with, or the name that stands for it.
struct Target {
  json::MaybeNode schema = {};
  std::string name = {};
};

class Walk {
 public:
  // Messages call the root "this NAME". What is borrowed must outlive this.
  Walk(const json::Node& root, const char* name, std::vector<Fault>& faults)
      : root_(root), name_(name), faults_(faults) {
    open_.reserve(16);
  }

  // One fault of a value is enough.
  void add_fault(const json::Node& at, std::string expected, std::string found);

  // Whether a value is of that kind, or a schema that says something. What is neither, nor
  // `true`, is a fault.
  bool require(const json::Node& value, json::Kind kind);
  bool require_schema(const json::Node& value);

  // Whether a value is an array that something is in. All else is a fault.
  bool require_elements(const json::Node& list, const std::string& element);

  // Where a reference leads. A schema that is being read, or one too many, is not gone on with
  // but named; one that is not there has no name either, and is a fault.
  Target follow(const json::Node& reference);

  // The schemas that are being read, each within the one before it or beside it.
  void open(const json::Node& schema);
  void open(const std::vector<json::Node>& schemas);
  [[nodiscard]] std::size_t opened() const { return open_.size(); }
  void close_from(std::size_t count) { open_.resize(count); }

 private:
  [[nodiscard]] bool is_open(const json::Node& schema) const;

  json::MaybeNode pointed_at(std::string_view reference);

  json::Node root_;
  const char* name_;
  std::vector<Fault>& faults_;
  std::unordered_set<const void*> faulty_ = {};
  std::unordered_map<std::string_view, json::MaybeNode> targets_ = {};
  std::vector<const void*> open_ = {};
  std::size_t steps_ = 0;
};

// Closes at its end what was opened in its life.
class Opening {
 public:
  explicit Opening(Walk& walk) : walk_(walk), opened_(walk.opened()) {}
  Opening(Walk& walk, const json::Node& schema) : Opening(walk) { walk.open(schema); }
  Opening(const Opening&) = delete;
  Opening& operator=(const Opening&) = delete;
  ~Opening() { walk_.close_from(opened_); }

 private:
  Walk& walk_;
  std::size_t opened_;
};

// What a reference names: the last name in it.
std::string referenced_name(const json::Node& reference);

}  // namespace json_schema

#endif  // JSON_SCHEMA_WALK_H
