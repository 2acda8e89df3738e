#pragma once

#include <string>
#include <vector>

namespace tallyfold {

// Starts other programs.
class ProcessLauncher {
 public:
  virtual ~ProcessLauncher() = default;
  // Starts the program at the absolute path and does not wait for it. False when it could not be
  // started.
  virtual bool Launch(const std::string& program, const std::vector<std::string>& arguments) = 0;
};

}  // namespace tallyfold
