#pragma once

#include <cstddef>

#include "platform/alerts.h"

namespace tallyfold::desktop {

// Alerts as message boxes over the window that is active.
class QtAlerts final : public Alerts {
 public:
  std::size_t Run(const AlertRequest& request) override;
  // Whether one is up.
  [[nodiscard]] bool IsUp() const noexcept { return depth_ > 0; }

 private:
  int depth_ = 0;
};

}  // namespace tallyfold::desktop
