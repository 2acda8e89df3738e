#pragma once

#include <string_view>

#include "platform/ambient.h"
#include "platform/system_log.h"

namespace tallyfold {

// Hears, for its own lifetime, whether records that are being read refuse a stored value. Records
// say so in the log alone, always in the same few phrases; a key that is merely missing is no
// refusal, since nothing is lost by it.
class RefusalWatch final : private SystemLog {
 public:
  RefusalWatch() : log_(CurrentLog()), ambient_({.log = this}) {}
  RefusalWatch(const RefusalWatch&) = delete;
  RefusalWatch& operator=(const RefusalWatch&) = delete;

  [[nodiscard]] bool HeardRefusal() const noexcept { return heard_; }

 private:
  void Write(std::string_view line) override;

  SystemLog* log_;
  bool heard_ = false;
  ScopedAmbient ambient_;
};

}  // namespace tallyfold
