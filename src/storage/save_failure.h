#pragma once

#include <string>

#include "platform/file_system.h"
#include "platform/message.h"

namespace tallyfold {

// Why a file could not be saved, in words for the user.
struct SaveFailure {
  // What could not be done: "writing the new file".
  std::string step;
  // The system's or the program's own reason: "No space left on device".
  std::string reason;

  [[nodiscard]] std::string Text() const { return Message("{1}: {2}", {step, reason}); }
};

[[nodiscard]] SaveFailure SaveFailureOf(const FileFailure& failure);

// There was no memory to write a file.
[[nodiscard]] SaveFailure MemoryFailure();

// The folder that a file is to be saved in is missing, or a file stands there.
[[nodiscard]] SaveFailure FolderFailure(bool a_file_stands_there);

}  // namespace tallyfold
