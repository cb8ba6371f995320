// What is measured on: texts and repositories, the same in every run.
#ifndef BENCH_CORPORA_H
#define BENCH_CORPORA_H

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace registry_docs::bench {

// Sentences in lines of some 80 bytes, without a marker.
std::string prose(std::size_t size);

// A reference as the generator keeps it: for every 1,000 bytes a heading, a sentence and a
// block, whose table takes up three quarters of them.
std::string blocks(std::size_t size);

// HTML with a "<" in every 12 bytes or so, twice as dense as in most.
std::string html(std::size_t size);

// Nothing but what a scan must look at twice.
std::string angles(std::size_t size);
std::string comment_openings(std::size_t size);
std::string near_markers(std::size_t size);

// Opening markers that no closing one follows, of as many names or of a single one.
std::string openings_of_many_names(std::size_t count);
std::string openings_of_one_name(std::size_t count);

// An answer to tools/list with so many tools. Each has eight parameters, of which two hold
// others.
std::string answer(std::size_t tools);

// Lays out at `root` a repository of so many tools whose files are current: the example's,
// with its tools over and over, each under a name of its own.
void make_repository(const std::filesystem::path& root, std::size_t tools);

// The same for a saved answer, answer.json, with empty blocks of the layouts "tools" and
// "reference".
void make_answered_repository(const std::filesystem::path& root, std::size_t tools);

}  // namespace registry_docs::bench

#endif  // BENCH_CORPORA_H
