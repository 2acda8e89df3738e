#include "storage/data_folder_lock.h"

#include "platform/ambient.h"
#include "storage/data_paths.h"

namespace tallyfold {

LockResult DataFolderLock::Take() {
  const DataPaths paths(files_.HomeFolder());
  const LockResult result = files_.LockFolder(paths.data_folder, lock_);
  if (result == LockResult::Held) {
    for (const std::string& folder : {paths.data_folder, paths.backup_folder,
                                      paths.preferences_folder, paths.preferences_backup_folder}) {
      files_.RemoveTemporaries(folder);
    }
  }
  return result;
}

bool DataFolderLock::Acquire() {
  if (IsHeld() || Take() != LockResult::HeldByOther) return true;
  if (may_only_look_) {
    only_looks_ = true;
    gate_.CloseForGood();
    return true;
  }
  alerts_.Run({LocalizedText("Tallyfold Is Already Running"),
               LocalizedText("Another copy of Tallyfold is using your accounts.  Please use that "
                             "copy, or quit it before you start Tallyfold again."),
               {LocalizedText("Quit")}});
  host_.EndProcess(kDataInUseStatus);
  return false;
}

void DataFolderLock::AcquireLate() {
  // Should another copy have been quicker, both go on: each keeps a copy of what the other wrote
  // before it writes its own.
  if (!IsHeld()) static_cast<void>(Take());
}

}  // namespace tallyfold
