// Asks as many servers as the first argument says, all started by the arguments behind it, and
// prints what came of each, one per line.
#include <cstdio>
#include <cstdlib>

#include "mcp_client/client.h"

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  std::vector<mcp_client::Server> servers;
  for (int i = 1; i <= std::atoi(argv[1]); ++i) {
    servers.push_back({.label = std::to_string(i), .command = argv[2]});
    servers.back().args.assign(argv + 3, argv + argc);
  }
  bool has_failed = false;
  for (const auto& [answer, failure] : mcp_client::ask(servers, {})) {
    std::puts((answer + failure).c_str());
    has_failed = has_failed || !failure.empty();
  }
  return has_failed ? 1 : 0;
}
