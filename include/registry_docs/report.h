// The check with its particulars: what stands in the generated files, block by block.
#ifndef REGISTRY_DOCS_REPORT_H
#define REGISTRY_DOCS_REPORT_H

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "registry_docs/registry_docs.h"

namespace registry_docs {

enum class BlockState {
  current,
  stale,     // its body differs from what the registry renders now
  failed,    // its renderer raised a ValueError
  missing,   // declared, and not in the file
  unknown,   // in the file, and not declared
  repeated,  // in the file more than once
};

// A block of a file. One that stands there more than once is reported once for each time.
struct BlockReport {
  std::string name;
  BlockState state = BlockState::current;
  std::size_t line = 0;       // of its opening marker, counted from 1; 0: it is missing
  std::size_t last_line = 0;  // of its closing marker; when missing, of the block in the file
                              // that comes before it in the declared order; 0 where there
                              // is none, or more stands in that line
  std::size_t begin = 0;      // of its body, a byte offset in the file's text
  std::size_t end = 0;
  std::string rendered = {};  // of a stale block: the body that a write would write
};

enum class FileState {
  current,
  stale,          // a block's body differs
  wrong_markers,  // it does not hold exactly the declared blocks, and cannot be written
  failed,         // a renderer raised a ValueError
};

struct FileReport {
  std::string path;  // as the table declares it
  FileState state = FileState::current;
  std::vector<BlockReport> blocks = {};    // as they stand in the file, then the missing ones
  std::vector<std::string> declared = {};  // the names of the blocks that it shall hold
  std::string problem = {};                // the line of stale_blocks; empty when current
  std::string text = {};                   // the file's text, with line feeds
};

// The blocks of a text with their places, as current.
std::vector<BlockReport> blocks_of(std::string_view text);

// One report for each generated file under `root`, in table order. Writes nothing. A file is
// current, and has the problem line, exactly as stale_blocks says. Throws what stale_blocks
// throws.
std::vector<FileReport> report(const Host& host, const std::filesystem::path& root);

// Looks at the text of a file before a write replaces it, and throws to keep it.
using Guard = std::function<void(const GeneratedFile&, std::string_view text)>;

// As write_blocks. The guard sees every file whose text would change before any is written;
// what it throws passes on.
std::vector<std::string> write_blocks(const Host& host, const std::filesystem::path& root,
                                      const Guard& guard);

}  // namespace registry_docs

#endif  // REGISTRY_DOCS_REPORT_H
