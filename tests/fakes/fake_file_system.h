#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/appended_file.h"
#include "platform/file_system.h"

namespace tallyfold {

// Files in memory, which fail where a test wants them to. Created at the time of the clock in
// force. A new one holds the folders "/", "/home" and "/home/user", the home folder.
class FakeFileSystem final : public FileSystem {
 public:
  using FileSystem::WriteAtomically;

  FakeFileSystem();

  [[nodiscard]] std::string HomeFolder() const override { return "/home/user"; }
  [[nodiscard]] bool Exists(const std::string& path) const override;
  [[nodiscard]] bool IsFolder(const std::string& path) const override;
  [[nodiscard]] bool IsWritable(const std::string& path) const override;
  [[nodiscard]] std::optional<FileContents> Read(const std::string& path) const override;
  [[nodiscard]] std::optional<FileIdentity> Identity(const std::string& path) const override;
  [[nodiscard]] std::optional<Instant> CreationTime(const std::string& path) const override;
  [[nodiscard]] std::vector<std::string> List(const std::string& folder) const override;
  WriteReport WriteAtomically(const std::string& path, const WriteTerms& terms,
                              const Producer& produce) override;
  WriteReport Copy(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;
  [[nodiscard]] bool CreateFolder(const std::string& path) override;
  void AddPermissions(const std::string& path, unsigned bits) override;
  void SetCustomBadgeIconForFilePath(const std::string& path, const std::string& resource) override;
  void RemoveTemporaries(const std::string& folder) override;
  [[nodiscard]] LockResult LockFolder(const std::string& folder,
                                      std::unique_ptr<FolderLock>& lock) override;
  [[nodiscard]] LockResult OpenAppended(const std::string& path, AppendedFileStart start,
                                        std::unique_ptr<AppendedFile>& file) override;

  // What a test puts there, behind the back of the code under test. Missing folders are made.
  void AddFile(const std::string& path, std::string_view content, unsigned mode = 0600);
  void AddFolder(const std::string& path);
  // Something that exists and is neither a file nor a folder, such as a pipe.
  void AddPipe(const std::string& path);
  void SetCreationTime(const std::string& path, Instant time);
  // As if another running copy had locked it; a folder, or a file that is appended to.
  void LockByOther(const std::string& path) { locked_by_other_.insert(path); }

  // What happens once, in the middle of the next write: its content is on the disk, and not yet in
  // its place.
  void WhileWriting(std::function<void()> happens) { while_writing_ = std::move(happens); }
  // File systems differ in whether two names of files can be exchanged.
  void HasExchange(bool has) { has_exchange_ = has; }

  // None when there is no file at `path`.
  [[nodiscard]] std::optional<std::string> Content(const std::string& path) const;
  // 0 when there is nothing at `path`.
  [[nodiscard]] unsigned Mode(const std::string& path) const;
  // Every change that was made, in order: "folder PATH", "write PATH", "copy FROM TO",
  // "remove PATH", "permissions PATH OCTAL", "badge PATH RESOURCE".
  [[nodiscard]] const std::vector<std::string>& Changes() const { return changes_; }
  void ForgetChanges() { changes_.clear(); }

  enum class Failing : std::uint8_t { Once, ForEverAfter };
  // Reading, writing, copying to and making `path` fail from now on.
  void FailOn(const std::string& path) { failing_paths_.insert(path); }
  void StopFailingOn(const std::string& path) { failing_paths_.erase(path); }
  // The `step`th step from now fails (1 is the next one). A read is one step, making a folder
  // another; an atomic write has these: make the temporary file, write, sync, rename, sync the
  // folder, and after a failure remove what was made. Of a file that is appended to each operation
  // is a step, and appending two: write (which leaves half of it when it fails) and sync.
  void FailAtStep(std::size_t step, Failing failing);
  void StopFailing();
  // The number of steps taken since the last call of FailAtStep or StopFailing.
  [[nodiscard]] std::size_t Steps() const { return steps_; }

 private:
  enum class Kind : std::uint8_t { File, Folder, Pipe };
  struct Node {
    Kind kind = Kind::File;
    std::string content;
    unsigned mode = 0600;
    std::uint64_t inode = 0;
    std::int64_t modified = 0;
    Instant created{};
  };
  class Lock;
  class Appended;

  [[nodiscard]] const Node* Find(const std::string& path) const;
  [[nodiscard]] bool StepSucceeds() const;
  [[nodiscard]] Node MakeNode(Kind kind, std::string_view content, unsigned mode);
  [[nodiscard]] WriteReport Write(const std::string& path, const WriteTerms& terms,
                                  unsigned new_mode, std::string content);
  [[nodiscard]] bool IsReplacedBy(const WriteTerms& terms, const Node& node) const;

  // By path, so that the nodes of a folder follow it.
  std::map<std::string, Node> nodes_;
  std::uint64_t last_inode_ = 0;
  std::set<std::string> failing_paths_;
  std::set<std::string> locked_by_other_;
  // Shared with the locks given out, which may outlive this.
  std::shared_ptr<std::set<std::string>> locked_;
  std::vector<std::string> changes_;
  std::function<void()> while_writing_;
  bool has_exchange_ = true;

  // Reading is a step too, and reading is const.
  mutable std::size_t steps_ = 0;
  std::size_t failing_step_ = 0;
  Failing failing_ = Failing::Once;
};

}  // namespace tallyfold
