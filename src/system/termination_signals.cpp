#include "system/termination_signals.h"

#include <errno.h>
#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <system_error>

namespace tallyfold {
namespace {

constexpr std::array kSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

std::atomic<int> write_end{-1};
std::array<struct sigaction, kSignals.size()> former_actions;

extern "C" void TallyfoldNoteSignal(int number) {
  const int saved_errno = errno;
  const auto byte = static_cast<unsigned char>(number);
  // A full pipe already holds signals enough.
  [[maybe_unused]] const ssize_t written = ::write(write_end.load(), &byte, 1);
  errno = saved_errno;
}

}  // namespace

TerminationSignals::TerminationSignals() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    throw std::system_error(errno, std::generic_category(), "pipe2");
  }
  read_end_ = ends[0];
  write_end = ends[1];

  struct sigaction action = {};
  action.sa_handler = TallyfoldNoteSignal;
  action.sa_flags = SA_RESTART;
  ::sigemptyset(&action.sa_mask);
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    ::sigaction(kSignals[i], nullptr, &former_actions[i]);
    // A process started to ignore a signal (by nohup, or in the background of a script) stays so.
    if (former_actions[i].sa_handler != SIG_IGN) ::sigaction(kSignals[i], &action, nullptr);
  }
}

TerminationSignals::~TerminationSignals() {
  for (std::size_t i = 0; i < kSignals.size(); ++i) {
    ::sigaction(kSignals[i], &former_actions[i], nullptr);
  }
  ::close(write_end.exchange(-1));
  ::close(read_end_);
}

// NOLINTNEXTLINE(readability-make-member-function-const): it empties the pipe
std::optional<int> TerminationSignals::Take() noexcept {
  unsigned char number = 0;
  if (::read(read_end_, &number, 1) != 1) return std::nullopt;
  return number;
}

}  // namespace tallyfold
