#include "storage/backups.h"

#include <algorithm>
#include <utility>

namespace tallyfold {

namespace {
constexpr const char* kCompress = "/usr/bin/compress";
// Tried in a folder that cannot be listed.
constexpr int kMostBackupNames = 1000;
constexpr const char* kUncompress = "/usr/bin/uncompress";
}  // namespace

std::vector<std::string> BackupNames(const FileSystem& files, const std::string& folder) {
  std::vector<std::string> names = files.List(folder);
  std::erase_if(names, [](const std::string& name) { return name.starts_with('.'); });
  return names;
}

std::vector<BackupFile> BackupsNewestFirst(const FileSystem& files, const std::string& folder) {
  std::vector<BackupFile> backups;
  for (std::string& name : BackupNames(files, folder)) {
    if (const auto made = files.CreationTime(folder + '/' + name)) {
      backups.push_back({std::move(name), *made});
    }
  }
  std::sort(backups.begin(), backups.end(), IsNewer);
  return backups;
}

bool MakeBackup(FileSystem& files, ProcessLauncher& processes, const std::string& from,
                const std::string& folder,
                const std::function<std::string(const std::vector<std::string>& taken)>& name) {
  std::vector<std::string> taken = BackupNames(files, folder);
  std::string to;
  for (int tries = 1;; ++tries) {
    std::string tried = name(taken);
    to = folder + '/' + tried;
    const WriteReport report = files.Copy(from, to);
    if (report) break;
    if (!report.found_another || tries == kMostBackupNames) return false;
    taken.push_back(std::move(tried));
  }
  if (files.Exists(kCompress) && files.Exists(kUncompress)) processes.Launch(kCompress, {to});
  return true;
}

}  // namespace tallyfold
