#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/clock.h"

namespace tallyfold {

// The bytes of a file. Move-only: files run to hundreds of megabytes.
class FileContents {
 public:
  FileContents() = default;
  FileContents(std::unique_ptr<char[]> bytes, std::size_t size)
      : bytes_(std::move(bytes)), size_(size) {}
  [[nodiscard]] std::string_view view() const noexcept { return {bytes_.get(), size_}; }

 private:
  std::unique_ptr<char[]> bytes_;
  std::size_t size_ = 0;
};

// Takes a file's content in blocks.
class ByteSink {
 public:
  virtual ~ByteSink() = default;
  // A failure is remembered by the sink and reported by the operation that made it.
  virtual void Append(std::string_view bytes) = 0;
};

// What tells whether a file is still the one that was read: changes of content show, changes of
// permission do not.
struct FileIdentity {
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::uint64_t size = 0;
  std::int64_t modified_nanoseconds = 0;

  friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

// Whether both are the same file, whatever has been written to it in between.
[[nodiscard]] inline bool AreSameFile(const FileIdentity& a, const FileIdentity& b) noexcept {
  return a.device == b.device && a.inode == b.inode;
}

// Permission of a file that WriteAtomically makes new; an existing file keeps its own.
enum class NewFileMode : std::uint8_t {
  Private,  // readable and writable by the owner alone
  ByUmask,  // what the process's file mode mask leaves
};

// What an atomic write replaces. Whatever comes to stand at its path meanwhile is not destroyed:
// the write fails instead.
struct WriteTerms {
  enum class Replaces : std::uint8_t {
    Anything,  // the file that stands there when the write begins
    Nothing,   // a new file is made; one that stands there stays
    Known,     // the file that `known` tells, or one whose content is known
  };

  NewFileMode mode = NewFileMode::Private;
  Replaces replaces = Replaces::Anything;
  FileIdentity known = {};
  // Asked for a file that is not `known`, which is how file systems look that number their files
  // anew. Null knows none.
  std::function<bool(std::string_view content)> is_known_content = nullptr;
};

// Where an operation on a file stopped.
enum class FileStep : std::uint8_t {
  OpenFolder,
  LookAtFile,  // the one that is to be replaced
  ReadSource,  // of a copy
  MakeFile,
  SetPermission,
  Write,
  Sync,
  PutInPlace,
  SyncFolder,
};

struct FileFailure {
  FileStep step = FileStep::Write;
  // The system's, in words.
  std::string reason;
};

// What became of a write. True when it was done.
struct [[nodiscard]] WriteReport {
  std::optional<FileFailure> failure;
  // It failed because there is a file that it was not to replace.
  bool found_another = false;
  // Of the new file, where that stands in its place: always when the write was done, and when all
  // but making that durable was.
  std::optional<FileIdentity> in_place;

  explicit operator bool() const noexcept { return !failure; }
};

// Held as long as the object lives; the system frees it when the process dies.
class FolderLock {
 public:
  virtual ~FolderLock() = default;
};

enum class LockResult : std::uint8_t {
  Held,         // by the returned lock
  HeldByOther,  // another running process has it
  Unavailable,  // the folder is missing or cannot be locked
};

class AppendedFile;  // platform/appended_file.h

enum class AppendedFileStart : std::uint8_t {
  Existing,  // the file that is there
  New,       // a new one, readable and writable by the owner alone, where nothing is yet
};

// Files and folders. Paths are absolute. No operation throws; failures come back as none or false.
class FileSystem {
 public:
  using Producer = std::function<void(ByteSink&)>;

  virtual ~FileSystem() = default;

  // The user's home folder, without a slash at the end.
  [[nodiscard]] virtual std::string HomeFolder() const = 0;

  // Links are followed.
  [[nodiscard]] virtual bool Exists(const std::string& path) const = 0;
  [[nodiscard]] virtual bool IsFolder(const std::string& path) const = 0;
  // Whether this process may write to the file, or make files in the folder, that is there.
  [[nodiscard]] virtual bool IsWritable(const std::string& path) const = 0;
  // The whole content of a regular file; none for anything else, and on any failure.
  [[nodiscard]] virtual std::optional<FileContents> Read(const std::string& path) const = 0;
  // None when there is nothing at `path`.
  [[nodiscard]] virtual std::optional<FileIdentity> Identity(const std::string& path) const = 0;
  // When the file was made (its last modification where the system does not know).
  [[nodiscard]] virtual std::optional<Instant> CreationTime(const std::string& path) const = 0;
  // The names in a folder in no particular order, without "." and ".."; empty on failure.
  [[nodiscard]] virtual std::vector<std::string> List(const std::string& folder) const = 0;

  // Makes or replaces `path` whole and durably: afterwards, also after a crash at any point, it
  // holds either its old content or all of what `produce` appended. A symbolic link is followed
  // to its target. A failure leaves the old file as it was and nothing beside it, unless the
  // report says that the new file is in place.
  virtual WriteReport WriteAtomically(const std::string& path, const WriteTerms& terms,
                                      const Producer& produce) = 0;
  // Writes the content of the regular file `from` to `to` as WriteAtomically does, replacing
  // nothing; the copy is a new file with a creation time of its own.
  virtual WriteReport Copy(const std::string& from, const std::string& to) = 0;
  // Removes a file, and the name of a link. True when it is gone.
  virtual bool Remove(const std::string& path) = 0;
  // One folder; its parent must exist. True when it was made.
  [[nodiscard]] virtual bool CreateFolder(const std::string& path) = 0;
  // Adds permission bits to those the file or folder has. Missing files and failures are ignored.
  virtual void AddPermissions(const std::string& path, unsigned bits) = 0;
  // Gives a file the program's icon named `resource`, where files have icons of their own.
  virtual void SetCustomBadgeIconForFilePath(const std::string& path,
                                             const std::string& resource) = 0;

  // Removes what interrupted atomic writes of earlier runs left in `folder`.
  virtual void RemoveTemporaries(const std::string& folder) = 0;
  // `lock` is set when the result is Held.
  [[nodiscard]] virtual LockResult LockFolder(const std::string& folder,
                                              std::unique_ptr<FolderLock>& lock) = 0;

  // Opens and locks a regular file that grows by records; links are not followed. `file` is set
  // when the result is Held; Unavailable also where there is no such file, or none can be made.
  [[nodiscard]] virtual LockResult OpenAppended(const std::string& path, AppendedFileStart start,
                                                std::unique_ptr<AppendedFile>& file) = 0;

  WriteReport WriteAtomically(const std::string& path, const WriteTerms& terms,
                              std::string_view content) {
    return WriteAtomically(path, terms, [content](ByteSink& sink) { sink.Append(content); });
  }
  WriteReport WriteAtomically(const std::string& path, NewFileMode mode, std::string_view content) {
    return WriteAtomically(path, WriteTerms{.mode = mode}, content);
  }
};

// Names of temporary files of atomic writes begin so.
inline constexpr std::string_view kTemporaryPrefix = ".tallyfold-";

}  // namespace tallyfold
