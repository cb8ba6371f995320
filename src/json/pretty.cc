#include "json/pretty.h"

#include <utility>

namespace json {

void Pretty::name(std::string_view name) {
  begin_part();
  append_string(text_, name);
  text_ += spacing_.colon;
  is_named_ = true;
}

void Pretty::value(const Node& value) {
  if (value.kind() == Kind::object) {
    open('{');
    value.for_each_member([this](std::string_view member, const Node& held) {
      name(member);
      this->value(held);
    });
    close('}');
  } else if (value.kind() == Kind::array) {
    open('[');
    value.for_each_element([this](const Node& element) { this->value(element); });
    close(']');
  } else if (value.kind() == Kind::string) {
    string(value.string());
  } else {
    begin_part();
    text_ += value.spelling();
  }
}

void Pretty::string(std::string_view text) {
  begin_part();
  append_string(text_, text);
}

void Pretty::number(std::size_t number) {
  begin_part();
  text_ += std::to_string(number);
}

std::string Pretty::take() && {
  text_ += '\n';
  return std::move(text_);
}

void Pretty::open(char bracket) {
  begin_part();
  text_ += bracket;
  ++depth_;
  is_empty_ = true;
}

void Pretty::close(char bracket) {
  --depth_;
  if (!std::exchange(is_empty_, false)) begin_line();
  text_ += bracket;
}

// A name stands where its value would, and its value behind it.
void Pretty::begin_part() {
  if (std::exchange(is_named_, false) || depth_ == 0) return;
  if (!std::exchange(is_empty_, false)) text_ += spacing_.comma;
  begin_line();
}

void Pretty::begin_line() {
  text_ += spacing_.line;
  for (std::size_t level = 0; level < depth_; ++level) text_ += spacing_.level;
}

std::string pretty(const Node& value) {
  Pretty pretty;
  pretty.value(value);
  return std::move(pretty).take();
}

}  // namespace json
