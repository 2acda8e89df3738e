#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tallyfold {

// Where the application keeps its files. Folders end without a slash.
struct DataPaths {
  explicit DataPaths(const std::string& home);

  std::string data_folder;
  std::string accounts_file;
  // What was typed at the console, while no password protects the application.
  std::string history_file;
  std::string backup_folder;
  std::string preferences_folder;
  std::string preferences_file;
  std::string preferences_backup_folder;
};

// "/a/b" of "/a/b/c"; "/" of "/c"; "" where there is no slash.
[[nodiscard]] std::string ParentFolder(const std::string& path);
// "c" of "/a/b/c".
[[nodiscard]] std::string FileName(const std::string& path);

// Where copies that were kept of the file at `path` are noted for the next run.
[[nodiscard]] std::string KeptNotePath(const std::string& path);
// Where the recovery log of the accounts file at `path` lies.
[[nodiscard]] std::string RecoveryFilePath(const std::string& path);

// Makes the folder where nothing stands at `path`, and those above it that are missing. False when
// a file stands there: then `line_for_file` is logged. A folder that cannot be made is not
// reported; what is done in it next will fail.
[[nodiscard]] bool EnsureFolder(FileSystem& files, const std::string& path,
                                std::string_view line_for_file);

}  // namespace tallyfold
