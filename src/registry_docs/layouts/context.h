// The values that stand around a tag, and the members that names mean there.
#ifndef REGISTRY_DOCS_LAYOUTS_CONTEXT_H
#define REGISTRY_DOCS_LAYOUTS_CONTEXT_H

#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "registry_docs/layouts/program.h"
#include "registry_docs/layouts/refusal.h"
#include "registry_docs/layouts/view.h"

namespace registry_docs::layouts {

// The types of the objects that a rendering meets, numbered as it meets them.
class Types {
 public:
  std::size_t number_of(const ObjectType& type);
  [[nodiscard]] std::span<const ObjectType* const> all() const { return types_; }

 private:
  std::vector<const ObjectType*> types_;
  std::size_t last_ = 0;  // that was asked for, as the next one often is the same
};

// Which members the names of one template are, looked up once for each type.
class Members {
 public:
  // Borrows both.
  Members(std::span<const std::string_view> names, const Types& types)
      : names_(names), types_(types) {}

  [[nodiscard]] std::string_view name(NameId id) const { return names_[id]; }

  // The member that the type of that number has in its table, or null.
  const Member* of(std::size_t type, NameId name) {
    const std::size_t at = type * names_.size() + name;
    if (at >= found_.size()) find_all();
    return found_[at];
  }

 private:
  void find_all();

  std::span<const std::string_view> names_;
  const Types& types_;
  std::vector<const Member*> found_;  // of each type, one for each name
};

// The values that sections have put around a tag, the innermost last.
class Context {
 public:
  void push(const View& view);
  void pop() { frames_.pop_back(); }
  [[nodiscard]] View innermost() const { return frames_.back().view; }
  [[nodiscard]] const Types& types() const { return types_; }

  // The innermost object, and the member of that name in the table of its type; null if it is
  // no object, or has none.
  std::pair<const void*, const Member*> innermost_member(NameId name, Members& members) const {
    const auto& [view, type] = frames_.back();
    if (view.kind() != View::Kind::object) return {};
    return {view.data(), members.of(type, name)};
  }

  // What a path of names shows. Its first name is a member of the innermost object that has
  // it, each further one a member of what is shown by then. Throws InputError for a member
  // that no type has. Nothing for one that an object lacks whose members are known only when
  // it is read, or could be such an object's.
  View find(std::span<const NameId> path, Members& members, const Place& place);

 private:
  struct Frame {
    View view;
    std::size_t type = 0;  // the number of an object's type
  };

  View find_first(NameId name, Members& members, const Place& place) const;
  View find_further(View of, NameId name, Members& members, const Place& place);
  // Refuses a name that no object has, unless one could have had it.
  void require_unknown_members(std::string_view name, const Place& place) const;

  std::vector<Frame> frames_;
  Types types_;
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_CONTEXT_H
