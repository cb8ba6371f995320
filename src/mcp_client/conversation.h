// What is said to a server, and what is understood of its lines, in both eras of the protocol.
#ifndef MCP_CLIENT_CONVERSATION_H
#define MCP_CLIENT_CONVERSATION_H

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "json/document.h"
#include "json/node.h"
#include "mcp_client/error.h"
#include "mcp_client/lists.h"
#include "mcp_client/server.h"

namespace mcp_client {

class Conversation {
 public:
  // Begins it. `warn` is told of what is passed over. Borrows both.
  Conversation(const Server& server, const std::function<void(const std::string&)>& warn);

  // Takes a line that the server wrote. Throws Mismatch when no answer can come of it.
  void hear(std::string line);

  // The lines that are to be sent to the server, each with its line feed. Leaves none.
  std::string take_outgoing();

  // Whether all is answered. Then `answer` is the one of Outcome, and given away.
  [[nodiscard]] bool is_over() const { return is_over_; }
  std::string answer() &&;

  // What is waited for, as "answer to tools/list".
  [[nodiscard]] std::string awaited() const { return "answer to " + method_; }

  // The message of a Mismatch for what did not come as a line.
  [[nodiscard]] std::string failure(const std::string& expected,
                                    const std::string& found) const;

 private:
  enum class Step { initialize, discover, list };

  void say(const std::string& members);
  void request(std::string_view method, const std::string& params);
  void initialize();
  void discover();
  void request_page(const std::string& cursor);
  void request_next_list();

  std::unique_ptr<json::Document> message_in(std::string line) const;
  [[nodiscard]] bool is_awaited(const json::Node& id) const;
  void respond(const json::Node& method, const json::MaybeNode& id);
  void take_error(const Error& error, bool has_id);
  void take_discovery_error(const Error& error);
  void take_list_error(const Error& error, bool has_id);
  void take_result(json::Document& message, const json::MaybeNode& result);
  void take_identity(const json::Document& result);
  void take_metadata(const json::Document& result);
  void begin_lists(const json::MaybeNode& capabilities);
  void add(std::string_view name, const std::string& json);
  void require_version(const std::vector<std::string>& supported) const;

  const Server* server_;
  const std::function<void(const std::string&)>* warn_;
  Step step_ = Step::initialize;
  std::string method_;  // of the request at hand
  std::string id_;
  unsigned requests_ = 0;
  bool is_modern_ = false;
  bool is_over_ = false;
  std::optional<Error> first_error_;          // the answer to initialize
  std::array<bool, all_lists.size()> has_{};  // those that the server announces
  std::size_t at_ = 0;                        // the list at hand
  Pages pages_;
  std::string outgoing_;
  std::string server_info_;
  std::string instructions_;
  std::string members_;  // the lists, as members of the answer
};

}  // namespace mcp_client

#endif  // MCP_CLIENT_CONVERSATION_H
