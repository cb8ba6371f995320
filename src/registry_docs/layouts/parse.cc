#include <utility>
#include <vector>

#include "registry_docs/layouts/expressions.h"
#include "registry_docs/layouts/names.h"
#include "registry_docs/layouts/pieces.h"
#include "registry_docs/layouts/program.h"
#include "registry_docs/layouts/refusal.h"
#include "registry_docs/text.h"

namespace registry_docs::layouts {
namespace {

using Kind = Piece::Kind;

// A section whose end is still to come.
struct OpenSection {
  std::size_t instruction;
  std::string_view path;
};

class Parser {
 public:
  Parser(std::string_view name, const Vocabulary& vocabulary)
      : name_(name), vocabulary_(vocabulary) {}

  Program parse(const std::vector<Piece>& pieces) {
    for (const Piece& piece : pieces) add(piece);
    if (!open_.empty()) {
      const auto& [instruction, path] = open_.back();
      refuse({.name = name_, .line = program_.instructions[instruction].line},
             "an end of the section " + in_quotes(path), "none");
    }
    return std::move(program_);
  }

 private:
  [[nodiscard]] Place place_of(const Piece& piece) const {
    return {.name = name_, .line = piece.line};
  }

  void add(const Piece& piece) {
    switch (piece.kind) {
      case Kind::text:
        return add_text(piece);
      case Kind::value:
      case Kind::raw_value:
        return append(piece,
                      ValueTag{.shown = expressions_.read(piece.content, place_of(piece)),
                               .is_raw = piece.kind == Kind::raw_value});
      case Kind::section:
      case Kind::inverted:
        return add_section(piece);
      case Kind::end:
        return add_end(piece);
      case Kind::partial:
        return add_partial(piece);
      case Kind::comment:
      case Kind::delimiters:
        return;
    }
  }

  template <typename What>
  void append(const Piece& piece, What what) {
    program_.instructions.push_back({.what = what,
                                     .line = static_cast<std::uint32_t>(piece.line),
                                     .begins_line = piece.begins_line});
  }

  // A line that follows the last text in the source is one text with it.
  void add_text(const Piece& piece) {
    auto& instructions = program_.instructions;
    auto* const last =
        instructions.empty() ? nullptr : std::get_if<Text>(&instructions.back().what);
    if (last == nullptr || last->text.data() + last->text.size() != piece.content.data()) {
      return append(piece, Text{piece.content});
    }
    last->text = {last->text.data(), last->text.size() + piece.content.size()};
  }

  void add_section(const Piece& piece) {
    const std::string_view path = path_in(piece.content);
    open_.push_back({.instruction = program_.instructions.size(), .path = path});
    const bool is_inverted = piece.kind == Kind::inverted;
    if (!is_inverted && path.starts_with('@') && !is_loop_variable(path)) {
      return append(piece, WrapperTag{wrap_of(piece)});
    }
    append(piece, SectionTag{.over = expressions_.read(piece.content, place_of(piece)),
                             .is_inverted = is_inverted});
  }

  [[nodiscard]] Wrap wrap_of(const Piece& piece) const {
    std::vector<std::string_view> names = {"@indent"};
    for (const Wrapper& wrapper : vocabulary_.wrappers) {
      if (wrapper.name == piece.content) return wrapper.wrap;
      names.push_back(wrapper.name);
    }
    if (piece.content == names[0]) return nullptr;
    refuse_name(place_of(piece), "a wrapper", piece.content, names);
  }

  void add_end(const Piece& piece) {
    if (open_.empty()) {
      refuse(place_of(piece), "a section that begins before its end",
             "an end of " + in_quotes(piece.content));
    }
    const auto [instruction, path] = open_.back();
    Instruction& section = program_.instructions[instruction];
    if (piece.content != path) {
      refuse(place_of(piece),
             "an end of the section " + in_quotes(path) + " of line " +
                 std::to_string(section.line),
             "one of " + in_quotes(piece.content));
    }
    open_.pop_back();
    append(piece, EndTag());
    program_.instructions[instruction].span =
        static_cast<std::uint32_t>(program_.instructions.size() - instruction);
  }

  void add_partial(const Piece& piece) {
    if (piece.content.empty()) refuse(place_of(piece), "a name", in_quotes(piece.content));
    append(piece, PartialTag{.name = partials_.id_of(piece.content),
                             .is_alone = piece.is_alone,
                             .indent = piece.indent});
  }

  std::string_view name_;
  const Vocabulary& vocabulary_;
  Program program_;
  Expressions expressions_{program_, vocabulary_};
  Names partials_{program_.partials};
  std::vector<OpenSection> open_;
};

}  // namespace

Program parse(std::string_view name, std::string_view source, const Vocabulary& vocabulary) {
  return Parser(name, vocabulary).parse(pieces_of(name, source));
}

}  // namespace registry_docs::layouts
