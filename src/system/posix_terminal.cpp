#include "system/posix_terminal.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>

namespace tallyfold {
namespace {

constexpr std::size_t kReadSize = std::size_t{64} * 1024;

void WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count > 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      // Someone who shares the terminal with us made it non-blocking.
      struct pollfd writable = {descriptor, POLLOUT, 0};
      ::poll(&writable, 1, -1);
    } else if (errno != EINTR) {
      return;
    }
  }
}

// Keeps what is typed from being shown, as long as it lives.
class HiddenTyping {
 public:
  explicit HiddenTyping(int terminal) : terminal_(terminal) {
    changed_ = ::tcgetattr(terminal_, &former_) == 0;
    if (!changed_) return;
    struct termios hidden = former_;
    hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    // But that the line has ended is seen.
    hidden.c_lflag |= ECHONL;
    ::tcsetattr(terminal_, TCSAFLUSH, &hidden);
  }
  HiddenTyping(const HiddenTyping&) = delete;
  HiddenTyping& operator=(const HiddenTyping&) = delete;
  ~HiddenTyping() {
    if (changed_) ::tcsetattr(terminal_, TCSADRAIN, &former_);
  }

 private:
  int terminal_;
  struct termios former_ = {};
  bool changed_ = false;
};

}  // namespace

PosixTerminal::PosixTerminal(PollRunLoop& loop, TerminationSignals& signals)
    : PosixTerminal(loop, signals, Descriptors()) {}

PosixTerminal::PosixTerminal(PollRunLoop& loop, TerminationSignals& signals,
                             Descriptors descriptors)
    : loop_(loop),
      signals_(signals),
      descriptors_(descriptors),
      reads_from_person_(::isatty(descriptors.input) == 1),
      writes_to_person_(::isatty(descriptors.output) == 1) {
  ::signal(SIGPIPE, SIG_IGN);
}

std::optional<std::string> PosixTerminal::ReadLine(std::string_view prompt) {
  if (AskedToEnd()) return std::nullopt;
  if (reads_from_person_ && writes_to_person_) Write(prompt);
  std::string line;
  bool has_line = false;
  for (;;) {
    const std::string_view rest = std::string_view(buffer_).substr(taken_);
    const std::size_t feed = rest.find('\n');
    const std::string_view part = rest.substr(0, feed);
    line.append(part.substr(0, kLongestLine + 1 - line.size()));
    has_line = has_line || !rest.empty();
    if (feed != std::string_view::npos) {
      taken_ += feed + 1;
      return line;
    }
    if (at_end_ || !WaitForInput() || !FillBuffer()) break;
  }
  buffer_.clear();
  taken_ = 0;
  // A last line may lack its line feed; one that a signal cut off is none.
  if (!has_line || !at_end_) return std::nullopt;
  return line;
}

std::optional<std::string> PosixTerminal::ReadSecret(std::string_view prompt) {
  if (!reads_from_person_) return ReadLine(prompt);
  const HiddenTyping hidden(descriptors_.input);
  return ReadLine(prompt);
}

void PosixTerminal::Write(std::string_view text) {
  WriteAll(descriptors_.output, text);
}

void PosixTerminal::WriteError(std::string_view text) {
  WriteAll(descriptors_.error, text);
}

bool PosixTerminal::AskedToEnd() const {
  struct pollfd polled = {signals_.descriptor(), POLLIN, 0};
  return ::poll(&polled, 1, 0) > 0;
}

bool PosixTerminal::WaitForInput() {
  std::array<struct pollfd, 2> polled = {
      {{descriptors_.input, POLLIN, 0}, {signals_.descriptor(), POLLIN, 0}}};
  if (!reads_from_person_) {
    while (::poll(polled.data(), polled.size(), -1) < 0 && errno == EINTR) {
    }
    return polled[1].revents == 0;
  }
  bool readable = false;
  const auto input = loop_.WatchReadable(descriptors_.input, [this, &readable] {
    readable = true;
    loop_.Stop();
  });
  const auto signals = loop_.WatchReadable(signals_.descriptor(), [this] { loop_.Stop(); });
  loop_.Run();
  return readable;
}

bool PosixTerminal::FillBuffer() {
  taken_ = 0;
  buffer_.resize(kReadSize);
  ssize_t count = 0;
  do {
    count = ::read(descriptors_.input, buffer_.data(), buffer_.size());
  } while (count < 0 && (errno == EINTR || errno == EAGAIN));
  buffer_.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  at_end_ = count <= 0;
  return !at_end_;
}

}  // namespace tallyfold
