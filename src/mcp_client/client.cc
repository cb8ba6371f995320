#include "mcp_client/client.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <deque>
#include <optional>
#include <utility>

#include "mcp_client/exchange.h"
#include "mcp_client/loop.h"
#include "mcp_client/signals.h"
#include "port/descriptor.h"

namespace mcp_client {
namespace {

// From then on a person wonders.
constexpr std::chrono::milliseconds short_wait{1000};

// Open files in the places of the standard ones that this program was started without, which
// the pipes would take.
std::vector<port::Descriptor> missing_standard_files() {
  std::vector<port::Descriptor> files;
  for (;;) {
    port::Descriptor file(port::require(::open("/dev/null", O_RDWR | O_CLOEXEC), "/dev/null"));
    if (file.number() > STDERR_FILENO) return files;
    files.push_back(std::move(file));
  }
}

class Asking {
 public:
  Asking(std::span<const Server> servers, const Settings& settings);
  ~Asking() { held_.close(loop_); }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;
  std::vector<Outcome> run();

 private:
  void start_more();
  void stop();
  void tell();

  std::span<const Server> servers_;
  const Settings* settings_;
  SignalsHeld held_;  // until all servers have ended
  std::vector<port::Descriptor> standard_files_ = missing_standard_files();
  std::deque<Exchange> exchanges_;  // of the servers in their order, up to the last started
  std::size_t running_ = 0;
  bool is_stopped_ = false;
  bool is_long_ = false;
  std::optional<Timer> wonder_;
  Loop loop_;  // ends before all that it calls
};

Asking::Asking(std::span<const Server> servers, const Settings& settings)
    : servers_(servers), settings_(&settings) {
  loop_.give_up = [this] { stop(); };
  wonder_.emplace(loop_, [this] {
    is_long_ = true;
    tell();
  });
  wonder_->set(short_wait);
  wonder_->make_optional();
  held_.watch(loop_, [this] { stop(); });
}

std::vector<Outcome> Asking::run() {
  loop_.guard([this] { start_more(); });
  loop_.run();
  std::vector<Outcome> outcomes;
  for (Exchange& exchange : exchanges_) outcomes.push_back(exchange.take_outcome());
  for (std::size_t i = outcomes.size(); i < servers_.size(); ++i) {
    outcomes.push_back({.failure = servers_[i].label +
                                   ": expected to be asked, found a signal that asks to end"});
  }
  return outcomes;
}

void Asking::start_more() {
  const std::size_t most = std::max<std::size_t>(settings_->at_once, 1);
  while (!is_stopped_ && running_ < most && exchanges_.size() < servers_.size()) {
    const std::size_t index = exchanges_.size();
    exchanges_.emplace_back(loop_, servers_[index], *settings_, [this] {
      --running_;
      start_more();
      tell();
    });
    running_ += exchanges_.back().start() ? 1U : 0U;
  }
}

// Which ends all servers, and starts no more.
void Asking::stop() {
  is_stopped_ = true;
  for (Exchange& exchange : exchanges_) exchange.interrupt();
}

void Asking::tell() {
  if (!is_long_ || !settings_->waiting || is_stopped_) return;
  Progress progress{.asked = servers_.size()};
  for (const Exchange& exchange : exchanges_) {
    if (exchange.is_running()) progress.awaited.push_back(exchange.awaited());
  }
  for (std::size_t i = exchanges_.size(); i < servers_.size(); ++i) {
    progress.awaited.push_back({servers_[i].label, "start"});
  }
  progress.answered = progress.asked - progress.awaited.size();
  settings_->waiting(progress);
}

}  // namespace

std::vector<Outcome> ask(std::span<const Server> servers, const Settings& settings) {
  if (servers.empty()) return {};
  return Asking(servers, settings).run();
}

}  // namespace mcp_client
