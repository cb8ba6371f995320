// The arguments of a command line, taken one after the other.
#ifndef GEN_REGISTRY_DOCS_ARGUMENTS_H
#define GEN_REGISTRY_DOCS_ARGUMENTS_H

#include <chrono>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace gen_registry_docs {

// A command line that cannot be carried out. The message begins with what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// From left to right.
class Arguments {
 public:
  explicit Arguments(std::span<const char* const> rest) : rest_(rest) {}

  [[nodiscard]] bool empty() const { return rest_.empty(); }

  std::string_view take() {
    const std::string_view taken = rest_.front();
    rest_ = rest_.subspan(1);
    return taken;
  }

 private:
  std::span<const char* const> rest_;
};

// As messages repeat an argument: between quotes.
std::string shown(std::string_view argument);

// Takes the value of the option `name` when `argument` is that option, as "--root DIR" or
// "--root=DIR". Throws UsageError for one that is empty, not there or there already.
bool take_value(std::string_view name, std::string_view argument, Arguments& rest,
                std::optional<std::string>& value);

// The value of --timeout. Throws UsageError.
std::optional<std::chrono::milliseconds> seconds(const std::optional<std::string>& given);

}  // namespace gen_registry_docs

#endif  // GEN_REGISTRY_DOCS_ARGUMENTS_H
