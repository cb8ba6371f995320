// The scan agrees with a regular expression on where the blocks of a text are.
#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include "fuzz/target.h"
#include "registry_docs/blocks/scan.h"

namespace registry_docs::fuzz {
namespace {

using Places = std::vector<std::size_t>;

pcre2_code* compiled(const char* expression) {
  int error = 0;
  PCRE2_SIZE offset = 0;
  return pcre2_compile(reinterpret_cast<PCRE2_SPTR>(expression), PCRE2_ZERO_TERMINATED,
                       PCRE2_UTF | PCRE2_UCP | PCRE2_DOTALL, &error, &offset, nullptr);
}

// Where the groups of the next match begin and end; empty when there is none.
Places match(const pcre2_code* expression, std::string_view text, std::size_t from) {
  static pcre2_match_data* const data = pcre2_match_data_create(5, nullptr);
  const int count = pcre2_match(expression, reinterpret_cast<PCRE2_SPTR>(text.data()),
                                text.size(), from, 0, data, nullptr);
  require(count > 0 || count == PCRE2_ERROR_NOMATCH, "an answer", std::to_string(count));
  const PCRE2_SIZE* const begin = pcre2_get_ovector_pointer(data);
  return count > 0 ? Places(begin + 2, begin + std::ptrdiff_t{2} * count) : Places();
}

}  // namespace

void run(std::string_view input) {
  static const pcre2_code* const block =
      compiled(R"((<!-- registry:([\p{L}\p{N}_:-]+) -->\n)(.*?)(<!-- /registry:\2 -->))");
  // Unicode tables differ in age: what one calls unassigned the other may call a letter.
  static const pcre2_code* const unassigned = compiled(R"((\p{Cn}))");
  constexpr std::size_t most = 4096;  // the expression takes quadratic time
  if (input.size() > most || find_ill_formed(input)) return;
  if (!match(unassigned, input, 0).empty()) return;

  std::size_t end = 0;
  for (const auto& [open, name, body, close] : blocks::scan(input)) {
    Places expected;
    for (const auto part : {open, name, body, close}) {
      expected.push_back(static_cast<std::size_t>(part.begin() - input.begin()));
      expected.push_back(expected.back() + part.size());
    }
    require(match(block, input, end) == expected, "the same block", std::string(name));
    end = expected.back();
  }
  require(match(block, input, end).empty(), "another block", std::to_string(end));
}

}  // namespace registry_docs::fuzz
