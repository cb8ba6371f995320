// What a template sees of a value: a truth, a number, a text, a list or an object. A view is
// small, is passed by value, and borrows all that it shows.
#ifndef REGISTRY_DOCS_LAYOUTS_VIEW_H
#define REGISTRY_DOCS_LAYOUTS_VIEW_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string_view>

namespace registry_docs::layouts {

class View;

// How the lists of one type are read.
struct ListType {
  std::size_t (*size)(const void* list);
  void (*for_each)(const void* list, const std::function<void(View)>& visit);  // in order
};

// A member that every object of a type has, if only as a view of nothing.
struct Member {
  std::string_view name;
  View (*get)(const void* object);
};

// How the objects of one type are read.
struct ObjectType {
  std::string_view name;  // for messages: "tool", "field"
  std::span<const Member> members;
  // For objects whose members are known only when they are read, which have no table of them.
  bool (*find)(const void* object, std::string_view name, View& found) = nullptr;
  void (*for_each)(const void* object,
                   const std::function<void(std::string_view, View)>& visit) = nullptr;
};

class View {
 public:
  enum class Kind : std::uint8_t { none, truth, number, text, list, object };

  View() = default;

  static View truth(bool is_true) { return {Kind::truth, nullptr, is_true ? 1U : 0U}; }
  // `spelled` as JSON spells it.
  static View number(std::string_view spelled) {
    return {Kind::number, spelled.data(), spelled.size()};
  }
  static View text(std::string_view text) { return {Kind::text, text.data(), text.size()}; }
  static View list(const ListType& type, const void* list) { return {&type, list}; }
  static View object(const ObjectType& type, const void* object) { return {&type, object}; }

  [[nodiscard]] Kind kind() const { return kind_; }

  // Whether a section is shown for it: not for nothing, false, an empty text or an empty list.
  [[nodiscard]] bool is_shown() const {
    if (kind_ == Kind::list) return list_type().size(data_) != 0;
    if (kind_ == Kind::none) return false;
    return kind_ == Kind::number || kind_ == Kind::object || size_ != 0;
  }

  // Of a number and a text.
  [[nodiscard]] std::string_view characters() const {
    return {static_cast<const char*>(data_), size_};
  }
  // Of a list and an object, what their type's functions are given.
  [[nodiscard]] const void* data() const { return data_; }
  [[nodiscard]] const ListType& list_type() const {
    return *static_cast<const ListType*>(type_);
  }
  [[nodiscard]] const ObjectType& object_type() const {
    return *static_cast<const ObjectType*>(type_);
  }

 private:
  View(Kind kind, const void* data, std::size_t size)
      : data_(data), size_(size), kind_(kind) {}
  View(const ListType* type, const void* list) : data_(list), type_(type), kind_(Kind::list) {}
  View(const ObjectType* type, const void* object)
      : data_(object), type_(type), kind_(Kind::object) {}

  const void* data_ = nullptr;
  union {
    std::size_t size_ = 0;
    const void* type_;
  };
  Kind kind_ = Kind::none;
};

}  // namespace registry_docs::layouts

#endif  // REGISTRY_DOCS_LAYOUTS_VIEW_H
