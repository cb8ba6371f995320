#include "mcp_client/process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <vector>

#include "mcp_client/command.h"
#include "registry_docs/text.h"

namespace mcp_client {
namespace {

struct Pipe {
  Descriptor reading;
  Descriptor writing;
};

// The same file under a number that is none of the standard ones, which a program may have
// been started without.
Descriptor above_standard(const Descriptor& file) {
  const int number = ::fcntl(file.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
  return Descriptor(require(number, "fcntl"));
}

Pipe make_pipe() {
  std::array<int, 2> numbers{};
  require(::pipe2(numbers.data(), O_CLOEXEC), "pipe2");
  const Descriptor reading(numbers[0]);
  const Descriptor writing(numbers[1]);
  return {above_standard(reading), above_standard(writing)};
}

Descriptor without_blocking(Descriptor file) {
  require(::fcntl(file.number(), F_SETFL, O_NONBLOCK), "fcntl");
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
  void enter(const std::string& directory) {
    ::posix_spawn_file_actions_addchdir_np(&actions_, directory.c_str());
  }
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
  const std::string expected = "to start in " + registry_docs::visible(*server.cwd);
  const Descriptor directory(::open(server.cwd->c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
  if (!directory.is_open()) refuse(server, expected, errno);
}

}  // namespace

Process::Process(const Server& server, const sigset_t& mask) {
  Pipe in = make_pipe();
  Pipe out = make_pipe();
  Pipe error = make_pipe();
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
