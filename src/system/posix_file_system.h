#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "system/atomic_write.h"

namespace tallyfold {

// The computer's files.
class PosixFileSystem final : public FileSystem {
 public:
  using FileSystem::WriteAtomically;

  PosixFileSystem();
  // Atomic writes and copies make their system calls through `calls`.
  explicit PosixFileSystem(std::unique_ptr<FileCalls> calls);

  [[nodiscard]] std::string HomeFolder() const override;
  [[nodiscard]] bool Exists(const std::string& path) const override;
  [[nodiscard]] bool IsFolder(const std::string& path) const override;
  [[nodiscard]] bool IsWritable(const std::string& path) const override;
  [[nodiscard]] std::optional<FileContents> Read(const std::string& path) const override;
  [[nodiscard]] std::optional<FileIdentity> Identity(const std::string& path) const override;
  [[nodiscard]] std::optional<Instant> CreationTime(const std::string& path) const override;
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override;
  WriteReport WriteAtomically(const std::string& path, const WriteTerms& terms,
                              const Producer& produce) override;
  // The copy has the permission of `from`.
  WriteReport Copy(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;
  [[nodiscard]] bool CreateFolder(const std::string& path) override;
  void AddPermissions(const std::string& path, unsigned bits) override;
  // Files have no icons of their own here.
  void SetCustomBadgeIconForFilePath(const std::string& path, const std::string& resource) override;
  void RemoveTemporaries(const std::string& folder) override;
  [[nodiscard]] LockResult LockFolder(const std::string& folder,
                                      std::unique_ptr<FolderLock>& lock) override;
  [[nodiscard]] LockResult OpenAppended(const std::string& path, AppendedFileStart start,
                                        std::unique_ptr<AppendedFile>& file) override;

 private:
  std::unique_ptr<FileCalls> calls_;
};

}  // namespace tallyfold
