#include "fakes/fake_file_system.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "platform/ambient.h"

namespace tallyfold {
namespace {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

std::string Octal(unsigned bits) {
  std::string digits(12, '0');
  digits.resize(static_cast<std::size_t>(
      std::to_chars(digits.data(), digits.data() + digits.size(), bits, 8).ptr - digits.data()));
  return digits;
}

FileIdentity IdentityOf(std::uint64_t inode, std::size_t size, std::int64_t modified) {
  return {1, inode, size, modified};
}

WriteReport Failed(FileStep step) {
  WriteReport report;
  report.failure = FileFailure{step, "Input/output error"};
  return report;
}

WriteReport FoundAnother() {
  WriteReport report;
  report.failure = FileFailure{FileStep::PutInPlace, "File exists"};
  report.found_another = true;
  return report;
}

class StringSink final : public ByteSink {
 public:
  void Append(std::string_view bytes) override { content.append(bytes); }
  std::string content;
};

}  // namespace

class FakeFileSystem::Lock final : public FolderLock {
 public:
  Lock(std::shared_ptr<std::set<std::string>> locked, std::string folder)
      : locked_(std::move(locked)), folder_(std::move(folder)) {}
  ~Lock() override { locked_->erase(folder_); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;

 private:
  std::shared_ptr<std::set<std::string>> locked_;
  std::string folder_;
};

// Each makes the change that it reports to have made, and nothing when it fails.
class FakeFileSystem::Appended final : public AppendedFile {
 public:
  Appended(FakeFileSystem& files, std::string path)
      : files_(files),
        lock_(files.locked_, path),
        path_(std::move(path)),
        inode_(files.nodes_.at(path_).inode) {}

  std::optional<FileContents> Read() const override { return files_.Read(path_); }
  bool IsInPlace() const noexcept override {
    const auto found = files_.nodes_.find(path_);
    return found != files_.nodes_.end() && found->second.inode == inode_;
  }
  bool Append(std::string_view bytes) override {
    Node* node = Find();
    if (node == nullptr) return false;
    const bool written = files_.StepSucceeds();
    node->content += bytes.substr(0, written ? bytes.size() : bytes.size() / 2);
    return written && files_.StepSucceeds();
  }
  bool CutTo(std::uint64_t size) override {
    Node* node = Find();
    if (node == nullptr || !files_.StepSucceeds()) return false;
    node->content.resize(static_cast<std::size_t>(size));
    return true;
  }
  bool Remove() override {
    return Find() != nullptr && files_.StepSucceeds() && files_.nodes_.erase(path_) != 0;
  }
  bool RenameTo(const std::string& path) override {
    if (Find() == nullptr || files_.Exists(path) || !files_.StepSucceeds()) return false;
    auto node = files_.nodes_.extract(path_);
    node.key() = path;
    files_.nodes_.insert(std::move(node));
    path_ = path;
    return true;
  }

 private:
  // Null when the file cannot be written.
  [[nodiscard]] Node* Find() {
    const auto found = files_.nodes_.find(path_);
    const bool fails = found == files_.nodes_.end() || files_.failing_paths_.contains(path_);
    return fails ? nullptr : &found->second;
  }

  FakeFileSystem& files_;
  Lock lock_;
  std::string path_;
  std::uint64_t inode_;
};

LockResult FakeFileSystem::OpenAppended(const std::string& path, AppendedFileStart start,
                                        std::unique_ptr<AppendedFile>& file) {
  const Node* node = Find(path);
  if (start == AppendedFileStart::New) {
    if (node != nullptr || failing_paths_.contains(path) || !IsWritable(FolderOf(path)) ||
        !StepSucceeds()) {
      return LockResult::Unavailable;
    }
    nodes_[path] = MakeNode(Kind::File, "", 0600);
  } else if (node == nullptr || node->kind != Kind::File) {
    return LockResult::Unavailable;
  }
  if (locked_by_other_.contains(path) || !locked_->insert(path).second) {
    return LockResult::HeldByOther;
  }
  file = std::make_unique<Appended>(*this, path);
  return LockResult::Held;
}

FakeFileSystem::FakeFileSystem() : locked_(std::make_shared<std::set<std::string>>()) {
  nodes_["/"] = MakeNode(Kind::Folder, "", 0755);
  AddFolder(HomeFolder());
}

bool FakeFileSystem::Exists(const std::string& path) const {
  return Find(path) != nullptr;
}

bool FakeFileSystem::IsFolder(const std::string& path) const {
  const Node* node = Find(path);
  return node != nullptr && node->kind == Kind::Folder;
}

bool FakeFileSystem::IsWritable(const std::string& path) const {
  const Node* node = Find(path);
  return node != nullptr && (node->mode & 0200U) != 0 && !failing_paths_.contains(path);
}

std::optional<FileContents> FakeFileSystem::Read(const std::string& path) const {
  const Node* node = Find(path);
  if (!StepSucceeds() || failing_paths_.contains(path) || node == nullptr ||
      node->kind != Kind::File) {
    return std::nullopt;
  }
  auto bytes = std::make_unique<char[]>(node->content.size());
  std::copy(node->content.begin(), node->content.end(), bytes.get());
  return FileContents(std::move(bytes), node->content.size());
}

std::optional<FileIdentity> FakeFileSystem::Identity(const std::string& path) const {
  const Node* node = Find(path);
  if (node == nullptr) return std::nullopt;
  return IdentityOf(node->inode, node->content.size(), node->modified);
}

std::optional<Instant> FakeFileSystem::CreationTime(const std::string& path) const {
  const Node* node = Find(path);
  if (node == nullptr) return std::nullopt;
  return node->created;
}

std::vector<std::string> FakeFileSystem::List(const std::string& folder) const {
  std::vector<std::string> names;
  if (!IsFolder(folder) || failing_paths_.contains(folder)) return names;
  const std::string prefix = folder == "/" ? folder : folder + '/';
  for (const auto& [path, node] : nodes_) {
    if (path.size() > prefix.size() && path.starts_with(prefix) &&
        path.find('/', prefix.size()) == std::string::npos) {
      names.push_back(path.substr(prefix.size()));
    }
  }
  // Nobody may rely on an order.
  std::reverse(names.begin(), names.end());
  return names;
}

WriteReport FakeFileSystem::WriteAtomically(const std::string& path, const WriteTerms& terms,
                                            const Producer& produce) {
  StringSink sink;
  produce(sink);
  WriteReport report =
      Write(path, terms, terms.mode == NewFileMode::Private ? 0600 : 0644, std::move(sink.content));
  if (report) changes_.push_back("write " + path);
  return report;
}

WriteReport FakeFileSystem::Copy(const std::string& from, const std::string& to) {
  const auto source = Read(from);
  if (!source) return Failed(FileStep::ReadSource);
  WriteReport report = Write(to, {.replaces = WriteTerms::Replaces::Nothing}, Mode(from),
                             std::string(source->view()));
  if (report) changes_.push_back("copy " + from + ' ' + to);
  return report;
}

bool FakeFileSystem::Remove(const std::string& path) {
  const Node* node = Find(path);
  if (node == nullptr) return true;
  if (failing_paths_.contains(path) || node->kind == Kind::Folder) return false;
  nodes_.erase(path);
  changes_.push_back("remove " + path);
  return true;
}

bool FakeFileSystem::CreateFolder(const std::string& path) {
  if (!StepSucceeds() || failing_paths_.contains(path) || Exists(path) ||
      !IsFolder(FolderOf(path))) {
    return false;
  }
  nodes_[path] = MakeNode(Kind::Folder, "", 0755);
  changes_.push_back("folder " + path);
  return true;
}

void FakeFileSystem::AddPermissions(const std::string& path, unsigned bits) {
  const auto found = nodes_.find(path);
  if (found == nodes_.end()) return;
  found->second.mode |= bits;
  changes_.push_back("permissions " + path + ' ' + Octal(bits));
}

void FakeFileSystem::SetCustomBadgeIconForFilePath(const std::string& path,
                                                   const std::string& resource) {
  changes_.push_back("badge " + path + ' ' + resource);
}

void FakeFileSystem::RemoveTemporaries(const std::string& folder) {
  for (const std::string& name : List(folder)) {
    if (name.starts_with(kTemporaryPrefix)) nodes_.erase(folder + '/' + name);
  }
}

LockResult FakeFileSystem::LockFolder(const std::string& folder,
                                      std::unique_ptr<FolderLock>& lock) {
  if (!IsFolder(folder)) return LockResult::Unavailable;
  if (locked_by_other_.contains(folder) || !locked_->insert(folder).second) {
    return LockResult::HeldByOther;
  }
  lock = std::make_unique<Lock>(locked_, folder);
  return LockResult::Held;
}

void FakeFileSystem::AddFile(const std::string& path, std::string_view content, unsigned mode) {
  AddFolder(FolderOf(path));
  nodes_[path] = MakeNode(Kind::File, content, mode);
}

void FakeFileSystem::AddFolder(const std::string& path) {
  for (std::string folder = path; !Exists(folder); folder = FolderOf(folder)) {
    nodes_[folder] = MakeNode(Kind::Folder, "", 0755);
  }
}

void FakeFileSystem::AddPipe(const std::string& path) {
  AddFolder(FolderOf(path));
  nodes_[path] = MakeNode(Kind::Pipe, "", 0644);
}

void FakeFileSystem::SetCreationTime(const std::string& path, Instant time) {
  nodes_.at(path).created = time;
}

std::optional<std::string> FakeFileSystem::Content(const std::string& path) const {
  const Node* node = Find(path);
  if (node == nullptr || node->kind != Kind::File) return std::nullopt;
  return node->content;
}

unsigned FakeFileSystem::Mode(const std::string& path) const {
  const Node* node = Find(path);
  return node == nullptr ? 0 : node->mode;
}

void FakeFileSystem::FailAtStep(std::size_t step, Failing failing) {
  steps_ = 0;
  failing_step_ = step;
  failing_ = failing;
}

void FakeFileSystem::StopFailing() {
  steps_ = 0;
  failing_step_ = 0;
}

const FakeFileSystem::Node* FakeFileSystem::Find(const std::string& path) const {
  const auto found = nodes_.find(path);
  return found == nodes_.end() ? nullptr : &found->second;
}

bool FakeFileSystem::StepSucceeds() const {
  ++steps_;
  if (failing_step_ == 0) return true;
  return failing_ == Failing::Once ? steps_ != failing_step_ : steps_ < failing_step_;
}

FakeFileSystem::Node FakeFileSystem::MakeNode(Kind kind, std::string_view content, unsigned mode) {
  Node node;
  node.kind = kind;
  node.content = content;
  node.mode = mode;
  node.inode = ++last_inode_;
  // Two writes within one tick of the clock still leave different times.
  node.modified = CurrentClock().Now().time_since_epoch().count() * 1'000'000 +
                  static_cast<std::int64_t>(last_inode_);
  node.created = CurrentClock().Now();
  return node;
}

bool FakeFileSystem::IsReplacedBy(const WriteTerms& terms, const Node& node) const {
  switch (terms.replaces) {
    case WriteTerms::Replaces::Nothing:
      return false;
    case WriteTerms::Replaces::Anything:
      return true;
    case WriteTerms::Replaces::Known:
      return IdentityOf(node.inode, node.content.size(), node.modified) == terms.known ||
             (terms.is_known_content && terms.is_known_content(node.content));
  }
  return false;
}

WriteReport FakeFileSystem::Write(const std::string& path, const WriteTerms& terms,
                                  unsigned new_mode, std::string content) {
  const Node* old = Find(path);
  if (failing_paths_.contains(path) || !IsFolder(FolderOf(path))) return Failed(FileStep::MakeFile);
  if (old != nullptr && old->kind != Kind::File) return Failed(FileStep::LookAtFile);
  if (old != nullptr && terms.replaces == WriteTerms::Replaces::Nothing) return FoundAnother();
  if (!StepSucceeds()) return Failed(FileStep::MakeFile);
  const std::string folder = FolderOf(path);
  const std::string temporary =
      (folder == "/" ? folder : folder + '/') + std::string(kTemporaryPrefix) + "fake";
  nodes_[temporary] = MakeNode(Kind::File, "", old != nullptr ? old->mode : new_mode);
  nodes_[temporary].content = std::move(content);
  const auto give_up = [this, &temporary](WriteReport report) {
    if (StepSucceeds()) nodes_.erase(temporary);
    return report;
  };

  if (!StepSucceeds()) return give_up(Failed(FileStep::Write));
  if (!StepSucceeds()) return give_up(Failed(FileStep::Sync));
  if (while_writing_) std::exchange(while_writing_, nullptr)();
  old = Find(path);
  if (old != nullptr && !IsReplacedBy(terms, *old)) return give_up(FoundAnother());
  if (!StepSucceeds()) return give_up(Failed(FileStep::PutInPlace));
  std::optional<Node> replaced;
  if (old != nullptr) replaced = *old;
  auto node = nodes_.extract(temporary);
  nodes_[path] = std::move(node.mapped());
  WriteReport report;
  if (!StepSucceeds()) {
    report = Failed(FileStep::SyncFolder);
    // Back to what was there, if that can be done.
    if ((!replaced || has_exchange_) && StepSucceeds()) {
      if (replaced) {
        nodes_[path] = *std::move(replaced);
      } else {
        nodes_.erase(path);
      }
      return report;
    }
  }
  report.in_place = Identity(path);
  return report;
}

}  // namespace tallyfold
