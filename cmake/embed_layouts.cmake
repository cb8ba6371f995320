# Writes a C++ source with the layouts and the partials of a directory:
# cmake -D FROM=DIRECTORY -D TO=FILE -P embed_layouts.cmake
function(embed variable pattern)
  file(GLOB files ${FROM}/${pattern})
  set(entries)
  foreach(file ${files})
    get_filename_component(name ${file} NAME_WE)
    file(READ ${file} text)
    string(APPEND entries "    {\"${name}\", R\"mustache(${text})mustache\"},\n")
  endforeach()
  set(${variable} "${entries}" PARENT_SCOPE)
endfunction()

embed(layouts *.mustache)
embed(partials partials/*.mustache)
file(WRITE ${TO} "// Made from the files in ${FROM}.
#include \"registry_docs/layouts/builtin.h\"

#include <array>

namespace registry_docs::layouts {
namespace {

constexpr std::array layouts = std::to_array<BuiltinText>({
${layouts}});
constexpr std::array partials = std::to_array<BuiltinText>({
${partials}});

}  // namespace

std::span<const BuiltinText> builtin_layouts() { return layouts; }
std::span<const BuiltinText> builtin_partials() { return partials; }

}  // namespace registry_docs::layouts
")
