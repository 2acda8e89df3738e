#pragma once

#include "platform/process_launcher.h"

namespace tallyfold {

// Starts programs that live on by themselves, also after this one has ended.
class SystemProcessLauncher final : public ProcessLauncher {
 public:
  bool Launch(const std::string& program, const std::vector<std::string>& arguments) override;
};

}  // namespace tallyfold
