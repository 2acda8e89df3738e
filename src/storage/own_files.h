#pragma once

#include <string>

#include "platform/file_system.h"
#include "storage/data_paths.h"

namespace tallyfold {

// Whether both paths lead to one file, however they are written and whatever links they go through.
// Where neither is there yet: whether they are one name in one folder.
[[nodiscard]] bool LeadsTo(const FileSystem& files, const std::string& path,
                           const std::string& other);

// Whether `path` leads to a file of the program itself: accounts, preferences, backups, kept
// copies, the recovery log, what was typed. No command that writes a file of the user's choice may
// replace one.
[[nodiscard]] bool IsOwnFile(const FileSystem& files, const DataPaths& paths,
                             const std::string& path);

}  // namespace tallyfold
