#include "storage/backups.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace tallyfold {

namespace {
constexpr const char* kCompress = "/usr/bin/compress";
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
  std::sort(backups.begin(), backups.end(), [](const BackupFile& a, const BackupFile& b) {
    return std::tie(b.made, b.name) < std::tie(a.made, a.name);
  });
  return backups;
}

bool MakeBackup(FileSystem& files, ProcessLauncher& processes, const std::string& from,
                const std::string& to) {
  if (!files.Copy(from, to)) return false;
  if (files.Exists(kCompress) && files.Exists(kUncompress)) processes.Launch(kCompress, {to});
  return true;
}

}  // namespace tallyfold
