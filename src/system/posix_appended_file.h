#pragma once

#include <memory>
#include <string>

#include "platform/appended_file.h"

namespace tallyfold {

// As FileSystem::OpenAppended() says.
[[nodiscard]] LockResult OpenPosixAppendedFile(const std::string& path, AppendedFileStart start,
                                               std::unique_ptr<AppendedFile>& file);

}  // namespace tallyfold
