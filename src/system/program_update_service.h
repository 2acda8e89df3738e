#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "platform/run_loop.h"
#include "platform/update_service.h"
#include "system/child_process.h"
#include "system/descriptor.h"

namespace tallyfold {

// Fetches the latest version by a program that is installed anyway: what the address answers in
// its first line. One that takes too long is ended.
class ProgramUpdateService final : public UpdateService {
 public:
  // A program that writes to its standard output what its last argument, an address, answers.
  struct Fetcher {
    std::string program;
    std::vector<std::string> arguments;  // before the address
  };

  static constexpr std::chrono::milliseconds kTimeLimit = std::chrono::seconds(20);
  // How often it is looked after.
  static constexpr std::chrono::milliseconds kPause = std::chrono::milliseconds(200);

  ProgramUpdateService(RunLoop& loop, Fetcher fetcher);
  // With the program that most systems have.
  explicit ProgramUpdateService(RunLoop& loop);

  void FetchLatestVersion(const std::string& address, Answer answer) override;
  void Cancel() noexcept override;

 private:
  [[nodiscard]] bool Start(const std::string& address);
  void LookAfter();
  [[nodiscard]] std::string FirstLine() const;

  RunLoop& loop_;
  Fetcher fetcher_;
  ChildProcess running_;
  // The end that we read of the pipe that it writes.
  Descriptor output_;
  std::chrono::milliseconds deadline_{0};
  Answer answer_;
  DelayedCall look_;
};

}  // namespace tallyfold
