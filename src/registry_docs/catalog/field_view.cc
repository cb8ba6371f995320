#include "registry_docs/catalog/field_view.h"

#include <algorithm>
#include <array>

#include "registry_docs/layouts/view_of.h"
#include "text/ascii.h"

namespace registry_docs::catalog {
namespace {

using json_schema::Field;
using json_schema::Limit;
using json_schema::Piece;
using json_schema::Remark;
using json_schema::Words;
using layouts::list_of;
using layouts::ListType;
using layouts::member;
using layouts::ObjectType;
using layouts::View;
using layouts::view_of;

View text_view(const std::string& text) { return View::text(text); }
View literal_view(const std::string_view& text) { return View::text(text); }

// The numbers that depths are, one behind the other.
constexpr std::size_t most_depth = 999;
constexpr auto spelled_numbers = [] {
  std::array<char, 3 * (most_depth + 1)> digits{};
  for (std::size_t i = 0; i <= most_depth; ++i) {
    digits[3 * i] = static_cast<char>('0' + i / 100);
    digits[3 * i + 1] = static_cast<char>('0' + i / 10 % 10);
    digits[3 * i + 2] = static_cast<char>('0' + i % 10);
  }
  return digits;
}();

std::string_view spelled_number(std::size_t number) {
  const std::size_t size = number < 10 ? 1 : number < 100 ? 2 : 3;
  const std::size_t at = 3 * std::min(number, most_depth);
  return {spelled_numbers.data() + at + 3 - size, size};
}

constexpr std::array piece_members = {
    member<&Piece::text>("text"),
    member<&Piece::is_code>("code"),
};
constexpr ObjectType piece_type = {.name = "piece", .members = piece_members};

View piece_view(const Piece& piece) { return View::object(piece_type, &piece); }

View value_of(const Limit& limit) { return view_of(limit.value); }

constexpr std::array limit_members = {
    member<&Limit::keyword>("keyword"),
    member<Limit, value_of>("value"),
    member<&Limit::is_of_items>("of_items"),
};
constexpr ObjectType limit_type = {.name = "limit", .members = limit_members};

View limit_view(const Limit& limit) { return View::object(limit_type, &limit); }

View remark_default_of(const Remark& remark) {
  return remark.default_value ? view_of(remark.default_literal) : View();
}

constexpr std::array remark_members = {
    member<&Remark::title>("title"),
    member<&Remark::description>("description"),
    member<Remark, remark_default_of>("default"),
};
constexpr ObjectType remark_type = {.name = "remark", .members = remark_members};

View remark_view(const Remark& remark) { return View::object(remark_type, &remark); }

View field_view(const Field& field);
View fields_of(const Field& field) { return list_of<Field, field_view>(field.fields); }
constexpr layouts::ListType types_type = {
    .size =
        [](const void* field) { return types_of(*static_cast<const Field*>(field)).size(); },
    .for_each =
        [](const void* field, const std::function<void(View)>& visit) {
          for (const auto& type : types_of(*static_cast<const Field*>(field))) {
            visit(text_view(type));
          }
        }};
View types_view(const Field& field) { return View::list(types_type, &field); }
View values_of(const Field& field) {
  return list_of<std::string_view, literal_view>(field.value_literals);
}
View limits_of(const Field& field) { return list_of<Words, words_view>(field.limit_words); }
View limit_values_of(const Field& field) { return list_of<Limit, limit_view>(field.limits); }
View notes_of_field(const Field& field) { return list_of<Words, words_view>(field.notes); }
View examples_of(const Field& field) {
  return list_of<std::string_view, literal_view>(field.example_literals);
}
View remarks_of(const Field& field) { return list_of<Remark, remark_view>(field.remarks); }
View depth_of(const Field& field) { return View::number(spelled_number(field.depth)); }
View default_of(const Field& field) {
  return field.default_value ? view_of(field.default_literal) : View();
}

// Whether two texts have the same letters and digits, whatever their case and what parts them.
bool is_same_name(std::string_view left, std::string_view right) {
  const auto letters = [](std::string_view name) {
    std::string kept;
    for (const char c : name) {
      if (text::is_letter_or_digit(c) || !text::is_ascii(c)) kept += text::lower(c);
    }
    return kept;
  };
  return letters(left) == letters(right);
}
View title_of(const Field& field) {
  const bool says_something = !field.title.empty() && !is_same_name(field.title, field.name);
  return says_something ? view_of(field.title) : View();
}

constexpr std::array field_members = {
    member<&Field::name>("name"),
    member<&Field::path>("path"),
    member<&Field::form>("form"),
    member<Field, depth_of>("depth"),
    member<&Field::type>("type"),
    member<Field, types_view>("types"),
    member<&Field::is_required>("required"),
    member<&Field::is_nullable>("nullable"),
    member<&Field::has_nullable_items>("nullable_items"),
    member<Field, default_of>("default"),
    member<Field, values_of>("values"),
    member<Field, limits_of>("limits"),
    member<Field, limit_values_of>("limit_values"),
    member<Field, notes_of_field>("notes"),
    member<Field, remarks_of>("remarks"),
    member<Field, examples_of>("examples"),
    member<&Field::is_deprecated>("deprecated"),
    member<Field, title_of>("title"),
    member<&Field::description>("description"),
    member<Field, fields_of>("fields"),
    member<&Field::schema>("raw"),
};
constexpr ObjectType field_type = {.name = "field", .members = field_members};

View field_view(const Field& field) { return View::object(field_type, &field); }

// Every field of a list, each before those within it.
std::size_t count_all(const std::vector<Field>& fields) {
  std::size_t count = fields.size();
  for (const Field& field : fields) count += count_all(field.fields);
  return count;
}

void visit_all(const std::vector<Field>& fields, const std::function<void(View)>& visit) {
  for (const Field& field : fields) {
    visit(field_view(field));
    visit_all(field.fields, visit);
  }
}

const std::vector<Field>& as_fields(const void* list) {
  return *static_cast<const std::vector<Field>*>(list);
}

constexpr ListType all_fields_type = {
    .size = [](const void* list) { return count_all(as_fields(list)); },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          visit_all(as_fields(list), visit);
        }};

}  // namespace

View words_view(const Words& words) { return list_of<Piece, piece_view>(words); }

View fields_view(const std::vector<Field>& fields) {
  return list_of<Field, field_view>(fields);
}

View all_fields_view(const std::vector<Field>& fields) {
  return View::list(all_fields_type, &fields);
}

}  // namespace registry_docs::catalog
