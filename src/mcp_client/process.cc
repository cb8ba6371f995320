#include "mcp_client/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>
#include <vector>

#include "port/pipe.h"
#include "port/spawn.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

using port::Descriptor;
using Variables = std::vector<std::string>;

void set(Variables& variables, const std::string& name, const std::string& value) {
  const auto is_old = [&](const std::string& line) { return line.starts_with(name + "="); };
  std::erase_if(variables, is_old);
  variables.push_back(name + "=" + value);
}

Variables variables_of(const Server& server) {
  Variables variables = port::variables();
  for (const auto& [name, value] : server.env) set(variables, name, value);
  return variables;
}

std::string search_path(const Variables& variables) {
  constexpr std::string_view name = "PATH=";
  for (const std::string& line : variables) {
    if (line.starts_with(name)) return line.substr(name.size());
  }
  return "/usr/local/bin:/usr/bin:/bin";
}

bool is_program(const std::string& path) {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         ::access(path.c_str(), X_OK) == 0;
}

// The first program of that name, or an empty path, which the system does not find either.
std::string find(const std::string& command, const std::string& directories) {
  for (std::size_t begin = 0; begin <= directories.size();) {
    const std::size_t end = std::min(directories.find(':', begin), directories.size());
    const std::string directory = directories.substr(begin, end - begin);
    std::string path = (directory.empty() ? "." : directory) + "/" + command;
    if (is_program(path)) return path;
    begin = end + 1;
  }
  return "";
}

// A server's command, as the system takes it.
struct Command {
  std::string path;  // the command's own, or what the server's PATH leads to; empty if nothing
  std::vector<std::string> arguments;
  Variables environment;
};

Command command_of(const Server& server) {
  Command command{server.command, {server.command}, variables_of(server)};
  command.arguments.insert(command.arguments.end(), server.args.begin(), server.args.end());
  if (server.command.find('/') == std::string::npos) {
    command.path = find(server.command, search_path(command.environment));
  }
  return command;
}

Descriptor without_blocking(Descriptor file) {
  port::require(::fcntl(file.number(), F_SETFL, O_NONBLOCK), "fcntl");
  return file;
}

// What is to happen between the making of the process and its program.
class Preparation {
 public:
  explicit Preparation(const sigset_t& mask) {
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETPGROUP | POSIX_SPAWN_SETSIGMASK);
    ::posix_spawnattr_setpgroup(&attributes_, 0);
    ::posix_spawnattr_setsigmask(&attributes_, &mask);
  }
  ~Preparation() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }
  Preparation(const Preparation&) = delete;
  Preparation& operator=(const Preparation&) = delete;

  void use(const Descriptor& file, int number) {
    ::posix_spawn_file_actions_adddup2(&actions_, file.number(), number);
  }
  void enter(const std::string& directory) { port::add_directory(actions_, directory); }
  // Returns the number of the failure, if any.
  int start(Command& command, pid_t& id) const;

 private:
  posix_spawn_file_actions_t actions_{};
  posix_spawnattr_t attributes_{};
};

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (std::string& text : texts) result.push_back(text.data());
  result.push_back(nullptr);
  return result;
}

int Preparation::start(Command& command, pid_t& id) const {
  const std::vector<char*> arguments = pointers(command.arguments);
  const std::vector<char*> environment = pointers(command.environment);
  return ::posix_spawn(&id, command.path.c_str(), &actions_, &attributes_, arguments.data(),
                       environment.data());
}

[[noreturn]] void refuse(const Server& server, const std::string& expected, int failure) {
  throw ServerError(registry_docs::visible(server.command) + ": expected " + expected +
                    ", found: " + std::generic_category().message(failure));
}

// The system does not say whether it was the program or its directory that failed.
void require_directory(const Server& server) {
  if (!server.cwd) return;
  struct stat status {};
  const bool is_there = ::stat(server.cwd->c_str(), &status) == 0;
  if (is_there && S_ISDIR(status.st_mode)) return;
  refuse(server, "to start in " + registry_docs::visible(*server.cwd),
         is_there ? ENOTDIR : errno);
}

}  // namespace

Process::Process(const Server& server, const sigset_t& mask) {
  port::Pipe in = port::make_pipe();
  port::Pipe out = port::make_pipe();
  port::Pipe error = port::make_pipe();
  input = without_blocking(std::move(in.writing));
  output = without_blocking(std::move(out.reading));
  errors = without_blocking(std::move(error.reading));
  Preparation preparation(mask);
  preparation.use(in.reading, STDIN_FILENO);
  preparation.use(out.writing, STDOUT_FILENO);
  preparation.use(error.writing, STDERR_FILENO);
  require_directory(server);
  if (server.cwd) preparation.enter(*server.cwd);
  Command command = command_of(server);
  const int failure = preparation.start(command, id_);
  if (failure != 0) {
    id_ = 0;
    refuse(server, "a program that can be started", failure);
  }
}

bool Process::has_exited() const noexcept {
  siginfo_t end{};
  return id_ == 0 ||
         ::waitid(P_PID, static_cast<id_t>(id_), &end, WEXITED | WNOHANG | WNOWAIT) != 0 ||
         end.si_pid != 0;
}

std::string Process::end() {
  const int status = reap();
  if (WIFEXITED(status)) return "it exited with code " + std::to_string(WEXITSTATUS(status));
  const int number = WTERMSIG(status);
  return "signal " + std::to_string(number) + " (" + ::strsignal(number) + ") ended it";
}

// As long as the first process is not reaped, nothing else can have the number of its group.
int Process::reap() noexcept {
  int status = 0;
  if (id_ == 0) return status;
  signal(SIGKILL);
  while (::waitpid(id_, &status, 0) < 0 && errno == EINTR) {
  }
  id_ = 0;
  return status;
}

}  // namespace mcp_client
