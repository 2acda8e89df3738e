#include "system/atomic_write.h"

#include <errno.h>
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdint>
#include <random>
#include <string_view>
#include <utility>

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
// file yet. None for a chain that leads nowhere.
std::optional<Place> FollowLinks(std::string path) {
  // As many as the system itself follows.
  for (int links = 0; links <= 40; ++links) {
    std::array<char, 4096> target{};
    const ssize_t size = ::readlink(path.c_str(), target.data(), target.size());
    if (size < 0) {
      Place place = Split(path);
      if (place.name.empty()) return std::nullopt;
      return place;
    }
    if (static_cast<std::size_t>(size) == target.size()) return std::nullopt;
    const std::string_view text(target.data(), static_cast<std::size_t>(size));
    path = text.starts_with('/') ? std::string(text) : Split(path).folder + '/' + std::string(text);
  }
  return std::nullopt;
}

std::string TemporaryName() {
  static std::random_device random;
  std::array<char, 16> digits{};
  const std::uint64_t value = (std::uint64_t{random()} << 32) | random();
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  return std::string(kTemporaryPrefix) + std::string(digits.data(), end);
}

// One write under way: what it has made so far, and the way back from there.
class Writer final : public ByteSink {
 public:
  Writer(FileCalls& calls, Place place) : calls_(calls), place_(std::move(place)) {}

  // Undoes what was not finished, also when the producer throws.
  ~Writer() override {
    if (file_ >= 0) calls_.Close(file_);
    if (!temporary_.empty()) calls_.Remove(folder_, temporary_);
    if (folder_ >= 0) calls_.Close(folder_);
  }

  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  bool Create(std::optional<mode_t> new_mode) {
    folder_ = calls_.OpenFolder(place_.folder);
    if (folder_ < 0) return false;

    struct stat old = {};
    replaces_ = ::fstatat(folder_, place_.name.c_str(), &old, 0) == 0;
    if (!replaces_ && errno != ENOENT) return false;
    // A device or a pipe is not ours to replace.
    if (replaces_ && !S_ISREG(old.st_mode)) return false;

    const bool by_mask = !replaces_ && !new_mode;
    for (int tries = 0; file_ < 0; ++tries) {
      std::string name = TemporaryName();
      file_ = calls_.CreateFile(folder_, name, by_mask ? 0666 : 0600);
      if (file_ >= 0) {
        temporary_ = std::move(name);
      } else if (errno != EEXIST || tries == 100) {
        return false;
      }
    }
    if (by_mask) return true;
    if (replaces_ && !KeepOwner(old)) return false;
    return calls_.ChangeMode(file_, replaces_ ? old.st_mode & kPermissionBits : *new_mode) == 0;
  }

  void Append(std::string_view bytes) override {
    if (failed_) return;
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
    if (failed_ || calls_.Sync(file_) != 0) return false;
    if (calls_.Close(std::exchange(file_, -1)) != 0) return false;
    return replaces_ ? Replace() : PutInPlace();
  }

 private:
  // Someone else's file stays theirs as far as the system lets us.
  bool KeepOwner(const struct stat& old) {
    struct stat own = {};
    if (::fstat(file_, &own) != 0) return false;
    if (own.st_uid != old.st_uid || own.st_gid != old.st_gid) {
      if (calls_.ChangeOwner(file_, old.st_uid, old.st_gid) != 0) {
        calls_.ChangeOwner(file_, static_cast<uid_t>(-1), old.st_gid);
      }
    }
    return true;
  }

  void WriteOut(std::string_view bytes) {
    while (!bytes.empty() && !failed_) {
      const ssize_t written = calls_.Write(file_, bytes.data(), bytes.size());
      if (written > 0) {
        bytes.remove_prefix(static_cast<std::size_t>(written));
      } else if (written == 0 || errno != EINTR) {
        failed_ = true;
      }
    }
  }

  // Some network and foreign file systems cannot sync folders, which is no failure of ours.
  bool SyncFolder() { return calls_.Sync(folder_) == 0 || errno == EINVAL || errno == ENOTSUP; }

  bool PutInPlace() {
    if (calls_.Rename(folder_, temporary_, place_.name, 0) != 0) return false;
    if (SyncFolder()) {
      temporary_.clear();
      return true;
    }
    // From here the file that must go is the one in place.
    temporary_ = place_.name;
    return false;
  }

  // The files change names rather than one taking the other's, so that a folder that cannot be
  // made durable can be put back as it was; the destructor removes what is not in place in the end.
  bool Replace() {
    if (calls_.Rename(folder_, temporary_, place_.name, RENAME_EXCHANGE) == 0) {
      if (SyncFolder()) return true;
      // When there is no way back either, the temporary name holds the old file, and is spared.
      if (calls_.Rename(folder_, temporary_, place_.name, RENAME_EXCHANGE) != 0) {
        temporary_.clear();
      }
      return false;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return false;
    // This file system cannot exchange. The new file is whole, so it may stay even when the folder
    // cannot be synced.
    if (calls_.Rename(folder_, temporary_, place_.name, 0) != 0) return false;
    temporary_.clear();
    return SyncFolder();
  }

  FileCalls& calls_;
  Place place_;
  int folder_ = -1;
  int file_ = -1;
  // In folder_, to be removed in the end; "" for none.
  std::string temporary_;
  std::string block_;
  bool replaces_ = false;
  bool failed_ = false;
};

}  // namespace

bool WriteFileAtomically(FileCalls& calls, const std::string& path, std::optional<mode_t> new_mode,
                         const std::function<bool(ByteSink&)>& produce) {
  std::optional<Place> place = FollowLinks(path);
  if (!place) return false;
  Writer writer(calls, *std::move(place));
  return writer.Create(new_mode) && produce(writer) && writer.Finish();
}

}  // namespace tallyfold
