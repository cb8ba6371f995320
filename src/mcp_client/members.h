// The members of a JSON object, as the texts that they were written in.
#ifndef MCP_CLIENT_MEMBERS_H
#define MCP_CLIENT_MEMBERS_H

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mcp_client {

// JSON without the white space around it.
std::string_view trimmed(std::string_view json);

struct Member {
  std::string name;
  std::string_view value;  // JSON, trimmed
};

class Members {
 public:
  explicit Members(std::vector<Member> members) : members_(std::move(members)) {}

  // The value of the last member with that name; of none, or of null, an empty text.
  [[nodiscard]] std::string_view operator[](std::string_view name) const;

 private:
  std::vector<Member> members_;
};

// Nothing for a text that is no JSON or no object. Borrows `json`. Takes time by its length,
// and memory by its longest string.
std::optional<Members> members_of(std::string_view json);

// The characters of a JSON string, or nothing for another value.
std::optional<std::string> characters_of(std::string_view json);

}  // namespace mcp_client

#endif  // MCP_CLIENT_MEMBERS_H
