#include "layouts/server.h"

#include <functional>

#include "registry_docs/layouts/json_view.h"

namespace registry_docs::support {
namespace {

using layouts::ListType;
using layouts::Member;
using layouts::ObjectType;
using layouts::View;

View view_of(const Field& field);
View view_of(const Tool& tool);
View view_of(const Limit& limit);

template <typename Of>
const Of& as(const void* object) {
  return *static_cast<const Of*>(object);
}

template <typename Element>
constexpr ListType list_of = {
    .size = [](const void* list) { return as<std::vector<Element>>(list).size(); },
    .for_each =
        [](const void* list, const std::function<void(View)>& visit) {
          for (const Element& each : as<std::vector<Element>>(list)) visit(view_of(each));
        },
};

template <typename Element>
View view_of(const std::vector<Element>& elements) {
  return View::list(list_of<Element>, &elements);
}

View first_of(const std::vector<Field>& fields) {
  return fields.empty() ? View() : view_of(fields[0]);
}

const Member field_members[] = {
    {"name", [](const void* field) { return View::text(as<Field>(field).name); }},
    {"fields", [](const void* field) { return view_of(as<Field>(field).fields); }},
    {"first", [](const void* field) { return first_of(as<Field>(field).fields); }}};

const Member tool_members[] = {
    {"name", [](const void* tool) { return View::text(as<Tool>(tool).name); }},
    {"title", [](const void* tool) { return View::text(as<Tool>(tool).title); }},
    {"note", [](const void*) { return View(); }},
    {"fields", [](const void* tool) { return view_of(as<Tool>(tool).fields); }},
    {"first", [](const void* tool) { return first_of(as<Tool>(tool).fields); }},
    {"meta", [](const void* tool) {
       return as<Tool>(tool).meta ? layouts::view_of(*as<Tool>(tool).meta) : View();
     }}};

const Member server_members[] = {
    {"name", [](const void*) { return View::text("s"); }},
    {"note", [](const void*) { return View::text("server's"); }},
    {"tools", [](const void* server) { return view_of(as<Server>(server).tools); }},
    {"limits", [](const void* server) { return view_of(as<Server>(server).limits); }}};

const ObjectType field_type = {.name = "field", .members = field_members};
const ObjectType tool_type = {.name = "tool", .members = tool_members};
const ObjectType server_type = {.name = "server", .members = server_members};
const ObjectType limit_type = {.name = "limit", .members = {}};

View view_of(const Field& field) { return View::object(field_type, &field); }
View view_of(const Tool& tool) { return View::object(tool_type, &tool); }
View view_of(const Limit& limit) { return View::object(limit_type, &limit); }

}  // namespace

View view_of(const Server& server) { return View::object(server_type, &server); }

}  // namespace registry_docs::support
