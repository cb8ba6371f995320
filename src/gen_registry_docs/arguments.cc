#include "gen_registry_docs/arguments.h"

#include <algorithm>
#include <cmath>

#include "port/to_double.h"

namespace gen_registry_docs {

std::string shown(std::string_view argument) { return "'" + std::string(argument) + "'"; }

bool take_value(std::string_view name, std::string_view argument, Arguments& rest,
                std::optional<std::string>& value) {
  if (!argument.starts_with(name)) return false;
  const std::string_view behind = argument.substr(name.size());
  if (!behind.empty() && behind[0] != '=') return false;
  const std::string option(name);
  if (value) throw UsageError(option + ": expected once, found again");
  if (behind.empty() && rest.empty()) {
    throw UsageError(option + ": expected a value, found nothing");
  }
  value = behind.empty() ? rest.take() : behind.substr(1);
  if (value->empty()) throw UsageError(option + ": expected a value, found an empty one");
  return true;
}

std::optional<std::chrono::milliseconds> seconds(const std::optional<std::string>& given) {
  if (!given) return std::nullopt;
  constexpr double most = 24 * 60 * 60;
  const auto number = port::to_double(*given);
  if (!number || !(*number > 0 && *number <= most)) {
    throw UsageError("--timeout: expected a number of seconds, found " + shown(*given));
  }
  constexpr double second = std::chrono::milliseconds::period::den;
  return std::chrono::milliseconds(std::max(std::llround(*number * second), 1LL));
}

}  // namespace gen_registry_docs
