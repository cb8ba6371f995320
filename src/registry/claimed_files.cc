#include "registry/claimed_files.h"

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>

#include "registry/claim_search.h"
#include "registry/files.h"
#include "registry/matching_files.h"
#include "registry_docs/errors.h"
#include "registry_docs/report.h"
#include "registry_docs/repository/file.h"
#include "registry_docs/text.h"
#include "text/wildcard.h"

namespace registry {
namespace {

namespace fs = std::filesystem;
using registry_docs::GeneratedFile;
using registry_docs::Part;
using registry_docs::Parts;

// A claim that a file has to hold if no other one does, and where else it might.
struct Expected {
  std::size_t claim;
  std::string pattern = {};  // of several files; empty for one
};

// What a text holds.
struct Searched {
  std::string text;
  std::vector<Part> own_parts = {};
  std::vector<FoundClaim> found = {};
};

struct ClaimedFile {
  Parts own_parts = {};                              // what the file has beside the claims
  std::optional<registry_docs::Syntax> blocks = {};  // how they stand, where there are any
  std::vector<std::size_t> claims = {};              // in order, each once
  std::vector<Expected> expected = {};
  std::shared_ptr<const Searched> searched =
      {};  // what it was found to hold, if it still does
};

using Search = std::shared_ptr<const ClaimSearch>;

// What is made anyway, and so no claim.
std::vector<Span> made_spans(const ClaimedFile& file, std::string_view text,
                             const std::vector<Part>& own) {
  std::vector<Span> spans;
  const auto add = [&](const auto& made) { spans.push_back({made.begin, made.end}); };
  std::ranges::for_each(own, add);
  if (file.blocks) std::ranges::for_each(registry_docs::blocks_of(text, *file.blocks), add);
  return spans;
}

std::string fault_of(const Expected& expected, const ClaimSearch& search) {
  const std::string text =
      "expected the claim " +
      registry_docs::visible(search.claims()[expected.claim].text.spelling);
  return expected.pattern.empty()
             ? text + ", found it nowhere"
             : text + " in one of " + expected.pattern + ", found it in none";
}

Searched searched(const ClaimedFile& file, const ClaimSearch& search, std::string text) {
  Searched made{.text = std::move(text)};
  if (file.own_parts) made.own_parts = file.own_parts(made.text);
  made.found =
      search.find(made.text, file.claims, made_spans(file, made.text, made.own_parts));
  return made;
}

std::vector<Part> parts_in(const ClaimedFile& file, const ClaimSearch& search,
                           std::string_view text) {
  const bool is_known = file.searched && file.searched->text == text;
  const auto in_text =
      is_known ? file.searched
               : std::make_shared<const Searched>(searched(file, search, std::string(text)));
  std::vector<Part> parts = in_text->own_parts;
  const auto& found = in_text->found;
  std::ranges::move(parts_of(search, found, text), std::back_inserter(parts));
  std::ranges::stable_sort(parts, {}, &Part::begin);
  for (const Expected& expected : file.expected) {
    if (std::ranges::find(found, expected.claim, &FoundClaim::claim) != found.end()) continue;
    parts.push_back(
        {.name = registry_docs::visible(search.claims()[expected.claim].text.spelling),
         .fault = fault_of(expected, search),
         .has_place = false});
  }
  return parts;
}

class Binder {
 public:
  Binder(const Repository& repository, ClaimFacts::Catalogs catalogs,
         std::vector<GeneratedFile>& files)
      : repository_(repository), facts_(std::move(catalogs)), files_(files) {
    for (std::size_t i = 0; i < files.size(); ++i) {
      places_.emplace(fs::weakly_canonical(repository.root / files[i].path), i);
    }
  }

  void run() {
    std::vector<KnownClaim> known;
    std::vector<const Claim*> claims;
    for (const Claim& claim : repository_.claims) {
      if (!facts_.are_known(claim, repository_.sources.size())) continue;
      known.push_back(facts_.known(claim));
      claims.push_back(&claim);
    }
    search_ = std::make_shared<const ClaimSearch>(std::move(known));
    const auto matching = matching_files(repository_.root, patterns(claims));
    for (std::size_t i = 0; i < claims.size(); ++i) add(*claims[i], i, matching);
    look_for_expected();
    give_parts();
  }

 private:
  using Matching = std::map<std::string, std::vector<std::string>>;

  static std::set<std::string> patterns(const std::vector<const Claim*>& claims) {
    std::set<std::string> found;
    for (const Claim* const claim : claims) {
      if (text::has_wildcard(claim->path)) found.insert(claim->path);
    }
    return found;
  }

  void add(const Claim& claim, std::size_t index, const Matching& matching) {
    const json::Node path = claim.declared.at("path");
    if (!text::has_wildcard(claim.path)) {
      const std::size_t file = place_of(claim.path);
      if (is_whole(files_[file])) {
        path.refuse("a file that is not generated as a whole",
                    registry_docs::in_quotes(claim.path));
      }
      add_to(file, index);
      claimed_[file].expected.push_back({.claim = index});
      return;
    }
    std::optional<std::size_t> first;
    for (const std::string& each : matching.at(claim.path)) {
      const std::size_t file = place_of(each);
      if (is_whole(files_[file])) continue;
      add_to(file, index);
      if (!first) first = file;
    }
    if (!first)
      path.refuse("a pattern that fits a file", registry_docs::in_quotes(claim.path));
    claimed_[*first].expected.push_back({.claim = index, .pattern = claim.path});
  }

  static bool is_whole(const GeneratedFile& file) { return file.may_be_absent; }

  // Of the file among all of the table, which it joins if it is not there.
  std::size_t place_of(const std::string& path) {
    const auto known = paths_.find(path);
    if (known != paths_.end()) return known->second;
    const auto [place, is_new] =
        places_.emplace(fs::weakly_canonical(repository_.root / path), files_.size());
    if (is_new) {
      files_.push_back({.path = path});
      files_.back().keeps_line_ends = true;
    }
    paths_.emplace(path, place->second);
    return place->second;
  }

  void add_to(std::size_t file, std::size_t claim) {
    ClaimedFile& claimed = claimed_[file];
    if (claimed.claims.empty()) {
      claimed.own_parts = files_[file].parts;
      if (!files_[file].keeps_line_ends) claimed.blocks = files_[file].syntax;
    }
    if (claimed.claims.empty() || claimed.claims.back() != claim)
      claimed.claims.push_back(claim);
  }

  // Looks for the claims of which any of several files may hold the text, until all are found.
  void look_for_expected() {
    std::set<std::size_t> missing;
    for (const auto& [file, claimed] : claimed_) {
      for (const Expected& each : claimed.expected) {
        if (!each.pattern.empty()) missing.insert(each.claim);
      }
    }
    const std::set<std::size_t> all = missing;
    for (auto& [file, claimed] : claimed_) {
      const auto is_missing = [&](std::size_t claim) { return missing.contains(claim); };
      if (std::ranges::none_of(claimed.claims, is_missing)) continue;
      for (const std::size_t claim : found_in(files_[file], claimed)) missing.erase(claim);
    }
    for (auto& [file, claimed] : claimed_) {
      std::erase_if(claimed.expected, [&](const Expected& each) {
        return all.contains(each.claim) && !missing.contains(each.claim);
      });
    }
  }

  // Keeps what is found, so that the report of the file need not look again.
  std::vector<std::size_t> found_in(const GeneratedFile& file, ClaimedFile& claimed) const {
    const fs::path path = repository_.root / file.path;
    std::vector<std::size_t> claims;
    try {
      claimed.searched = std::make_shared<const Searched>(
          searched(claimed, *search_,
                   file.keeps_line_ends ? registry_docs::repository::read_whole(path)
                                        : registry_docs::read_text(path)));
    } catch (const registry_docs::ValueError&) {
      return claims;  // the report of the file will say why
    }
    for (const FoundClaim& each : claimed.searched->found) claims.push_back(each.claim);
    return claims;
  }

  void give_parts() {
    for (auto& [file, claimed] : claimed_) {
      files_[file].parts = [search = search_,
                            claimed = std::move(claimed)](std::string_view text) {
        return parts_in(claimed, *search, text);
      };
    }
  }

  const Repository& repository_;
  ClaimFacts facts_;
  std::vector<GeneratedFile>& files_;
  std::map<fs::path, std::size_t> places_ = {};              // of the files in the table
  std::unordered_map<std::string, std::size_t> paths_ = {};  // the same, as claims have them
  std::map<std::size_t, ClaimedFile> claimed_ = {};
  Search search_ = {};
};

}  // namespace

void add_claims(const Repository& repository, ClaimFacts::Catalogs catalogs,
                std::vector<GeneratedFile>& files) {
  if (!repository.claims.empty()) Binder(repository, std::move(catalogs), files).run();
}

}  // namespace registry
