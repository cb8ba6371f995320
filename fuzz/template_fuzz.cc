// Any bytes are refused in due form, or are a template that shows any JSON, and alike where
// another one includes it. The parts of an input are the template, the JSON and a partial.
#include <map>
#include <optional>

#include "fuzz/target.h"
#include "json/document.h"
#include "registry_docs/layouts/json_view.h"
#include "registry_docs/layouts/render.h"

namespace registry_docs::fuzz {
namespace {

using layouts::Template;
using Sources = std::map<std::string, std::string, std::less<>>;

const layouts::TextFilter filters[] = {
    {"code", [](std::string& to, std::string_view text, std::string_view indent) {
       to.append(text).append(indent);
     }}};

const layouts::Wrapper wrappers[] = {
    {"@cell", [](std::string& text, std::size_t begin) { text.resize(begin); }}};

// What a template makes of the JSON, or the message of its refusal. It may include any other.
std::string rendered(const Sources& sources, const std::string& name, const json::Node& json) {
  std::map<std::string_view, Template> templates;
  const auto find = [&](std::string_view called) -> const Template* {
    const auto source = sources.find(called);
    if (source == sources.end()) return nullptr;
    const layouts::Vocabulary vocabulary{.filters = filters, .wrappers = wrappers};
    return &templates.try_emplace(source->first, source->first, source->second, vocabulary)
                .first->second;
  };
  try {
    return render(*find(name), layouts::view_of(json), {.partial = find, .most_passes = 50});
  } catch (const InputError& error) {
    const std::string message = error.what();
    require(sources.contains(message.substr(0, message.find(':'))), "a template's name first",
            message);
    return message;
  }
}

// Nothing for what is no document, which another target tries.
void with_document(const std::string& json, const std::function<void(json::Node)>& use) {
  std::optional<json::Document> document;
  try {
    document.emplace("j", json);
  } catch (const InputError&) {
    return;
  }
  use(json::Node(*document));
}

bool is_out_of_bounds(const std::string& text) {
  return text.find("expected at most") != std::string::npos;
}

}  // namespace

void run(std::string_view input) {
  if (input.size() > 1024 || find_ill_formed(input)) return;
  std::istringstream parts{std::string(input)};
  const std::string source = next_part(parts);
  with_document(next_part(parts), [&](const json::Node& json) {
    const Sources sources = {{"t", source},
                             {"p", next_part(parts)},
                             {"includes", "{{#@indent}}{{>t}}{{/@indent}}"}};
    const std::string text = rendered(sources, "t", json);
    require(!find_ill_formed(text), "well-formed UTF-8", text);
    require(source.find("{{") != std::string::npos || text == source, source.c_str(), text);
    const std::string included = rendered(sources, "includes", json);
    require(included == text || is_out_of_bounds(text + included), text.c_str(), included);
  });
}

}  // namespace registry_docs::fuzz
