#include "system/regular_file.h"

#include <errno.h>
#include <fcntl.h>

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

namespace tallyfold {

std::optional<RegularFile> OpenRegularFile(int folder, const std::string& name, bool follows_link) {
  const int flags = O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | (follows_link ? 0 : O_NOFOLLOW);
  RegularFile file;
  file.descriptor = Descriptor(::openat(folder, name.c_str(), flags));
  if (!file.descriptor.IsOpen() || ::fstat(file.descriptor.number(), &file.status) != 0) {
    return std::nullopt;
  }
  if (!S_ISREG(file.status.st_mode)) {
    errno = EINVAL;
    return std::nullopt;
  }
  return file;
}

std::optional<std::size_t> ReadUpTo(const Descriptor& file, char* bytes, std::size_t size) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t count = ::read(file.number(), bytes + done, size - done);
    if (count == 0) break;
    if (count > 0) {
      done += static_cast<std::size_t>(count);
    } else if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return done;
}

std::optional<FileContents> ReadAll(const RegularFile& file) {
  // One byte more than the file should have shows the end without another allocation.
  std::size_t capacity = static_cast<std::size_t>(file.status.st_size) + 1;
  auto bytes = std::make_unique_for_overwrite<char[]>(capacity);
  std::size_t size = 0;
  for (;;) {
    const auto count = ReadUpTo(file.descriptor, bytes.get() + size, capacity - size);
    if (!count) return std::nullopt;
    size += *count;
    if (size < capacity) return FileContents(std::move(bytes), size);
    // It has grown since it was opened, or is of those that do not tell their size.
    capacity = std::max<std::size_t>(capacity * 2, 4096);
    auto larger = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(bytes.get(), size, larger.get());
    bytes = std::move(larger);
  }
}

FileIdentity IdentityOf(const struct stat& status) {
  FileIdentity identity;
  identity.device = status.st_dev;
  identity.inode = status.st_ino;
  identity.size = static_cast<std::uint64_t>(status.st_size);
  identity.modified_nanoseconds =
      std::int64_t{status.st_mtim.tv_sec} * 1'000'000'000 + status.st_mtim.tv_nsec;
  return identity;
}

}  // namespace tallyfold
