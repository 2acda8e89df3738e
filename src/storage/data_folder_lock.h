#pragma once

#include <memory>

#include "platform/alerts.h"
#include "platform/application_host.h"
#include "platform/file_system.h"
#include "storage/save_gate.h"

namespace tallyfold {

// Lets one running copy of the program use a user's data. Held from the launch's first step to the
// end of the process.
class DataFolderLock {
 public:
  // The status with which a second copy ends.
  static constexpr int kDataInUseStatus = 2;

  // All must outlive this.
  DataFolderLock(FileSystem& files, Alerts& alerts, ApplicationHost& host, SaveGate& gate)
      : files_(files), alerts_(alerts), host_(host), gate_(gate) {}

  // Before Acquire(): where another copy has the data, this one goes on without writing any of it.
  void LookOnlyWhereInUse() noexcept { may_only_look_ = true; }

  // Takes the lock and clears away what interrupted writes of earlier runs left. When another copy
  // has it, tells the user, ends the process and returns false: the caller stops. One that may only
  // look closes the gate for good instead, cleans nothing and returns true. A folder that is
  // missing or cannot be locked is no obstacle.
  [[nodiscard]] bool Acquire();
  // Takes the lock now if the folder was not there before; quiet whatever comes of it.
  void AcquireLate();

  [[nodiscard]] bool IsHeld() const noexcept { return lock_ != nullptr; }
  [[nodiscard]] bool OnlyLooks() const noexcept { return only_looks_; }

 private:
  [[nodiscard]] LockResult Take();

  FileSystem& files_;
  Alerts& alerts_;
  ApplicationHost& host_;
  SaveGate& gate_;
  bool may_only_look_ = false;
  bool only_looks_ = false;
  std::unique_ptr<FolderLock> lock_;
};

}  // namespace tallyfold
