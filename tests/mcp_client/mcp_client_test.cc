// Asks a server that does what a script says.
#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <csignal>

#include "mcp_client/client.h"
#include "support/temporary_directory.h"
#include "support/text.h"

namespace mcp_client {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
namespace support = registry_docs::support;

// Many of the same byte in short, as "x{100}".
std::string in_short(const std::string& text) {
  std::string result;
  for (std::size_t i = 0, end = 0; i < text.size(); i = end) {
    end = std::min(text.find_first_not_of(text[i], i), text.size());
    const std::string count = std::to_string(end - i);
    result += end - i > 90 ? text[i] + ("{" + count + "}") : text.substr(i, end - i);
  }
  return result;
}

Server scripted(const std::string& script) {
  return {
      PYTHON, {TESTS_DIRECTORY "/mcp_client/server.py", script}, {{"VERSION", VERSION}}, {}};
}

class McpClient : public testing::Test {
 protected:
  // What a server leaves behind becomes a child of this process, and must have been killed.
  static void SetUpTestSuite() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }
  static void expect_nothing_left() {
    int status = 0;
    while (::waitpid(-1, &status, 0) > 0) EXPECT_EQ(WTERMSIG(status), SIGKILL);
  }

  // All that is said, and the tools or the failure.
  std::string outcome(const Server& server) {
    said.clear();
    try {
      said += list_tools(server, settings);
    } catch (const ServerError& error) {
      said += error.what();
    }
    expect_nothing_left();
    return in_short(support::replaced(said, PYTHON, "server"));
  }

  std::string said;
  Settings settings{Settings().timeout, [this](auto& line) { said += line + "\n"; }, {}};
};

// A case is its name with the first line of a script, the rest of that and "=>" if there is
// more of it, and the outcome.
TEST_F(McpClient, FindsTheToolsOrSaysWhatItFoundInstead) {
  for (auto& [head, rest, end] : support::read_cases("mcp_client/cases.txt")) {
    if (end.empty()) end.swap(rest);
    settings.timeout = head.starts_with("late") ? 300ms : Settings().timeout;
    const std::string script = head.substr(head.find(": ") + 2) + "\n" + rest;
    EXPECT_EQ(outcome(scripted(script)), end) << head;
  }
}

TEST_F(McpClient, StartsTheServerAsToldAndLetsItFinish) {
  const support::TemporaryDirectory directory;
  const std::string path = directory.path();
  Server server = scripted(
      "assert len(os.listdir('/proc/self/fd')) <= int(os.environ['FILES'])\n"
      "assert not signal.pthread_sigmask(signal.SIG_BLOCK, [])\n"
      "greet(); page(json.dumps([os.getcwd()]))\n"
      "print('x' * 5_000_000); open('last', 'w').write(sys.stdin.read())");
  server.command = "tools";
  server.cwd = path;
  const auto files = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  server.env.emplace_back("FILES", std::to_string(files));
  server.env.emplace_back("PATH", "/absent::/proc:" + path);
  const std::string refusal = ": expected a program that can be started, found: ";
  EXPECT_EQ(outcome(server), "tools" + refusal + "No such file or directory");
  fs::create_symlink(PYTHON, path + "/tools");
  EXPECT_EQ(outcome(server), R"({"tools":[")" + path + R"("]})");
  EXPECT_EQ(support::read_file(path + "/last"), "");
  server.command = "./last";
  EXPECT_EQ(outcome(server), "./last" + refusal + "Permission denied");
  server.cwd = path + "/last";
  EXPECT_EQ(outcome(server),
            "./last: expected to start in " + path + "/last, found: Not a directory");
}

TEST_F(McpClient, TellsOnceThatItWaitsAndIsEndedBySignals) {
  settings.waiting = settings.warn;
  EXPECT_EQ(outcome(scripted("time.sleep(2); greet(); page('[]')")),
            "server: waiting for the answer to initialize\n{\"tools\":[]}");
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    settings.waiting = [=](auto&) { std::raise(signal); };
    EXPECT_EXIT(outcome(scripted("time.sleep(60)")), testing::KilledBySignal(signal), "");
    expect_nothing_left();
  }
}

}  // namespace
}  // namespace mcp_client
