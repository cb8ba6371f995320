#include "json/edit.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <utility>

#include "json/place.h"
#include "json/pointer.h"
#include "json/pretty.h"
#include "json/same.h"
#include "registry_docs/errors.h"

namespace json {
namespace {

constexpr std::size_t npos = std::string_view::npos;

// From the last line end in a run of blanks: the line end and the indentation behind it.
// Nothing without one.
std::string_view last_line(std::string_view blanks) {
  const std::size_t end = blanks.find_last_of("\r\n");
  if (end == npos) return {};
  const bool is_pair = end > 0 && blanks.substr(end - 1, 2) == "\r\n";
  return blanks.substr(is_pair ? end - 1 : end);
}

std::string_view without_line_end(std::string_view line) {
  return line.substr(std::min(line.find_first_not_of("\r\n"), line.size()));
}

std::string_view line_end(std::string_view line) {
  return line.substr(0, line.size() - without_line_end(line).size());
}

// How a whole text is laid out, as its first member or element shows.
struct Style {
  std::string_view line = "\n";   // the end of a line
  std::string_view level = "  ";  // the indentation
  bool has_lines = true;
  bool has_blanks = true;  // behind colons and commas that end no line
};

Style style_of(const Place& root) {
  const auto children = children_of(root);
  Style style;
  if (children.empty()) return style;
  const Child& first = children.front();
  const std::string_view line = last_line(first.before);
  style.has_lines = !line.empty();
  if (style.has_lines) {
    style.line = line_end(line);
    style.level = without_line_end(line);
  }
  if (!first.colon.empty()) {
    style.has_blanks = first.colon != ":";
  } else if (children.size() > 1) {
    style.has_blanks = !children[1].before.empty();
  }
  return style;
}

// Of a value within an object whose members stand behind `line`, or on one line.
Spacing spacing_of(const Style& style, std::string_view line) {
  Spacing spacing{.line = std::string(line), .level = std::string(style.level)};
  if (!style.has_blanks) spacing.colon = ":";
  if (line.empty()) {
    spacing.level.clear();
    if (style.has_blanks) spacing.comma = ", ";
  }
  return spacing;
}

std::string text_of(const Node& value, const Spacing& spacing) {
  Pretty pretty(spacing);
  pretty.value(value);
  return std::move(pretty).take_value();
}

[[noreturn]] void refuse(const Document& document, const std::string& pointer,
                         const std::string& expected, const std::string& found) {
  throw registry_docs::InputError(document.name() + ": " + pointer + ": expected " + expected +
                                  ", found " + found);
}

// The members that join one object.
class Joining {
 public:
  Joining(std::string_view text, const Place& object, const Style& style,
          const std::vector<Child>& children)
      : text_(text), style_(style), at_(object.text.data() - text.data()) {
    if (!children.empty()) {
      const Child& last = children.back();
      line_ = last_line(last.before);
      at_ += last.value.text.data() + last.value.text.size() - object.text.data();
      return;
    }
    is_first_ = true;
    if (style.has_lines) {
      closing_ = std::string(style.line) + std::string(indentation());
      line_ = closing_ + std::string(style.level);
    }
    ++at_;
    end_ = static_cast<std::size_t>(at_) + object.text.size() - 2;
  }

  Edit add(const std::string& name, const Node& value) {
    const Spacing spacing = spacing_of(style_, line_);
    const auto place = static_cast<std::size_t>(at_);
    Edit edit{.begin = place, .end = place};
    edit.text = std::exchange(is_first_, false) ? "" : spacing.comma;
    edit.text += line_;
    append_string(edit.text, name);
    edit.text += spacing.colon + text_of(value, spacing);
    return edit;
  }

  // Behind the last one: what else becomes of an object that was empty.
  void close(Edit& last) const {
    if (end_ == 0) return;
    last.end = end_;
    last.text += closing_;
  }

 private:
  // Of the line that an empty object stands in.
  [[nodiscard]] std::string_view indentation() const {
    const auto at = static_cast<std::size_t>(at_);
    const std::size_t before = text_.find_last_of("\r\n", at);
    const std::string_view line = text_.substr(before == npos ? 0 : before + 1);
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
  }

  std::string_view text_;
  const Style& style_;
  std::ptrdiff_t at_;
  std::size_t end_ = 0;  // of the white space in an empty object
  std::string line_ = {};
  std::string closing_ = {};
  bool is_first_ = false;
};

class Editor {
 public:
  explicit Editor(const Document& document)
      : document_(document), root_(place_of(document)), style_(style_of(root_)) {}

  std::vector<Edit> edits(std::span<const Member> members) {
    std::vector<Edit> made;
    std::map<const char*, std::pair<Joining, std::size_t>>
        joining;  // and the last edit of each
    for (const Member& member : members) {
      const Place object = object_of(member.pointer);
      const auto children = children_of(object);
      const std::string name = last_name(member.pointer);
      const auto found = std::ranges::find(children, name, &Child::name);
      if (found != children.end()) {
        made.push_back(change(*found, member.value));
        continue;
      }
      auto& [object_joined, last] =
          joining
              .try_emplace(object.text.data(),
                           Joining(document_.json(), object, style_, children), 0)
              .first->second;
      last = made.size();
      made.push_back(object_joined.add(name, member.value));
    }
    for (const auto& [object, each] : joining) each.first.close(made[each.second]);
    return made;
  }

 private:
  Place object_of(const std::string& pointer) const {
    const std::string parent = pointer.substr(0, pointer.rfind('/'));
    const auto place = pointed_at(root_, parent);
    if (place && place->node.kind() == Kind::object) return *place;
    refuse(document_, parent.empty() ? "the document" : parent,
           "an object that has " + pointer.substr(parent.size() + 1) + ", or may have it",
           place ? kind_name(place->node.kind()) : "nothing");
  }

  Edit change(const Child& child, const Node& value) const {
    const std::string_view text = child.value.text;
    const auto begin = static_cast<std::size_t>(text.data() - document_.json().data());
    Edit edit{.begin = begin, .end = begin + text.size()};
    edit.is_current = are_same(child.value.node, value);
    edit.text =
        edit.is_current ? text : text_of(value, spacing_of(style_, last_line(child.before)));
    return edit;
  }

  const Document& document_;
  Place root_;
  Style style_;
};

}  // namespace

std::vector<Edit> edits(const Document& document, std::span<const Member> members) {
  return Editor(document).edits(members);
}

std::string edited(std::string_view text, std::vector<Edit> edits) {
  std::ranges::stable_sort(edits, {}, &Edit::begin);
  std::string whole;
  std::size_t copied = 0;
  for (const Edit& edit : edits) {
    whole.append(text.substr(copied, edit.begin - copied)) += edit.text;
    copied = edit.end;
  }
  return whole.append(text.substr(copied));
}

}  // namespace json
