#include "system/atomic_write.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <new>
#include <string_view>
#include <system_error>
#include <utility>

#include "system/regular_file.h"

namespace tallyfold {

int FileCalls::OpenFolder(const std::string& path) {
  return ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

int FileCalls::CreateFile(int folder, const std::string& name, mode_t mode) {
  return ::openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
}

int FileCalls::ChangeOwner(int file, uid_t user, gid_t group) {
  return ::fchown(file, user, group);
}

int FileCalls::ChangeMode(int file, mode_t mode) {
  return ::fchmod(file, mode);
}

ssize_t FileCalls::Write(int file, const char* bytes, size_t size) {
  return ::write(file, bytes, size);
}

int FileCalls::Sync(int file_or_folder) {
  return ::fsync(file_or_folder);
}

int FileCalls::Close(int file_or_folder) {
  return ::close(file_or_folder);
}

int FileCalls::Rename(int folder, const std::string& from, const std::string& to, unsigned flags) {
  return ::renameat2(folder, from.c_str(), folder, to.c_str(), flags);
}

int FileCalls::Link(int folder, const std::string& from, const std::string& to) {
  return ::linkat(folder, from.c_str(), folder, to.c_str(), 0);
}

int FileCalls::Remove(int folder, const std::string& name) {
  return ::unlinkat(folder, name.c_str(), 0);
}

namespace {

constexpr mode_t kPermissionBits = 07777;
// Large enough that the calls cost nothing beside the copying.
constexpr std::size_t kBlockSize = std::size_t{256} * 1024;

struct Place {
  std::string folder;
  std::string name;
};

Place Split(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return {".", path};
  return {slash == 0 ? "/" : path.substr(0, slash), path.substr(slash + 1)};
}

// Where a write to `path` ends up: the end of a chain of symbolic links, whether or not there is a
// file yet. None, with errno set, for a chain that leads nowhere.
std::optional<Place> FollowLinks(std::string path) {
  // As many as the system itself follows.
  for (int links = 0; links <= 40; ++links) {
    std::array<char, 4096> target{};
    const ssize_t size = ::readlink(path.c_str(), target.data(), target.size());
    if (size < 0) {
      Place place = Split(path);
      if (!place.name.empty()) return place;
      errno = ENOENT;
      return std::nullopt;
    }
    if (static_cast<std::size_t>(size) == target.size()) {
      errno = ENAMETOOLONG;
      return std::nullopt;
    }
    const std::string_view text(target.data(), static_cast<std::size_t>(size));
    path = text.starts_with('/') ? std::string(text) : Split(path).folder + '/' + std::string(text);
  }
  errno = ELOOP;
  return std::nullopt;
}

std::string TemporaryName() {
  std::uint64_t value = 0;
  // Needs no descriptor, which may be what has run out. Where it fails, names are tried in a row.
  if (::getrandom(&value, sizeof value, GRND_NONBLOCK) != sizeof value) {
    static std::uint64_t last = 0;
    value = ++last;
  }
  std::array<char, 16> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  return std::string(kTemporaryPrefix) + std::string(digits.data(), end);
}

// Whether the last call failed because the file system does not know it.
bool IsUnknownCall() {
  return errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

// One write under way: what it has made so far, and the way back from there.
class Writer final : public ByteSink {
 public:
  Writer(FileCalls& calls, Place place, const WriteTerms& terms)
      : calls_(calls), place_(std::move(place)), terms_(terms), known_(terms.known) {}

  // Undoes what was not finished, also when the producer throws.
  ~Writer() override {
    if (file_ >= 0) calls_.Close(file_);
    if (!temporary_.empty() && is_own_temporary_) calls_.Remove(folder_, temporary_);
    if (folder_ >= 0) calls_.Close(folder_);
  }

  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  bool Create(std::optional<mode_t> new_mode) {
    folder_ = calls_.OpenFolder(place_.folder);
    if (folder_ < 0) return Fail(FileStep::OpenFolder);

    struct stat old = {};
    replaces_ = ::fstatat(folder_, place_.name.c_str(), &old, 0) == 0;
    if (!replaces_ && errno != ENOENT) return Fail(FileStep::LookAtFile);
    // A device or a pipe is not ours to replace.
    if (replaces_ && !S_ISREG(old.st_mode)) {
      errno = S_ISDIR(old.st_mode) ? EISDIR : EINVAL;
      return Fail(FileStep::LookAtFile);
    }
    if (replaces_ && terms_.replaces == WriteTerms::Replaces::Nothing) return FindAnother();
    if (terms_.replaces == WriteTerms::Replaces::Anything) known_ = IdentityOf(old);

    const bool by_mask = !replaces_ && !new_mode;
    for (int tries = 0; file_ < 0; ++tries) {
      std::string name = TemporaryName();
      file_ = calls_.CreateFile(folder_, name, by_mask ? 0666 : 0600);
      if (file_ >= 0) {
        temporary_ = std::move(name);
      } else if (errno != EEXIST || tries == 100) {
        return Fail(FileStep::MakeFile);
      }
    }
    if (by_mask) return true;
    const mode_t mode = replaces_ ? ModeAsOf(old) : *new_mode;
    return calls_.ChangeMode(file_, mode) == 0 || Fail(FileStep::SetPermission);
  }

  void Append(std::string_view bytes) override {
    if (report_.failure) return;
    if (block_.size() + bytes.size() > kBlockSize) {
      WriteOut(block_);
      block_.clear();
    }
    if (bytes.size() >= kBlockSize) {
      WriteOut(bytes);
    } else {
      block_.append(bytes);
    }
  }

  bool Finish() {
    WriteOut(block_);
    if (report_.failure) return false;
    if (calls_.Sync(file_) != 0) return Fail(FileStep::Sync);
    struct stat own = {};
    if (::fstat(file_, &own) != 0) return Fail(FileStep::Sync);
    own_ = IdentityOf(own);
    if (calls_.Close(std::exchange(file_, -1)) != 0) return Fail(FileStep::Sync);
    return replaces_ ? Replace() : PutInPlace();
  }

  // By errno, unless something has failed before.
  bool Fail(FileStep step) {
    if (!report_.failure) {
      report_.failure = FileFailure{step, std::generic_category().message(errno)};
    }
    return false;
  }

  [[nodiscard]] WriteReport Report() { return std::move(report_); }

 private:
  // The permission for a file that takes the place of `old`, which stays its owner's as far as the
  // system lets us. What was meant for its group is not for another one.
  mode_t ModeAsOf(const struct stat& old) {
    mode_t mode = old.st_mode & kPermissionBits;
    struct stat own = {};
    const bool is_known = ::fstat(file_, &own) == 0;
    if (is_known && own.st_uid == old.st_uid && own.st_gid == old.st_gid) return mode;
    if (calls_.ChangeOwner(file_, old.st_uid, old.st_gid) == 0) return mode;
    mode &= ~static_cast<mode_t>(S_ISUID);
    const bool keeps_group = (is_known && own.st_gid == old.st_gid) ||
                             calls_.ChangeOwner(file_, static_cast<uid_t>(-1), old.st_gid) == 0;
    return keeps_group ? mode : mode & ~static_cast<mode_t>(S_ISGID | S_IRWXG);
  }

  void WriteOut(std::string_view bytes) {
    while (!bytes.empty() && !report_.failure) {
      const ssize_t written = calls_.Write(file_, bytes.data(), bytes.size());
      if (written > 0) {
        bytes.remove_prefix(static_cast<std::size_t>(written));
      } else if (written == 0 || errno != EINTR) {
        if (written == 0) errno = EIO;
        Fail(FileStep::Write);
      }
    }
  }

  bool FindAnother() {
    report_.found_another = true;
    errno = EEXIST;
    return Fail(FileStep::PutInPlace);
  }

  // Some network and foreign file systems cannot sync folders, which is no failure of ours.
  bool SyncFolder() {
    return calls_.Sync(folder_) == 0 || errno == EINVAL || errno == ENOTSUP ||
           Fail(FileStep::SyncFolder);
  }

  [[nodiscard]] std::optional<FileIdentity> IdentityAt(const std::string& name) const {
    struct stat status = {};
    if (::fstatat(folder_, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return std::nullopt;
    return IdentityOf(status);
  }

  [[nodiscard]] bool IsOwn(const std::string& name) const { return IdentityAt(name) == own_; }

  // Whether this is the file that is to be replaced.
  [[nodiscard]] bool IsKnown(const std::string& name) const {
    const auto found = IdentityAt(name);
    if (!found || *found == known_) return found.has_value();
    if (terms_.replaces == WriteTerms::Replaces::Anything) {
      // Whoever lets a file be replaced does not mind what was written to it since.
      return AreSameFile(*found, known_) ||
             (found->size == known_.size &&
              found->modified_nanoseconds == known_.modified_nanoseconds);
    }
    if (!terms_.is_known_content) return false;
    try {
      const auto file = OpenRegularFile(folder_, name, false);
      const auto contents = file ? ReadAll(*file) : std::nullopt;
      return contents && terms_.is_known_content(contents->view());
    } catch (const std::bad_alloc&) {
      return false;
    }
  }

  // Gives the new file its name where nothing has it.
  bool TakeName() {
    if (calls_.Rename(folder_, temporary_, place_.name, RENAME_NOREPLACE) == 0) {
      temporary_.clear();
      return true;
    }
    if (!IsUnknownCall()) return false;
    // A second name comes to nothing that is there either; the destructor removes the first one.
    if (calls_.Link(folder_, temporary_, place_.name) == 0) return true;
    if (!IsUnknownCall() && errno != EPERM && errno != EMLINK) return false;
    // All that is left on this file system is to look first.
    if (IdentityAt(place_.name)) {
      errno = EEXIST;
      return false;
    }
    if (calls_.Rename(folder_, temporary_, place_.name, 0) != 0) return false;
    temporary_.clear();
    return true;
  }

  bool PutInPlace() {
    if (!TakeName()) return errno == EEXIST ? FindAnother() : Fail(FileStep::PutInPlace);
    report_.in_place = own_;
    if (SyncFolder()) return true;
    // From here the file that must go is the one in place.
    if (IsOwn(place_.name) && calls_.Remove(folder_, place_.name) == 0) report_.in_place.reset();
    return false;
  }

  // The files change names rather than one taking the other's, so that the old one can be looked
  // at, and a folder that cannot be made durable be put back as it was; the destructor removes what
  // is not in place in the end.
  bool Replace() {
    if (calls_.Rename(folder_, temporary_, place_.name, RENAME_EXCHANGE) == 0) {
      is_own_temporary_ = false;
      report_.in_place = own_;
      if (!IsKnown(temporary_)) {
        FindAnother();
        if (!ExchangeBack()) Spare();
        return false;
      }
      is_own_temporary_ = true;
      if (SyncFolder()) return true;
      // When there is no way back either, the temporary name holds the old file.
      if (!ExchangeBack()) temporary_.clear();
      return false;
    }
    if (errno != ENOENT && !IsUnknownCall()) return Fail(FileStep::PutInPlace);
    // The old file may have gone meanwhile.
    if (!IdentityAt(place_.name)) return PutInPlace();
    // This file system cannot exchange. The new file is whole, so it may stay even when the folder
    // cannot be synced.
    if (!IsKnown(place_.name)) return FindAnother();
    if (calls_.Rename(folder_, temporary_, place_.name, 0) != 0) return Fail(FileStep::PutInPlace);
    temporary_.clear();
    report_.in_place = own_;
    return SyncFolder();
  }

  bool ExchangeBack() {
    if (calls_.Rename(folder_, temporary_, place_.name, RENAME_EXCHANGE) != 0) return false;
    report_.in_place.reset();
    // What has come in between now is not ours to remove.
    is_own_temporary_ = IsOwn(temporary_);
    if (!is_own_temporary_) Spare();
    return true;
  }

  // Gives somebody's file, which only a temporary name holds, one under which it stays.
  void Spare() {
    const std::string name =
        place_.name + ".kept-" + temporary_.substr(std::string_view(kTemporaryPrefix).size());
    calls_.Rename(folder_, temporary_, name, 0);
    temporary_.clear();
  }

  FileCalls& calls_;
  Place place_;
  const WriteTerms& terms_;
  // Of the file that is to be replaced, and of the one that takes its place.
  FileIdentity known_;
  FileIdentity own_;
  int folder_ = -1;
  int file_ = -1;
  // In folder_, to be removed in the end; "" for none.
  std::string temporary_;
  // Not while it may hold somebody's file.
  bool is_own_temporary_ = true;
  std::string block_;
  bool replaces_ = false;
  WriteReport report_;
};

}  // namespace

WriteReport WriteFileAtomically(FileCalls& calls, const std::string& path, const WriteTerms& terms,
                                std::optional<mode_t> new_mode,
                                const std::function<bool(ByteSink&)>& produce) {
  std::optional<Place> place = FollowLinks(path);
  if (!place) {
    WriteReport report;
    report.failure = FileFailure{FileStep::LookAtFile, std::generic_category().message(errno)};
    return report;
  }
  Writer writer(calls, *std::move(place), terms);
  if (writer.Create(new_mode) && (produce(writer) || writer.Fail(FileStep::ReadSource))) {
    writer.Finish();
  }
  return writer.Report();
}

}  // namespace tallyfold
