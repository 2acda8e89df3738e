#include "storage/own_files.h"

#include <algorithm>
#include <optional>

#include "storage/backup_names.h"

namespace tallyfold {

namespace {

bool IsSame(const FileSystem& files, const FileIdentity& file, const std::string& path) {
  const auto other = files.Identity(path);
  return other && AreSameFile(file, *other);
}

// Whether the file is in the folder under a name that `matches`.
template <typename Matches>
bool IsIn(const FileSystem& files, const FileIdentity& file, const std::string& folder,
          Matches matches) {
  const auto names = files.List(folder);
  return std::any_of(names.begin(), names.end(), [&](const std::string& name) {
    return matches(name) && IsSame(files, file, folder + '/' + name);
  });
}

// The data file itself, its kept copies, and the note of them.
bool BelongsTo(const FileSystem& files, const FileIdentity& file, const std::string& data_file) {
  const std::string name = FileName(data_file);
  return IsSame(files, file, data_file) || IsSame(files, file, KeptNotePath(data_file)) ||
         IsIn(files, file, ParentFolder(data_file),
              [&name](const std::string& each) { return IsKeptCopyName(each, name); });
}

}  // namespace

bool LeadsTo(const FileSystem& files, const std::string& path, const std::string& other) {
  if (path == other) return true;
  if (const auto file = files.Identity(path)) return IsSame(files, *file, other);
  if (files.Exists(other) || FileName(path) != FileName(other)) return false;
  const auto folder = files.Identity(ParentFolder(path));
  return folder && IsSame(files, *folder, ParentFolder(other));
}

bool IsOwnFile(const FileSystem& files, const DataPaths& paths, const std::string& path) {
  const auto file = files.Identity(path);
  if (!file) {
    return LeadsTo(files, path, paths.accounts_file) ||
           LeadsTo(files, path, RecoveryFilePath(paths.accounts_file)) ||
           LeadsTo(files, path, paths.preferences_file) || LeadsTo(files, path, paths.history_file);
  }
  if (BelongsTo(files, *file, paths.accounts_file) ||
      BelongsTo(files, *file, RecoveryFilePath(paths.accounts_file)) ||
      BelongsTo(files, *file, paths.preferences_file) || IsSame(files, *file, paths.history_file)) {
    return true;
  }
  const auto parent = files.Identity(ParentFolder(path));
  const auto any = [](const std::string&) { return true; };
  for (const std::string& folder : {paths.backup_folder, paths.preferences_backup_folder}) {
    // The folder may be one that cannot be listed.
    if ((parent && IsSame(files, *parent, folder)) || IsIn(files, *file, folder, any)) return true;
  }
  return false;
}

}  // namespace tallyfold
