// Any bytes are refused in due form, or are a registry that every block can be asked of.
#include "fuzz/target.h"
#include "registry/host.h"
#include "support/temporary_directory.h"

namespace registry_docs::fuzz {

void run(std::string_view input) {
  static const support::TemporaryDirectory directory;
  const std::string registry = directory.path() / "registry.json";
  support::write_file(registry, input);
  support::write_file(directory.path() / "src/tesmo_sorvet/setup/config.py",
                      "TESMO_INSTRUCTION_CONTENT = '''<!-- registry:rules-routes -->\n"
                      "<!-- /registry:rules-routes -->'''");
  std::string text;
  try {
    const auto bound = registry::bind(
        registry::open_repository(directory.path(), {.registry = registry}), {});
    for (const GeneratedFile& file : bound.files) {
      for (const auto& [name, renderer] : file.blocks) {
        try {
          text += renderer();
        } catch (const ValueError& error) {
          text += error.what();
        } catch (const MissingKeyError& error) {
          text += error.what();
        }
      }
    }
  } catch (const registry_docs::InputError& error) {
    text = error.what();
    require(text.starts_with(registry + ":"), "the file's name first", text);
  } catch (const FileError& error) {
    text = error.what();  // of a template, say
  } catch (const DecodeError& error) {
    require(find_ill_formed(input) == error.offset(), "the right offset", error.what());
  }
  require(!find_ill_formed(text), "well-formed UTF-8", text);
}

}  // namespace registry_docs::fuzz
