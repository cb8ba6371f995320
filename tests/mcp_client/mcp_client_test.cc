// Asks servers that do what scripts say.
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

Server scripted(const std::string& script, const std::string& label = "server") {
  return {.label = label,
          .command = PYTHON,
          .args = {TESTS_DIRECTORY "/mcp_client/server.py", script},
          .env = {{"VERSION", VERSION}}};
}

class McpClient : public testing::Test {
 protected:
  // What a server leaves behind becomes a child of this process, and must have been killed.
  static void SetUpTestSuite() { ::prctl(PR_SET_CHILD_SUBREAPER, 1); }
  static void expect_nothing_left() {
    int status = 0;
    while (::waitpid(-1, &status, 0) > 0) EXPECT_TRUE(WIFSIGNALED(status));
  }

  // All that is said, and the answer or the failure of each.
  std::string outcomes(const std::vector<Server>& servers) {
    said.clear();
    for (const auto& [answer, failure] : ask(servers, settings)) {
      said += (said.empty() || said.back() == '\n' ? "" : "\n") + answer + failure;
    }
    expect_nothing_left();
    return in_short(said);
  }
  std::string outcome(const Server& server) { return outcomes({server}); }

  std::string said;
  Settings settings{.warn = [this](auto& line) { said += line + "\n"; }};
};

// A case is its name with the first line of a script, the rest of that and "=>" if there is
// more of it, and the outcome.
TEST_F(McpClient, FindsTheAnswerOrSaysWhatItFoundInstead) {
  for (auto& [head, rest, end] : support::read_cases("mcp_client/cases.txt")) {
    if (end.empty()) end.swap(rest);
    Server server = scripted(head.substr(head.find(": ") + 2) + "\n" + rest);
    if (head.starts_with("late")) server.timeout = 300ms;
    if (head.starts_with("(modern)")) server.protocol = Protocol::modern;
    if (head.starts_with("(legacy)")) server.protocol = Protocol::legacy;
    EXPECT_EQ(outcome(server), end) << head;
  }
}

TEST_F(McpClient, StartsTheServerAsToldAndLetsItFinish) {
  const support::TemporaryDirectory directory;
  const std::string path = directory.path();
  Server server = scripted(
      "assert len(os.listdir('/proc/self/fd')) <= int(os.environ['FILES'])\n"
      "assert not signal.pthread_sigmask(signal.SIG_BLOCK, [])\n"
      "signal.signal(signal.SIGTERM, signal.SIG_IGN)\n"
      "greet(); page(json.dumps([os.getcwd()]))\n"
      "print('x' * 5_000_000); open('last', 'w').write(sys.stdin.read())");
  server.command = "tools";
  server.cwd = path;
  const auto files = std::distance(fs::directory_iterator("/proc/self/fd"), {});
  server.env.emplace_back("FILES", std::to_string(files));
  server.env.emplace_back("PATH", "/absent::/proc:" + path);
  const std::string refusal = "server: expected a program that can be started, found '";
  EXPECT_EQ(outcome(server), refusal + "tools': No such file or directory");
  fs::create_symlink(PYTHON, path + "/tools");
  EXPECT_EQ(outcome(server), R"({"tools":[")" + path + R"("]})");
  EXPECT_EQ(support::read_file(path + "/last"), "");
  server.command = "./last";
  EXPECT_EQ(outcome(server), refusal + "./last': Permission denied");
  server.cwd = path + "/last";
  EXPECT_EQ(outcome(server),
            "server: expected to start in " + path + "/last, found: Not a directory");
}

// Six servers of which two may run at once: each fails or answers by itself, in its own time.
TEST_F(McpClient, AsksManyServersSideBySide) {
  std::vector<Server> servers;
  for (const char* const script :
       {"time.sleep(60)", "greet(); page('[1]')", "sys.exit(2)",
        "greet(); time.sleep(0.3); page('[2]')",
        "print('hi'); begin(); refuse(); discover(); page('[3]')", "greet(); page('[4]')"}) {
    servers.push_back(scripted(script, std::to_string(servers.size())));
  }
  servers[0].timeout = 1500ms;
  servers[2].command = "/absent";
  settings.at_once = 2;
  EXPECT_EQ(
      outcomes(servers),
      "4: expected a JSON-RPC message in every line, found 'hi'\n"
      "0: expected an answer to initialize within 1.5 s, found none\n"
      "{\"tools\":[1]}\n"
      "2: expected a program that can be started, found '/absent': No such file or "
      "directory\n"
      "{\"tools\":[2]}\n{\"serverInfo\":{\"name\": \"s\"},\"tools\":[3]}\n{\"tools\":[4]}");
}

TEST_F(McpClient, TellsOfServersThatItWaitsFor) {
  settings.waiting = [this](const Progress& progress) {
    said += std::to_string(progress.answered) + "/" + std::to_string(progress.asked);
    for (const auto& [label, answer] : progress.awaited) said += " " + label + ": " + answer;
    said += "\n";
  };
  settings.at_once = 2;
  const std::vector<Server> servers = {scripted("greet(); page('[1]')", "a"),
                                       scripted("greet(); time.sleep(2.5); page('[2]')", "b"),
                                       scripted("time.sleep(1.5); greet(); page('[3]')", "c"),
                                       scripted("greet(); page('[4]')", "d")};
  EXPECT_EQ(outcomes(servers),
            "1/4 b: answer to tools/list c: answer to initialize d: start\n"
            "2/4 b: answer to tools/list d: answer to initialize\n"
            "3/4 b: answer to tools/list\n4/4\n"
            "{\"tools\":[1]}\n{\"tools\":[2]}\n{\"tools\":[3]}\n{\"tools\":[4]}");
}

TEST_F(McpClient, IsEndedBySignalsWhenTheServersHaveEnded) {
  const std::vector<Server> servers(
      3, scripted("subprocess.Popen(['sleep', '60']); time.sleep(60)"));
  settings.at_once = 2;
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT}) {
    settings.waiting = [=](auto&) { std::raise(signal); };
    EXPECT_EXIT(outcomes(servers), testing::KilledBySignal(signal), "");
    expect_nothing_left();
  }
  settings.waiting = [](auto&) { std::raise(SIGTERM); };
  // A handler of the program's own is called when all is over.
  static bool is_called = false;
  const auto handler = std::signal(SIGTERM, [](int) { is_called = true; });
  const std::string interrupted = "found a signal that asks to end";
  EXPECT_EQ(outcomes(servers), "server: expected an answer to initialize, " + interrupted +
                                   "\nserver: expected an answer to initialize, " +
                                   interrupted + "\nserver: expected to be asked, " +
                                   interrupted);
  EXPECT_TRUE(is_called);
  static_cast<void>(std::signal(SIGTERM, handler));
}

TEST_F(McpClient, PassesOnWhatTheSettingsThrow) {
  settings.warn = [](auto&) { throw std::runtime_error("no room"); };
  const std::vector<Server> servers = {scripted("print('hi'); time.sleep(60)"),
                                       scripted("time.sleep(60)")};
  EXPECT_EQ(support::message_of<std::runtime_error>([&] { ask(servers, settings); }),
            "no room");
  expect_nothing_left();
}

}  // namespace
}  // namespace mcp_client
