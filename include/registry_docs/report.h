// The check with its particulars: what stands in the generated files, block by block.
#ifndef REGISTRY_DOCS_REPORT_H
#define REGISTRY_DOCS_REPORT_H

#include <cstddef>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/registry_docs.h"

namespace registry_docs {

enum class BlockState {
  current,
  stale,     // its body differs from what the registry renders now
  failed,    // its renderer raised a ValueError, or what stands there is not to be written
  missing,   // declared, and not in the file
  unknown,   // in the file, and not declared
  repeated,  // in the file more than once
};

// A block of a file, or a part of it that stands between no markers. One that stands there
// more than once is reported once for each time.
struct BlockReport {
  std::string name;
  BlockState state = BlockState::current;
  std::size_t line = 0;       // of its opening marker, counted from 1; 0: it is not there
  std::size_t last_line = 0;  // of its closing marker; when missing, of the block in the file
                              // that comes before it in the declared order; 0 where there
                              // is none, or more stands in that line
  std::size_t begin = 0;      // of its body, a byte offset in the file's text
  std::size_t end = 0;
  std::string rendered = {};  // of a stale block: the body that a write would write
  std::string fault = {};     // of a failed part: what a person has to fix, a sentence
};

enum class FileState {
  current,
  stale,          // a block's body differs
  wrong_markers,  // it does not hold exactly the declared blocks, and cannot be written
  failed,         // a renderer raised a ValueError, or a part has a fault
};

struct FileReport {
  std::string path;  // as the table declares it
  FileState state = FileState::current;
  std::vector<BlockReport> blocks = {};    // as they stand in the file, then the missing ones;
                                           // no parts where the markers are wrong
  std::vector<std::string> declared = {};  // the names of the blocks that it shall hold
  std::string problem = {};                // the line of stale_blocks; empty when current
  std::string text = {};                   // the file's text, with line feeds if not
  bool keeps_line_ends = false;            // with its own line ends
  std::string bytes = {};                  // the file, where its blocks keep its line endings
  bool is_new = false;                     // there is no such file yet
  Syntax syntax = {};
};

// The blocks of a text with their places, as current.
std::vector<BlockReport> blocks_of(std::string_view text, const Syntax& syntax = {});

// What a report tells of a current file: all, or no more than that it is current and its text.
enum class Detail { problems, everything };

// What stands in one generated file under `root`, and what would be rendered there. It is the
// one source of all that is said of a file and written to it. Writes nothing. Throws what
// stale_blocks throws.
FileReport report_file(const GeneratedFile& generated, const std::filesystem::path& root,
                       Detail detail = Detail::everything);

// The same for each file of a table, or of the host's, in order. `problem` is the line of
// stale_blocks.
std::vector<FileReport> report(std::span<const GeneratedFile> files,
                               const std::filesystem::path& root,
                               Detail detail = Detail::everything);
std::vector<FileReport> report(const Host& host, const std::filesystem::path& root,
                               Detail detail = Detail::everything);

// The text that a write would write: the file's own, with the rendered bodies of stale blocks.
std::string new_text(const FileReport& file);

// The same as the file holds it. Of a file that keeps its line endings each block has that of
// its opening marker; any other has line feeds.
std::string new_bytes(const FileReport& file);

// Makes the files what they were reported to become, each of which is current or stale: those
// whose text differs now are rewritten, in place, as `new_bytes`. Returns their paths in
// order. Throws FileError for a file that cannot be written: that file holds its old text and
// the files before it their new one.
std::vector<std::string> write_files(std::span<const FileReport> files,
                                     const std::filesystem::path& root);

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_REPORT_H
