#include "system/posix_appended_file.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "system/descriptor.h"

namespace tallyfold {
namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool SyncFolderOf(const std::string& path) {
  const Descriptor folder(::open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder.IsOpen()) return false;
  // Some network and foreign file systems cannot sync folders, which is no failure of ours.
  return ::fsync(folder.number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

class PosixAppendedFile final : public AppendedFile {
 public:
  PosixAppendedFile(Descriptor file, std::string path)
      : file_(std::move(file)), path_(std::move(path)) {}

  std::optional<FileContents> Read() const override {
    struct stat status = {};
    if (::fstat(file_.number(), &status) != 0) return std::nullopt;
    const auto size = static_cast<std::size_t>(status.st_size);
    auto bytes = std::make_unique_for_overwrite<char[]>(size);
    std::size_t done = 0;
    while (done < size) {
      const ssize_t count =
          ::pread(file_.number(), bytes.get() + done, size - done, static_cast<off_t>(done));
      if (count == 0) break;
      if (count > 0) {
        done += static_cast<std::size_t>(count);
      } else if (errno != EINTR) {
        return std::nullopt;
      }
    }
    return FileContents(std::move(bytes), done);
  }

  bool IsInPlace() const noexcept override {
    struct stat own = {};
    struct stat present = {};
    return ::fstat(file_.number(), &own) == 0 && ::lstat(path_.c_str(), &present) == 0 &&
           own.st_dev == present.st_dev && own.st_ino == present.st_ino;
  }

  bool Append(std::string_view bytes) override {
    while (!bytes.empty()) {
      const ssize_t count = ::write(file_.number(), bytes.data(), bytes.size());
      if (count > 0) {
        bytes.remove_prefix(static_cast<std::size_t>(count));
      } else if (count == 0 || errno != EINTR) {
        return false;
      }
    }
    return ::fdatasync(file_.number()) == 0;
  }

  bool CutTo(std::uint64_t size) override {
    return ::ftruncate(file_.number(), static_cast<off_t>(size)) == 0 &&
           ::fsync(file_.number()) == 0;
  }

  bool Remove() override {
    return IsInPlace() && ::unlink(path_.c_str()) == 0 && SyncFolderOf(path_);
  }

  bool RenameTo(const std::string& path) override {
    if (!IsInPlace()) return false;
    if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, path.c_str(), RENAME_NOREPLACE) != 0) {
      struct stat other = {};
      const bool cannot_tell = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
      if (!cannot_tell || ::lstat(path.c_str(), &other) == 0) return false;
      if (::rename(path_.c_str(), path.c_str()) != 0) return false;
    }
    path_ = path;
    return SyncFolderOf(path_);
  }

 private:
  Descriptor file_;
  std::string path_;
};

}  // namespace

LockResult OpenPosixAppendedFile(const std::string& path, AppendedFileStart start,
                                 std::unique_ptr<AppendedFile>& file) {
  int flags = O_RDWR | O_APPEND | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
  if (start == AppendedFileStart::New) flags |= O_CREAT | O_EXCL;
  Descriptor descriptor(::open(path.c_str(), flags, 0600));
  struct stat status = {};
  if (!descriptor.IsOpen() || ::fstat(descriptor.number(), &status) != 0 ||
      !S_ISREG(status.st_mode)) {
    return LockResult::Unavailable;
  }
  if (::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0) {
    return errno == EWOULDBLOCK ? LockResult::HeldByOther : LockResult::Unavailable;
  }
  auto opened = std::make_unique<PosixAppendedFile>(std::move(descriptor), path);
  if (start == AppendedFileStart::New && !SyncFolderOf(path)) {
    static_cast<void>(opened->Remove());
    return LockResult::Unavailable;
  }
  file = std::move(opened);
  return LockResult::Held;
}

}  // namespace tallyfold
