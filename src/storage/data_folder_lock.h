#pragma once

#include <memory>

#include "platform/alerts.h"
#include "platform/application_host.h"
#include "platform/file_system.h"

namespace tallyfold {

// Lets one running copy of the program use a user's data. Held from the launch's first step to the
// end of the process.
class DataFolderLock {
 public:
  // The status with which a second copy ends.
  static constexpr int kDataInUseStatus = 2;

  DataFolderLock(FileSystem& files, Alerts& alerts, ApplicationHost& host)
      : files_(files), alerts_(alerts), host_(host) {}

  // Takes the lock and clears away what interrupted writes of earlier runs left. When another copy
  // has it, tells the user, ends the process and returns false: the caller stops. A folder that is
  // missing or cannot be locked is no obstacle.
  [[nodiscard]] bool Acquire();
  // Takes the lock now if the folder was not there before; quiet whatever comes of it.
  void AcquireLate();

  [[nodiscard]] bool IsHeld() const noexcept { return lock_ != nullptr; }

 private:
  [[nodiscard]] LockResult Take();

  FileSystem& files_;
  Alerts& alerts_;
  ApplicationHost& host_;
  std::unique_ptr<FolderLock> lock_;
};

}  // namespace tallyfold
