#include "gen_registry_docs/init/registry_text.h"

#include <utility>

#include "json/pretty.h"
#include "text/join.h"

namespace gen_registry_docs::init {
namespace {

using json::Kind;
using json::Pretty;

// What `write` writes, in one line if that is not too long behind what stands before it, and
// else in lines that are indented as it is.
template <typename Write>
std::string fitted(std::size_t before, const std::string& indent, Write write) {
  constexpr std::size_t longest = 79;  // a comma may follow
  Pretty flat({.line = "", .level = "", .comma = ", "});
  write(flat);
  std::string text = std::move(flat).take_value();
  if (before + text.size() <= longest) return text;
  Pretty tall({.line = "\n" + indent});
  write(tall);
  return std::move(tall).take_value();
}

// Other layouts have no headings, or few.
void write_block(Pretty& to, const MarkedBlock& block) {
  constexpr std::size_t usual = 3;
  if (block.name != "reference" || block.level == usual) return to.string(block.name);
  to.open(Kind::object);
  to.name("name");
  to.string(block.name);
  to.name("heading");
  to.number(block.level);
  to.close(Kind::object);
}

std::string text_of(const Declared& file) {
  const std::string indent = "    ";
  return indent + fitted(indent.size(), indent, [&](Pretty& to) {
           to.open(Kind::object);
           to.name("path");
           to.string(file.path);
           to.name("blocks");
           to.open(Kind::array);
           for (const MarkedBlock& block : file.blocks) write_block(to, block);
           to.close(Kind::array);
           to.close(Kind::object);
         });
}

void write_start(Pretty& to, const Start& start) {
  if (!start.client.empty()) return to.string(start.client);
  to.open(Kind::object);
  to.name("command");
  to.string(start.command);
  if (!start.args.empty()) {
    to.name("args");
    to.open(Kind::array);
    for (const std::string& each : start.args) to.string(each);
    to.close(Kind::array);
  }
  to.close(Kind::object);
}

}  // namespace

std::string registry_text(std::span<const Declared> files, const Start& start) {
  const std::string server = R"(  "server": )";
  return "{\n  \"files\": [\n" + text::join(files, ",\n", text_of) + "\n  ],\n" + server +
         fitted(server.size(), "  ", [&](Pretty& to) { write_start(to, start); }) + "\n}\n";
}

}  // namespace gen_registry_docs::init
