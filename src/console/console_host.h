#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/application_host.h"

namespace tallyfold::console {

// The process as the application sees it. Nothing ends here and now: the session looks after each
// command whether it is to end, and how.
class ConsoleHost final : public ApplicationHost {
 public:
  explicit ConsoleHost(std::string version) : version_(std::move(version)) {}

  void Terminate() override { is_ending_ = true; }
  // The first status counts.
  void EndProcess(int status) override;
  [[nodiscard]] std::string BundleVersion() const override { return version_; }
  // The console has none: all it keeps is in the application's own files.
  void FlushUserDefaults() override {}

  // Asked to end in either way.
  [[nodiscard]] bool IsEnding() const noexcept { return is_ending_ || status_.has_value(); }
  // The status to end with at once, with nothing further saved; none for a normal end.
  [[nodiscard]] std::optional<int> Status() const noexcept { return status_; }

 private:
  std::string version_;
  bool is_ending_ = false;
  std::optional<int> status_;
};

}  // namespace tallyfold::console
