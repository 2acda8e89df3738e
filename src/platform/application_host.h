#pragma once

#include <string>

namespace tallyfold {

// The process the application runs in.
class ApplicationHost {
 public:
  virtual ~ApplicationHost() = default;
  // Asks for the normal end of the program: the shut-down steps run, then the process ends. May
  // return before that.
  virtual void Terminate() = 0;
  // Ends the process with `status` and nothing further saved. Real hosts do not return at once
  // either; the caller must do nothing more after it.
  virtual void EndProcess(int status) = 0;
  // The running program's version, for example "2.0".
  [[nodiscard]] virtual std::string BundleVersion() const = 0;
  virtual void FlushUserDefaults() = 0;
};

}  // namespace tallyfold
