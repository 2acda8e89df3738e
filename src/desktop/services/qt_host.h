#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "platform/application_host.h"

namespace tallyfold::desktop {

// The process the window runs in. Nothing ends inside the call: the event loop is told.
class QtHost final : public ApplicationHost {
 public:
  explicit QtHost(std::string version) : version_(std::move(version)) {}

  // Called, after the present event, when the normal end is asked for, and once only.
  void SetTerminate(std::function<void()> terminate) { terminate_ = std::move(terminate); }
  // Called when the user's settings are to be on the disk.
  void SetFlush(std::function<void()> flush) { flush_ = std::move(flush); }

  void Terminate() override;
  void EndProcess(int status) override;
  [[nodiscard]] std::string BundleVersion() const override { return version_; }
  void FlushUserDefaults() override;

  // The status to end with at once, with nothing further saved; none for a normal end.
  [[nodiscard]] std::optional<int> Status() const noexcept { return status_; }
  // The end that was asked for did not come about: it may be asked for again.
  void StayAlive() noexcept { is_terminating_ = false; }

 private:
  std::string version_;
  std::function<void()> terminate_;
  std::function<void()> flush_;
  bool is_terminating_ = false;
  std::optional<int> status_;
};

}  // namespace tallyfold::desktop
