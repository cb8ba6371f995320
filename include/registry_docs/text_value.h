// A text of a host's declarations: its own, unless it is told to borrow. UTF-8.
#ifndef REGISTRY_DOCS_TEXT_VALUE_H
#define REGISTRY_DOCS_TEXT_VALUE_H

#include <compare>
#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace registry_docs {

// Copies what it is made from and keeps the copy, so that it may be made from what is gone in
// the next moment. Takes the room of a view.
class Text {
 public:
  Text() noexcept = default;

  // Implicit throughout, so that a host's declarations read as the texts they are.
  Text(std::string_view text)
      : data_(copy_of(text)), tagged_size_(text.empty() ? 0 : text.size() | owned) {}
  Text(const std::string& text) : Text(std::string_view(text)) {}
  Text(const char* text) : Text(std::string_view(text)) {}  // up to its NUL
  Text(std::nullptr_t) = delete;

  // A text that keeps nothing: `text` must stay in its place, unchanged, for as long as this
  // one or a copy of it is read. For a host that keeps its declarations whole and shares each
  // record with them, as `std::shared_ptr<const ToolSpec>(declarations, &record)`.
  static Text borrowed(std::string_view text) noexcept { return {text.data(), text.size()}; }
  template <std::same_as<std::string> Temporary>
  static Text borrowed(Temporary&&) = delete;

  // Copies the bytes, or borrows the same ones.
  Text(const Text& other)
      : data_(other.is_owned() ? copy_of(other.view()) : other.data_),
        tagged_size_(other.tagged_size_) {}
  Text& operator=(const Text& other) { return *this = Text(other); }
  // The bytes stay in their place; `other` is left empty.
  Text(Text&& other) noexcept
      : data_(std::exchange(other.data_, nullptr)),
        tagged_size_(std::exchange(other.tagged_size_, 0)) {}
  Text& operator=(Text&& other) noexcept {
    Text taken(std::move(other));
    std::swap(data_, taken.data_);
    std::swap(tagged_size_, taken.tagged_size_);
    return *this;
  }
  ~Text() {
    if (is_owned()) delete[] data_;
  }

  // Borrows from this text, and so is not to be had of one that is about to go.
  operator std::string_view() const& noexcept { return view(); }
  operator std::string_view() const&& = delete;

  // Compares the bytes with those of anything that can be seen as a view.
  template <typename Other>
  requires std::is_convertible_v<const Other&, std::string_view>
  friend bool operator==(const Text& text, const Other& other) {
    return text.view() == std::string_view(other);
  }
  template <typename Other>
  requires std::is_convertible_v<const Other&, std::string_view>
  friend std::strong_ordering operator<=>(const Text& text, const Other& other) {
    return text.view() <=> std::string_view(other);
  }

 private:
  static constexpr std::size_t owned = ~(~std::size_t{0} >> 1);  // larger than any text

  // Null for an empty text.
  static const char* copy_of(std::string_view text);

  Text(const char* data, std::size_t tagged_size) noexcept
      : data_(data), tagged_size_(tagged_size) {}

  [[nodiscard]] bool is_owned() const noexcept { return (tagged_size_ & owned) != 0; }
  [[nodiscard]] std::string_view view() const noexcept {
    return {data_, tagged_size_ & ~owned};
  }

  const char* data_ = nullptr;
  std::size_t tagged_size_ = 0;  // the size in bytes, and whether they are its own
};

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_TEXT_VALUE_H
