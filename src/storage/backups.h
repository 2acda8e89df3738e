#pragma once

#include <string>
#include <vector>

#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/process_launcher.h"

namespace tallyfold {

// A copy in a backup folder.
struct BackupFile {
  std::string name;
  Instant made;
};

// The names in a folder that do not begin with a dot.
[[nodiscard]] std::vector<std::string> BackupNames(const FileSystem& files,
                                                   const std::string& folder);
// The backups whose creation time can be read, the newest first.
[[nodiscard]] std::vector<BackupFile> BackupsNewestFirst(const FileSystem& files,
                                                         const std::string& folder);
// Copies `from` to `to` and leaves the copy to the system's compress tool, where there is one.
// False when the copy fails.
[[nodiscard]] bool MakeBackup(FileSystem& files, ProcessLauncher& processes,
                              const std::string& from, const std::string& to);

}  // namespace tallyfold
