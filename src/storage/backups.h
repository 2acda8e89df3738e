#pragma once

#include <functional>
#include <string>
#include <tuple>
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

// Before which other one a backup stands in a list.
[[nodiscard]] inline bool IsNewer(const BackupFile& a, const BackupFile& b) {
  return std::tie(b.made, b.name) < std::tie(a.made, a.name);
}

// The names in a folder that do not begin with a dot.
[[nodiscard]] std::vector<std::string> BackupNames(const FileSystem& files,
                                                   const std::string& folder);
// The backups whose creation time can be read, the newest first.
[[nodiscard]] std::vector<BackupFile> BackupsNewestFirst(const FileSystem& files,
                                                         const std::string& folder);
// Copies `from` into `folder` and leaves the copy to the system's compress tool, where there is
// one. `name` gives the copy's name, from the names that are taken; no file is replaced, even where
// the folder cannot be listed. False when the copy fails.
[[nodiscard]] bool MakeBackup(
    FileSystem& files, ProcessLauncher& processes, const std::string& from,
    const std::string& folder,
    const std::function<std::string(const std::vector<std::string>& taken)>& name);

}  // namespace tallyfold
