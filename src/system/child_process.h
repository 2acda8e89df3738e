#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace tallyfold {

// A program that was started and is ended with this object.
class ChildProcess {
 public:
  ChildProcess() = default;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() { End(); }

  // Ends the former one, then starts `program` (an absolute path, or a name to look for along
  // PATH) with nothing to read. What it writes to its standard output goes to the descriptor
  // `output`, which stays the caller's, or nowhere (-1). False when it cannot be started.
  bool Start(const std::string& program, const std::vector<std::string>& arguments,
             int output = -1);
  [[nodiscard]] bool IsRunning();
  // Whether the last one has ended by itself with another status than 0.
  [[nodiscard]] bool HasFailed() { return !IsRunning() && has_failed_; }
  void End() noexcept;
  // Leaves a running one to itself, and to the system what is left of it: for the end of ours.
  void LetGo() noexcept { pid_ = 0; }

 private:
  pid_t pid_ = 0;  // 0: none
  bool has_failed_ = false;
};

// Starts `program`, an absolute path, as a process that lives on by itself and leaves nothing for
// us to clear away. It reads nothing, writes nowhere and complains on our standard error.
bool StartDetached(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace tallyfold
