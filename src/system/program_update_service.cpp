#include "system/program_update_service.h"

#include <errno.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace tallyfold {

ProgramUpdateService::ProgramUpdateService(RunLoop& loop, Fetcher fetcher)
    : loop_(loop), fetcher_(std::move(fetcher)), look_(loop) {}

ProgramUpdateService::ProgramUpdateService(RunLoop& loop)
    : ProgramUpdateService(loop, {"curl",
                                  {"--silent", "--fail", "--location", "--max-time", "15",
                                   "--max-filesize", "1000", "--url"}}) {}

void ProgramUpdateService::FetchLatestVersion(const std::string& address, Answer answer) {
  Cancel();
  answer_ = std::move(answer);
  deadline_ = loop_.Now() + kTimeLimit;
  // One that cannot be started has ended without a word.
  static_cast<void>(Start(address));
  look_.Start(kPause, [this] { LookAfter(); });
}

bool ProgramUpdateService::Start(const std::string& address) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) return false;
  output_ = Descriptor(ends[0]);
  const Descriptor written(ends[1]);
  // A child of the program may hold the other end open longer than the program runs.
  if (::fcntl(output_.number(), F_SETFL, O_NONBLOCK) != 0) return false;
  std::vector<std::string> arguments = fetcher_.arguments;
  arguments.push_back(address);
  return running_.Start(fetcher_.program, arguments, written.number());
}

void ProgramUpdateService::LookAfter() {
  if (running_.IsRunning() && loop_.Now() < deadline_) {
    return look_.Start(kPause, [this] { LookAfter(); });
  }
  const bool has_ended = !running_.IsRunning();
  running_.End();
  const std::string line = has_ended ? FirstLine() : "";
  const Answer answer = std::exchange(answer_, nullptr);
  answer(line.empty() ? std::nullopt : std::optional(line));
}

std::string ProgramUpdateService::FirstLine() const {
  std::array<char, 100> bytes{};
  ssize_t count = 0;
  do {
    count = ::read(output_.number(), bytes.data(), bytes.size());
  } while (count < 0 && errno == EINTR);
  const auto end = bytes.begin() + std::max<ssize_t>(count, 0);
  return {bytes.begin(), std::find_if(bytes.begin(), end, [](char c) { return c < ' '; })};
}

void ProgramUpdateService::Cancel() noexcept {
  look_.Cancel();
  running_.End();
  output_ = Descriptor();
  answer_ = nullptr;
}

}  // namespace tallyfold
