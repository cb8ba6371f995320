// Which properties schemas require, and what a reader is told of it beside the properties.
#ifndef JSON_SCHEMA_REQUIRED_H
#define JSON_SCHEMA_REQUIRED_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "json_schema/conjunction.h"
#include "json_schema/field.h"
#include "json_schema/walk.h"

namespace json_schema {

// In order of their bytes, each once.
using Names = std::vector<std::string_view>;

bool holds(const Names& names, std::string_view name);

// What schemas that hold at once require.
Names required_by(std::span<const Holding> all, Walk& walk);

// What each of several requires, where that is all that they say.
std::optional<std::vector<Names>> required_by_each(const json::Node& schemas);

// "One of `a` or `b` is required."; nothing where a choice requires nothing.
enum class Choice : std::uint8_t { any, exactly_one };
std::optional<Words> choice_of(const std::vector<Names>& choices, Choice kind);

// Adds "`a`, `b` or `c`" with the last word between the last two.
void add_names(Words& words, const Names& names, const std::string& last);

// Of an object: marks the properties that only its forms have, and notes the names that are
// those of no property.
void tell_required(Field& field, const Names& required);

}  // namespace json_schema

#endif  // JSON_SCHEMA_REQUIRED_H
