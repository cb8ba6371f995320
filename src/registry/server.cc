#include "registry/server.h"

#include <algorithm>
#include <array>
#include <variant>

#include "json/document.h"
#include "registry_docs/errors.h"
#include "registry_docs/text.h"
#include "text/join.h"
#include "text/nearest.h"

namespace registry {
namespace {

using json::Kind;
using json::MaybeNode;
using json::Node;

constexpr const char* clients_file = ".mcp.json";

// Reads what a server's object says.
class Reader {
 public:
  explicit Reader(Variables variables) : variables_(variables) {}

  Server read(const Node& declared) {
    constexpr std::array<std::string_view, 8> names = {
        "command", "args", "env", "cwd", "url", "protocol", "timeout", "type"};
    const auto [command, args, env, cwd, url, protocol, timeout, type] =
        declared.find_each(names);
    if (!command) refuse_lack_of_command(declared, url);
    if (url) url->refuse("no address beside a command", "one");
    require_standard_streams(type);
    server_.command = filled_text(*command, "a command");
    server_.label = label_of(*command, args);
    if (args) {
      args->for_each_element([&](const Node& each) { server_.args.push_back(text(each)); });
    }
    if (env) read_environment(*env);
    if (cwd) server_.cwd = filled_text(*cwd, "a directory");
    if (protocol) server_.protocol = protocol_of(*protocol);
    if (timeout) server_.timeout = time_of(*timeout);
    return std::move(server_);
  }

 private:
  std::string text(const Node& declared) {
    return text_of(declared, variables_, server_.secrets);
  }

  std::string filled_text(const Node& declared, const std::string& expected) {
    if (declared.string().empty()) declared.refuse(expected, "an empty string");
    return text(declared);
  }

  [[noreturn]] static void refuse_lack_of_command(const Node& declared, const MaybeNode& url) {
    if (!url) declared.refuse_lack("command");
    url->refuse(
        "a command in its place, such as a bridge to that address, or a saved answer given "
        "with --tools",
        "an address");
  }

  // Clients' files say so beside a command.
  static void require_standard_streams(const MaybeNode& type) {
    if (type && type->string() != "stdio") {
      type->refuse(R"("stdio")", registry_docs::in_quotes(type->string()));
    }
  }

  // The command and its arguments as they are declared.
  static std::string label_of(const Node& command, const MaybeNode& args) {
    constexpr std::size_t longest = 60;
    std::string label(command.string());
    if (args) {
      args->for_each_element([&](const Node& each) {
        label += ' ';
        label += each.string();
      });
    }
    label = registry_docs::visible(label);
    if (label.size() <= longest) return label;
    std::size_t end = longest;
    while ((static_cast<unsigned char>(label[end]) & 0xC0) == 0x80) --end;
    return label.substr(0, end) + "...";
  }

  void read_environment(const Node& declared) {
    declared.for_each_member([&](std::string_view name, const Node& value) {
      const bool is_name = !name.empty() && name.find('=') == std::string_view::npos &&
                           name.find('\0') == std::string_view::npos;
      if (!is_name) value.refuse("the name of a variable", registry_docs::in_quotes(name));
      server_.env.emplace_back(name, text(value));
    });
  }

  static Protocol protocol_of(const Node& declared) {
    if (declared.string() == "legacy" || declared.string() == "2025-11-25") {
      return Protocol::legacy;
    }
    if (declared.string() == "modern" || declared.string() == "2026-07-28") {
      return Protocol::modern;
    }
    declared.refuse(R"("2025-11-25" or "2026-07-28")",
                    registry_docs::in_quotes(declared.string()));
  }

  static std::chrono::milliseconds time_of(const Node& declared) {
    constexpr double most = 24 * 60 * 60;
    const registry_docs::Value value = declared.bound();
    double seconds = 0;
    if (const auto* const whole = std::get_if<std::int64_t>(&value.held())) {
      seconds = static_cast<double>(*whole);
    } else if (const auto* const part = std::get_if<double>(&value.held())) {
      seconds = *part;
    }
    if (!(seconds > 0 && seconds <= most)) {
      declared.refuse("a number of seconds", declared.json());
    }
    return std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000));
  }

  Variables variables_;
  Server server_ = {};
};

// The entry of that name in the clients' file of the repository.
Server clients_server(const Node& name, const std::filesystem::path& root,
                      Variables variables) {
  const std::filesystem::path path = root / clients_file;
  std::error_code failure;
  if (!std::filesystem::exists(path, failure)) {
    name.refuse("a server of " + std::string(clients_file) + ", or an object with its command",
                "no such file");
  }
  const json::Document document(
      path.string(), registry_docs::read_bytes(path, registry_docs::FileKind::regular));
  const Node entries = Node(document).at("mcpServers");
  const MaybeNode entry = entries.find(name.string());
  if (entry) return Reader(variables).read(*entry);
  std::vector<std::string_view> names;
  entries.for_each_member([&](std::string_view each, auto&&) { names.push_back(each); });
  std::string expected = "a server of " + std::string(clients_file);
  if (!names.empty())
    expected += ", one of " + registry_docs::visible(text::join(names, ", "));
  name.refuse(expected,
              names.empty() ? "none in it" : registry_docs::in_quotes(name.string()));
}

}  // namespace

Server server(const Node& declared, std::string_view name, const std::filesystem::path& root,
              Variables variables) {
  const bool is_clients = declared.kind() == Kind::string;
  Server found = is_clients ? clients_server(declared, root, variables)
                            : Reader(variables).read(declared);
  if (is_clients) found.label = registry_docs::visible(declared.string());
  if (!name.empty()) found.label = name;
  return found;
}

std::span<const std::string_view> server_members() {
  static constexpr std::array<std::string_view, 7> names = {
      "command", "args", "env", "cwd", "protocol", "timeout", "type"};
  return names;
}

}  // namespace registry
