#include "system/posix_terminal.h"

#include <errno.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <utility>

namespace tallyfold {
namespace {

constexpr std::size_t kReadSize = std::size_t{64} * 1024;

// False when some of it is lost.
bool WriteAll(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(descriptor, text.data(), text.size());
    if (count > 0) {
      text.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno == EAGAIN) {
      // Someone who shares the terminal with us made it non-blocking.
      struct pollfd writable = {descriptor, POLLOUT, 0};
      ::poll(&writable, 1, -1);
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
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

std::size_t PosixTerminal::Width() const {
  struct winsize size = {};
  if (!writes_to_person_ || ::ioctl(descriptors_.output, TIOCGWINSZ, &size) != 0) return 0;
  return size.ws_col;
}

// --- Reading ------------------------------------------------------------------------------------

std::optional<std::string> PosixTerminal::ReadLine(std::string_view prompt) {
  return ReadAny(prompt, nullptr);
}

std::optional<std::string> PosixTerminal::ReadCommand(std::string_view prompt,
                                                      const LineAids& aids) {
  return ReadAny(prompt, &aids);
}

std::optional<std::string> PosixTerminal::ReadAny(std::string_view prompt, const LineAids* aids) {
  NoticeSignals();
  // One that came earlier has stopped what ran then.
  is_interrupted_ = false;
  if (ending_signal_) return std::nullopt;
  std::string line;
  LineEditor* const editor = Editor();
  Read outcome = Read::Ended;
  if (editor != nullptr) {
    outcome = editor->ReadLine(prompt, aids, line);
    if (outcome == Read::Dropped) Write("^C");
    if (outcome != Read::Done) Write("\n");
    line.resize(std::min(line.size(), kLongestLine + 1));
  } else {
    prompt_ = prompt;
    if (reads_from_person_ && writes_to_person_) Write(prompt);
    outcome = ReadPlain(line);
    if (outcome == Read::Dropped && writes_to_person_) Write("\n");
  }
  if (outcome == Read::Ended) return std::nullopt;
  if (outcome == Read::Dropped) line.clear();
  return line;
}

std::optional<std::string> PosixTerminal::ReadSecret(std::string_view prompt) {
  if (!reads_from_person_) return ReadLine(prompt);
  NoticeSignals();
  is_interrupted_ = false;
  if (ending_signal_) return std::nullopt;
  const HiddenTyping hidden(descriptors_.input);
  for (;;) {
    if (writes_to_person_) Write(prompt);
    std::string line;
    const Read outcome = ReadPlain(line);
    if (outcome == Read::Ended) return std::nullopt;
    if (outcome == Read::Done) return line;
    if (writes_to_person_) Write("\n");
    is_interrupted_ = false;
  }
}

LineEditor* PosixTerminal::Editor() {
  if (!reads_from_person_ || !writes_to_person_) return nullptr;
  if (!std::exchange(has_tried_editor_, true)) {
    editor_ = LineEditor::Make(descriptors_.input, descriptors_.output,
                               [this](char32_t& character) { return ReadCharacter(character); });
  }
  return editor_.get();
}

PosixTerminal::Read PosixTerminal::ReadPlain(std::string& line) {
  // At a terminal the end is typed, and what follows it can be read.
  if (reads_from_person_) at_end_ = false;
  bool has_line = false;
  for (;;) {
    const std::string_view rest = std::string_view(buffer_).substr(taken_);
    const std::size_t feed = rest.find('\n');
    const std::string_view part = rest.substr(0, feed);
    line.append(part.substr(0, kLongestLine + 1 - line.size()));
    has_line = has_line || !rest.empty();
    if (feed != std::string_view::npos) {
      taken_ += feed + 1;
      return Read::Done;
    }
    const Read input = at_end_ ? Read::Ended : TakeInput();
    if (input == Read::Done) continue;
    ForgetInput();
    // A last line may lack its line feed; one that a signal cut off is none.
    return input == Read::Ended && has_line && at_end_ ? Read::Done : input;
  }
}

PosixTerminal::Read PosixTerminal::ReadCharacter(char32_t& character) {
  for (;;) {
    std::string_view rest = std::string_view(buffer_).substr(taken_);
    if (!rest.empty() && TakeTyped(rest, at_end_, character)) {
      taken_ = buffer_.size() - rest.size();
      return Read::Done;
    }
    // The rest of a character is put behind what is there of it.
    const std::string begun(rest);
    const Read input = TakeInput();
    if (input == Read::Done) {
      buffer_.insert(0, begun);
    } else if (input == Read::Ended && at_end_ && !begun.empty()) {
      buffer_ = begun;
    } else {
      ForgetInput();
      at_end_ = false;
      return input;
    }
  }
}

void PosixTerminal::ForgetInput() noexcept {
  buffer_.clear();
  taken_ = 0;
}

PosixTerminal::Read PosixTerminal::TakeInput() {
  if (WaitForInput()) return FillBuffer() ? Read::Done : Read::Ended;
  return is_interrupted_ && !ending_signal_ ? Read::Dropped : Read::Ended;
}

void PosixTerminal::NoticeSignals() {
  while (const auto signal = signals_.Take()) {
    if (*signal == SIGINT && reads_from_person_) {
      is_interrupted_ = true;
    } else if (!ending_signal_) {
      ending_signal_ = signal;
    }
  }
}

bool PosixTerminal::WaitForInput() {
  if (!reads_from_person_) {
    std::array<struct pollfd, 2> polled = {
        {{descriptors_.input, POLLIN, 0}, {signals_.descriptor(), POLLIN, 0}}};
    while (::poll(polled.data(), polled.size(), -1) < 0 && errno == EINTR) {
    }
    NoticeSignals();
    return !ending_signal_;
  }
  bool readable = false;
  const auto input = loop_.WatchReadable(descriptors_.input, [this, &readable] {
    readable = true;
    loop_.Stop();
  });
  const auto signals = loop_.WatchReadable(signals_.descriptor(), [this] { loop_.Stop(); });
  loop_.Run();
  NoticeSignals();
  return readable && !is_interrupted_ && !ending_signal_;
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

// --- Writing ------------------------------------------------------------------------------------

void PosixTerminal::Write(std::string_view text) {
  if (!WriteAll(descriptors_.output, text)) has_lost_output_ = true;
}

void PosixTerminal::WriteError(std::string_view text) {
  static_cast<void>(WriteAll(descriptors_.error, text));
}

void PosixTerminal::WriteMeanwhile(std::string_view line) {
  Write("\n" + std::string(line) + '\n');
  if (editor_) {
    editor_->ShowAgain();
  } else {
    Write(prompt_);
  }
}

}  // namespace tallyfold
