#include "system/posix_file_system.h"

#include <dirent.h>
#include <errno.h>
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include "system/descriptor.h"
#include "system/posix_appended_file.h"
#include "system/regular_file.h"

namespace tallyfold {
namespace {

class HeldLock final : public FolderLock {
 public:
  explicit HeldLock(Descriptor folder) : folder_(std::move(folder)) {}

 private:
  Descriptor folder_;
};

}  // namespace

PosixFileSystem::PosixFileSystem() : PosixFileSystem(std::make_unique<FileCalls>()) {}

PosixFileSystem::PosixFileSystem(std::unique_ptr<FileCalls> calls) : calls_(std::move(calls)) {}

std::string PosixFileSystem::HomeFolder() const {
  std::string home;
  if (const char* variable = std::getenv("HOME"); variable != nullptr && variable[0] == '/') {
    home = variable;
  } else if (const struct passwd* user = ::getpwuid(::getuid()); user != nullptr) {
    home = user->pw_dir;
  }
  while (home.ends_with('/')) home.pop_back();
  return home;
}

bool PosixFileSystem::Exists(const std::string& path) const {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0;
}

bool PosixFileSystem::IsFolder(const std::string& path) const {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool PosixFileSystem::IsWritable(const std::string& path) const {
  return ::access(path.c_str(), W_OK) == 0;
}

std::optional<FileContents> PosixFileSystem::Read(const std::string& path) const {
  const auto file = OpenRegularFile(AT_FDCWD, path, true);
  if (!file) return std::nullopt;
  try {
    return ReadAll(*file);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

std::optional<FileIdentity> PosixFileSystem::Identity(const std::string& path) const {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return IdentityOf(status);
}

std::optional<Instant> PosixFileSystem::CreationTime(const std::string& path) const {
  struct statx status = {};
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME | STATX_MTIME, &status) != 0) {
    return std::nullopt;
  }
  const auto& stamp = (status.stx_mask & STATX_BTIME) != 0 ? status.stx_btime : status.stx_mtime;
  return Instant(std::chrono::seconds{stamp.tv_sec} +
                 std::chrono::milliseconds{stamp.tv_nsec / 1'000'000});
}

std::vector<std::string> PosixFileSystem::List(const std::string& folder) const {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(::opendir(folder.c_str()), ::closedir);
  std::vector<std::string> names;
  if (!stream) return names;
  for (;;) {
    errno = 0;
    const struct dirent* entry = ::readdir(stream.get());
    if (entry == nullptr) break;
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") names.emplace_back(name);
  }
  if (errno != 0) names.clear();
  return names;
}

WriteReport PosixFileSystem::WriteAtomically(const std::string& path, const WriteTerms& terms,
                                             const Producer& produce) {
  std::optional<mode_t> new_mode;
  if (terms.mode == NewFileMode::Private) new_mode = 0600;
  return WriteFileAtomically(*calls_, path, terms, new_mode, [&produce](ByteSink& sink) {
    produce(sink);
    return true;
  });
}

WriteReport PosixFileSystem::Copy(const std::string& from, const std::string& to) {
  const auto file = OpenRegularFile(AT_FDCWD, from, true);
  if (!file) {
    WriteReport report;
    report.failure = FileFailure{FileStep::ReadSource, std::generic_category().message(errno)};
    return report;
  }
  const auto produce = [&file](ByteSink& sink) {
    constexpr std::size_t kBlock = std::size_t{256} * 1024;
    const auto block = std::make_unique_for_overwrite<char[]>(kBlock);
    for (;;) {
      const auto count = ReadUpTo(file->descriptor, block.get(), kBlock);
      if (!count) return false;
      sink.Append({block.get(), *count});
      if (*count < kBlock) return true;
    }
  };
  return WriteFileAtomically(*calls_, to, {.replaces = WriteTerms::Replaces::Nothing},
                             file->status.st_mode & 0777, produce);
}

bool PosixFileSystem::Remove(const std::string& path) {
  return ::unlink(path.c_str()) == 0 || errno == ENOENT;
}

bool PosixFileSystem::CreateFolder(const std::string& path) {
  return ::mkdir(path.c_str(), 0777) == 0;
}

void PosixFileSystem::AddPermissions(const std::string& path, unsigned bits) {
  struct stat status = {};
  if (::stat(path.c_str(), &status) != 0) return;
  const mode_t wanted = (status.st_mode | bits) & 07777;
  if (wanted != (status.st_mode & 07777)) {
    [[maybe_unused]] const int ignored = ::chmod(path.c_str(), wanted);
  }
}

void PosixFileSystem::SetCustomBadgeIconForFilePath(const std::string& /*path*/,
                                                    const std::string& /*resource*/) {}

void PosixFileSystem::RemoveTemporaries(const std::string& folder) {
  for (const std::string& name : List(folder)) {
    if (name.starts_with(kTemporaryPrefix)) ::unlink((folder + '/' + name).c_str());
  }
}

LockResult PosixFileSystem::OpenAppended(const std::string& path, AppendedFileStart start,
                                         std::unique_ptr<AppendedFile>& file) {
  return OpenPosixAppendedFile(path, start, file);
}

LockResult PosixFileSystem::LockFolder(const std::string& folder,
                                       std::unique_ptr<FolderLock>& lock) {
  Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.IsOpen()) return LockResult::Unavailable;
  if (::flock(descriptor.number(), LOCK_EX | LOCK_NB) != 0) {
    return errno == EWOULDBLOCK ? LockResult::HeldByOther : LockResult::Unavailable;
  }
  lock = std::make_unique<HeldLock>(std::move(descriptor));
  return LockResult::Held;
}

}  // namespace tallyfold
