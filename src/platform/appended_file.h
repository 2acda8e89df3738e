#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.h"

namespace tallyfold {

// A file of the program's own that grows by whole records. As long as the object lives the file is
// open and locked against other running copies. No operation throws but for want of memory.
class AppendedFile {
 public:
  virtual ~AppendedFile() = default;

  // All there is in it; none when it cannot be read.
  [[nodiscard]] virtual std::optional<FileContents> Read() const = 0;
  // Its folder still holds it under its name.
  [[nodiscard]] virtual bool IsInPlace() const noexcept = 0;
  // Writes at the end, durably. False leaves anything from none to all of the bytes there: the
  // caller cuts.
  [[nodiscard]] virtual bool Append(std::string_view bytes) = 0;
  // Shortens the file to its first `size` bytes, durably.
  [[nodiscard]] virtual bool CutTo(std::uint64_t size) = 0;
  // Takes the file out of its folder, durably, or gives it another, unused name there. False also
  // when the folder holds another file under its name by now, which is left alone.
  [[nodiscard]] virtual bool Remove() = 0;
  [[nodiscard]] virtual bool RenameTo(const std::string& path) = 0;
};

}  // namespace tallyfold
