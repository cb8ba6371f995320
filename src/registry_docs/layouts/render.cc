#include "registry_docs/layouts/render.h"

#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "registry_docs/layouts/context.h"
#include "registry_docs/layouts/list_filters.h"
#include "registry_docs/layouts/margin.h"
#include "registry_docs/layouts/refusal.h"
#include "registry_docs/text.h"
#include "text/ascii.h"

namespace registry_docs::layouts {
namespace {

using Kind = View::Kind;
using Start = Expression::Start;

constexpr std::size_t deepest = 1000;

// A template within one rendering, and what was found out for it.
struct Linked {
  Linked(const Template& of, const Types& types)
      : source(of),
        members(of.program().names, types),
        partials(of.program().partials.size()) {}

  const Template& source;
  Members members;
  std::vector<Linked*> partials;  // of its names for them; null: not asked for yet
};

// Where a section over a list has come to.
struct Loop {
  std::size_t size;
  std::size_t index = 0;
  Digits number = {};
};

// Whether a text is a line that begins with a letter.
bool is_line_of_words(std::string_view text) {
  return !text.empty() && text::is_letter(text[0]) &&
         text.find('\n') == std::string_view::npos;
}

// What a tag shows of a value, if it shows any.
std::optional<std::string_view> characters_of(const View& view) {
  switch (view.kind()) {
    case Kind::truth:
      return view.is_shown() ? "true" : "false";
    case Kind::number:
    case Kind::text:
      return view.characters();
    case Kind::none:
    case Kind::list:
    case Kind::object:
      return std::nullopt;
  }
  return std::nullopt;
}

class Renderer {
 public:
  Renderer(const Template& source, View root, const Environment& environment)
      : environment_(environment), current_(&link(source)) {
    context_.push(root);
  }

  std::string render() {
    run_all();
    return std::move(to_);
  }

 private:
  void run_all() {
    const auto& instructions = current_->source.program().instructions;
    run(instructions.data(), instructions.data() + instructions.size());
  }

  // What most tags do not need is kept out of line, so that little is saved and restored for
  // each: a check of 1,000 tools takes 0.97 of the time.
  void run(const Instruction* at, const Instruction* end) {
    for (; at != end; at += at->span) {
      std::visit([&](const auto& what) { this->show(what, *at); }, at->what);
    }
  }

  void show(const Text& text, const Instruction& at) {
    if (indent_.empty()) {
      to_ += text.text;
    } else {
      append_indented(to_, text.text, indent_, at.begins_line);
    }
  }

  void show(const ValueTag& value, const Instruction& at) {
    begin_line(at);
    if (value.shown.filters.size == 0) {
      return append(start_of(value.shown, at), value.is_raw);
    }
    const auto filters = current_->source.program().filters_of(value.shown);
    if (const auto* const filter = std::get_if<TextFilter>(&filters.back())) {
      if (filters.size() == 1) return append(*filter, start_of(value.shown, at));
      Made made;
      return append(*filter,
                    filtered(value.shown, filters.first(filters.size() - 1), made, at));
    }
    Made made;
    append(filtered(value.shown, filters, made, at), value.is_raw);
  }

  void show(const SectionTag& section, const Instruction& at) {
    begin_line(at);
    if (section.over.filters.size != 0) return show_filtered(section, at);
    show(section, start_of(section.over, at), at);
  }

  [[gnu::noinline]] void show_filtered(const SectionTag& section, const Instruction& at) {
    const auto filters = current_->source.program().filters_of(section.over);
    Made made;
    show(section, filtered(section.over, filters, made, at), at);
  }

  void show(const SectionTag& section, const View& over, const Instruction& at) {
    if (!over.is_shown()) {
      if (section.is_inverted) go_through(at);
    } else if (section.is_inverted) {
      return;
    } else if (over.kind() == Kind::list) {
      go_through_each(over, at);
    } else {
      go_through_with(over, at);
    }
  }

  [[gnu::noinline]] void show(const WrapperTag& section, const Instruction& at) {
    begin_line(at);
    const std::size_t begin = to_.size();
    const Margin margin = margin_;
    const std::string_view indent = section.wrap == nullptr ? indent_here() : "";
    go_through(at);
    if (section.wrap != nullptr) {
      section.wrap(to_, begin);
    } else {
      indent_lines(to_, begin, indent);
    }
    margin_ = margin;
  }

  void show(const EndTag&, const Instruction& at) { begin_line(at); }

  [[gnu::noinline]] void show(const PartialTag& partial, const Instruction& at) {
    begin_line(at);
    enter(at);
    Linked* const outer = std::exchange(current_, &linked_partial(partial.name, at));
    const std::size_t size = indent_.size();
    std::string indent;  // that is not for a partial in a line
    if (partial.is_alone) {
      indent_ += partial.indent;
    } else {
      std::swap(indent_, indent);
    }
    run_all();
    if (!partial.is_alone) std::swap(indent_, indent);
    indent_.resize(size);
    current_ = outer;
    --depth_;
  }

  void begin_line(const Instruction& at) {
    if (at.begins_line && !indent_.empty()) to_ += indent_;
  }

  [[nodiscard]] Place place_of(const Instruction& at) const {
    return {.name = current_->source.name(), .line = at.line};
  }

  std::string_view indent_for(const TextFilter& filter, std::string_view text) {
    const bool is_used = filter.is_of_lines && !is_line_of_words(text);
    return is_used ? indent_here() : std::string_view();
  }

  std::string_view indent_here() { return blanks(margin_.at_end_of(to_)); }

  void append(const View& view, bool is_raw) {
    const auto characters = characters_of(view);
    if (!characters) return;
    if (view.kind() == Kind::text && !is_raw && environment_.escape != nullptr) {
      environment_.escape(to_, *characters);
    } else {
      to_ += *characters;
    }
  }

  void append(const TextFilter& filter, const View& view) {
    const auto characters = characters_of(view);
    if (characters) filter.append(to_, *characters, indent_for(filter, *characters));
  }

  // Most tags name a member of the innermost object.
  View start_of(const Expression& expression, const Instruction& at) {
    if (expression.start == Start::member) {
      const auto [object, member] =
          context_.innermost_member(expression.name, current_->members);
      if (member != nullptr) return member->get(object);
    }
    return start_elsewhere(expression, at);
  }

  [[gnu::noinline]] View start_elsewhere(const Expression& expression, const Instruction& at) {
    switch (expression.start) {
      case Start::member:
        return context_.find({&expression.name, 1}, current_->members, place_of(at));
      case Start::path:
        return context_.find(current_->source.program().path_of(expression), current_->members,
                             place_of(at));
      case Start::self:
        return context_.innermost();
      case Start::is_first:
        return View::truth(loop_around(at).index == 0);
      case Start::is_last:
        return View::truth(loop_around(at).index + 1 == loop_around(at).size);
      case Start::number:
        return loop_around(at).number.view_of(loop_around(at).index + 1);
    }
    return {};
  }

  Loop& loop_around(const Instruction& at) {
    if (loop_ == nullptr) refuse(place_of(at), "a section over a list around this", "none");
    return *loop_;
  }

  [[gnu::noinline]] View filtered(const Expression& expression,
                                  std::span<const Filter> filters, Made& made,
                                  const Instruction& at) {
    View view = start_of(expression, at);
    for (const Filter& filter : filters) view = applied(filter, view, made, at);
    return view;
  }

  [[gnu::noinline]] View applied(const Filter& filter, const View& view, Made& made,
                                 const Instruction& at) {
    if (const auto* const apply = std::get_if<ApplyToList>(&filter)) {
      return (*apply)(view, made, place_of(at));
    }
    const auto characters = characters_of(view);
    if (!characters) return {};
    std::string text;
    const auto& text_filter = std::get<TextFilter>(filter);
    text_filter.append(text, *characters, indent_for(text_filter, *characters));
    made.text = std::move(text);
    return View::text(made.text);
  }

  void enter(const Instruction& at) {
    if (++depth_ > deepest) {
      refuse(place_of(at), "at most 1000 sections and partials within each other", "more");
    }
    if (++passes_ > environment_.most_passes) {
      refuse(place_of(at),
             "at most " + std::to_string(environment_.most_passes) +
                 " passes through sections and partials",
             "more");
    }
  }

  // Shows what stands within a section.
  void go_through(const Instruction& section) {
    enter(section);
    run(&section + 1, &section + section.span);
    --depth_;
  }

  void go_through_with(const View& view, const Instruction& section) {
    context_.push(view);
    go_through(section);
    context_.pop();
  }

  [[gnu::noinline]] void go_through_each(const View& list, const Instruction& section) {
    Loop loop{.size = list.list_type().size(list.data())};
    Loop* const outer = std::exchange(loop_, &loop);
    auto visit = [&](View element) {
      go_through_with(element, section);
      ++loop.index;
    };
    list.list_type().for_each(list.data(), std::ref(visit));  // which needs no memory
    loop_ = outer;
  }

  Linked& link(const Template& source) {
    return linked_.try_emplace(&source, source, context_.types()).first->second;
  }

  Linked& linked_partial(NameId name, const Instruction& at) {
    Linked*& linked = current_->partials[name];
    if (linked == nullptr) {
      const std::string_view called = current_->source.program().partials[name];
      const Template* const found =
          environment_.partial ? environment_.partial(called) : nullptr;
      if (found == nullptr) refuse(place_of(at), "a partial", in_quotes(called));
      linked = &link(*found);
    }
    return *linked;
  }

  const Environment& environment_;
  Context context_;
  std::map<const Template*, Linked> linked_;
  Linked* current_;
  Loop* loop_ = nullptr;  // the innermost
  std::string indent_;    // of the partial that is being shown
  std::string to_;
  Margin margin_;
  std::size_t depth_ = 0;
  std::size_t passes_ = 0;
};

}  // namespace

std::string render(const Template& source, View root, const Environment& environment) {
  return Renderer(source, root, environment).render();
}

}  // namespace registry_docs::layouts
