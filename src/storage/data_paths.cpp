#include "storage/data_paths.h"

#include <vector>

#include "platform/ambient.h"

namespace tallyfold {

DataPaths::DataPaths(const std::string& home)
    : data_folder(home + "/Library/Tallyfold"),
      accounts_file(data_folder + "/Accounts.plist"),
      history_file(data_folder + "/Console History"),
      backup_folder(data_folder + "/Backups"),
      preferences_folder(home + "/Library/Preferences/Quorva"),
      preferences_file(preferences_folder + "/Tallyfold Preferences"),
      preferences_backup_folder(preferences_folder + "/Backups") {}

std::string ParentFolder(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {};
  return path.substr(0, slash == 0 ? 1 : slash);
}

std::string FileName(const std::string& path) {
  return path.substr(path.rfind('/') + 1);
}

std::string KeptNotePath(const std::string& path) {
  return path + ".kept";
}

std::string RecoveryFilePath(const std::string& path) {
  return path + ".recovery";
}

bool EnsureFolder(FileSystem& files, const std::string& path, std::string_view line_for_file) {
  if (files.Exists(path)) {
    if (files.IsFolder(path)) return true;
    Log(line_for_file);
    return false;
  }
  std::vector<std::string> missing{path};
  for (std::string parent = ParentFolder(path); parent.size() > 1 && !files.Exists(parent);
       parent = ParentFolder(parent)) {
    missing.push_back(parent);
  }
  while (!missing.empty() && files.CreateFolder(missing.back())) missing.pop_back();
  return true;
}

}  // namespace tallyfold
