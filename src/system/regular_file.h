#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>

#include "platform/file_system.h"
#include "system/descriptor.h"

namespace tallyfold {

// A regular file that is open for reading.
struct RegularFile {
  Descriptor descriptor;
  struct stat status = {};
};

// None, with errno set, for what is missing, no regular file or not to be read; never waits, as
// opening a pipe would. A name is taken from the open `folder`; paths may be given with AT_FDCWD.
[[nodiscard]] std::optional<RegularFile> OpenRegularFile(int folder, const std::string& name,
                                                         bool follows_link);
// The number of bytes read, less than `size` only at the end of the file; none on failure.
[[nodiscard]] std::optional<std::size_t> ReadUpTo(const Descriptor& file, char* bytes,
                                                  std::size_t size);
// The whole content, however the file grows meanwhile; none on failure.
[[nodiscard]] std::optional<FileContents> ReadAll(const RegularFile& file);

[[nodiscard]] FileIdentity IdentityOf(const struct stat& status);

}  // namespace tallyfold
