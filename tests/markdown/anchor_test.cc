#include "registry_docs/markdown/anchor.h"

#include <gtest/gtest.h>

#include <vector>

namespace registry_docs::markdown {
namespace {

using Texts = std::vector<std::string>;

Texts anchors_of(const Texts& headings) {
  Texts anchors;
  Anchors document;
  for (const std::string& heading : headings) anchors.push_back(document.next(heading));
  return anchors;
}

// What npm's github-slugger 2.0.0 makes of them.
TEST(Anchors, AreThoseOfGitHub) {
  const struct {
    const char* name;
    Texts headings;
    Texts anchors;
  } rows[] = {
      {"tools",
       {"list_files", "get-user", "Read (PDF) files!", "C++ & C#", "node.js v1.2"},
       {"list_files", "get-user", "read-pdf-files", "c--c", "nodejs-v12"}},
      {"white space",
       {" a  b ", "a\tb", "a\u00A0b", "a — b"},
       {"-a--b-", "ab", "ab-1", "a--b"}},
      {"nothing left", {"", "!", "…", "😀"}, {"", "-1", "-2", "-3"}},
      {"repeated", {"a", "A", "a.", "a"}, {"a", "a-1", "a-2", "a-3"}},
      {"taken before", {"a-1", "a", "a", "a"}, {"a-1", "a", "a-2", "a-3"}},
      {"taken later", {"a", "a", "a-1", "a-1", "a"}, {"a", "a-1", "a-1-1", "a-1-2", "a-2"}},
      {"scripts",
       {"Größe", "ÉCOLE", "日本語", "한국어", "हिन्दी", "١٢"},
       {"größe", "école", "日本語", "한국어", "हिन्दी", "١٢"}},
      {"numbers", {"½ ² Ⅷ ٣ ₂"}, {"--ⅷ-٣-"}},
      {"marks and signs",
       {"e\u0301", "a\u200Db", "1️⃣", "a‿b", "a–b", "ⒶⓑⓈ🄰", "™©"},
       {"e\u0301", "ab", "1\uFE0F\u20E3", "a‿b", "ab-1", "ⓐⓑⓢ🄰", ""}},
      {"two letters for one", {"İ"}, {"i\u0307"}},
      {"sigma",
       {"ΟΔΟΣ", "ΟΔΟΣ.", "ΣΑΣ'Α", "Σ", "ΑΣ\u0301 Β"},
       {"οδος", "οδος-1", "σασα", "σ", "ας\u0301-β"}},
  };
  for (const auto& [name, headings, anchors] : rows) {
    EXPECT_EQ(anchors_of(headings), anchors) << name;
  }
}

}  // namespace
}  // namespace registry_docs::markdown
