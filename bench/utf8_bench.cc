// The search for what is no UTF-8, beside the Unicode library alone.
#include <utf8proc.h>

#include "bench/suites.h"
#include "registry_docs/text.h"

namespace registry_docs::bench {
namespace {

std::string no_ascii(std::size_t size) {
  std::string text;
  while (text.size() < size) text += "größe解析𝒜";
  return text;
}

bool decode(const std::string& text) {
  const auto* at = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
  utf8proc_ssize_t step = 0;
  utf8proc_int32_t code_point = 0;
  for (auto left = std::ssize(text); left > 0; left -= step, at += step) {
    step = utf8proc_iterate(at, left, &code_point);
    if (step < 0) return false;
  }
  return true;
}

}  // namespace

void register_utf8() {
  using Corpus = std::pair<std::string, std::string (*)(std::size_t)>;
  for (const auto& [name, corpus] :
       {Corpus("ascii", angles), Corpus("prose", prose), Corpus("no_ascii", no_ascii)}) {
    add_by_size("utf8/find_ill_formed/" + name, find_ill_formed, corpus, 10'000, 1'000'000);
    add_by_size("utf8/utf8proc/" + name, decode, corpus, 10'000, 1'000'000);
  }
}

}  // namespace registry_docs::bench
