#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "fakes/fake_file_system.h"
#include "fakes/temporary_folder.h"
#include "platform/appended_file.h"
#include "system/posix_file_system.h"
#include "system/system_clock.h"

namespace tallyfold {
namespace {

std::vector<std::string> SortedList(const FileSystem& files, const std::string& folder) {
  std::vector<std::string> names = files.List(folder);
  std::sort(names.begin(), names.end());
  return names;
}

std::string Text(const FileSystem& files, const std::string& path) {
  const auto contents = files.Read(path);
  return contents ? std::string(contents->view()) : "(none)";
}

// The real files below a folder of their own, and the fake ones: one must stand for the other.
struct RealFiles {
  PosixFileSystem files;
  TemporaryFolder temporary;
  std::string root = temporary.path();
  void MakePipe(const std::string& path) { ASSERT_EQ(mkfifo(path.c_str(), 0600), 0); }
};

struct FilesInMemory {
  FakeFileSystem files;
  std::string root = files.HomeFolder();
  void MakePipe(const std::string& path) { files.AddPipe(path); }
};

template <typename Files>
class FileSystems : public testing::Test {
 protected:
  Files its_;
};
using BothFileSystems = testing::Types<RealFiles, FilesInMemory>;
TYPED_TEST_SUITE(FileSystems, BothFileSystems);

TYPED_TEST(FileSystems, MakeFoldersOneAtATime) {
  FileSystem& files = this->its_.files;
  const std::string folder = this->its_.root + "/a";
  EXPECT_FALSE(files.CreateFolder(folder + "/b"));
  EXPECT_TRUE(files.CreateFolder(folder));
  EXPECT_FALSE(files.CreateFolder(folder));
  EXPECT_TRUE(files.CreateFolder(folder + "/b"));
  EXPECT_TRUE(files.WriteAtomically(folder + "/file", NewFileMode::Private, ""));
  EXPECT_FALSE(files.CreateFolder(folder + "/file/c"));
  EXPECT_EQ(SortedList(files, folder), (std::vector<std::string>{"b", "file"}));
  EXPECT_EQ(SortedList(files, folder + "/missing"), std::vector<std::string>{});
  EXPECT_EQ(SortedList(files, folder + "/file"), std::vector<std::string>{});
  EXPECT_TRUE(files.IsFolder(folder + "/b"));
  EXPECT_FALSE(files.IsFolder(folder + "/file"));
  EXPECT_FALSE(files.IsFolder(folder + "/missing"));
}

TYPED_TEST(FileSystems, ReadOnlyRegularFiles) {
  FileSystem& files = this->its_.files;
  const std::string& root = this->its_.root;
  const std::string binary("a\0b\r\n\xFF", 6);
  EXPECT_TRUE(files.WriteAtomically(root + "/binary", NewFileMode::Private, binary));
  EXPECT_TRUE(files.WriteAtomically(root + "/empty", NewFileMode::Private, ""));
  this->its_.MakePipe(root + "/pipe");
  EXPECT_EQ(Text(files, root + "/binary"), binary);
  EXPECT_EQ(Text(files, root + "/empty"), "");
  EXPECT_EQ(Text(files, root + "/pipe"), "(none)");
  EXPECT_EQ(Text(files, root), "(none)");
  EXPECT_EQ(Text(files, root + "/missing"), "(none)");
  EXPECT_TRUE(files.Exists(root + "/pipe"));
  EXPECT_FALSE(files.Exists(root + "/missing"));
  EXPECT_FALSE(files.Copy(root + "/pipe", root + "/copy"));
  EXPECT_FALSE(files.Copy(root + "/missing", root + "/copy"));
  EXPECT_FALSE(files.Copy(root, root + "/copy"));
  EXPECT_FALSE(files.Exists(root + "/copy"));
}

TYPED_TEST(FileSystems, TellAChangedFileFromTheOneThatWasRead) {
  FileSystem& files = this->its_.files;
  const std::string path = this->its_.root + "/file";
  EXPECT_FALSE(files.Identity(path));
  EXPECT_TRUE(files.WriteAtomically(path, NewFileMode::Private, "one"));
  const auto first = files.Identity(path);
  ASSERT_TRUE(first);
  EXPECT_EQ(files.Identity(path), first);
  files.AddPermissions(path, 0044);
  EXPECT_EQ(files.Identity(path), first);
  EXPECT_TRUE(files.WriteAtomically(path, NewFileMode::Private, "two"));
  EXPECT_NE(files.Identity(path), first);
}

TYPED_TEST(FileSystems, CopyContentIntoAFileOfItsOwn) {
  FileSystem& files = this->its_.files;
  const std::string& root = this->its_.root;
  const std::string large(600'000, 'z');
  EXPECT_TRUE(files.WriteAtomically(root + "/from", NewFileMode::Private, large));
  EXPECT_TRUE(files.Copy(root + "/from", root + "/to"));
  EXPECT_TRUE(Text(files, root + "/to") == large);
  EXPECT_TRUE(files.WriteAtomically(root + "/from", NewFileMode::Private, "changed"));
  EXPECT_TRUE(Text(files, root + "/to") == large);
  const WriteReport again = files.Copy(root + "/from", root + "/to");
  EXPECT_TRUE(again.found_another && !again);
  EXPECT_TRUE(Text(files, root + "/to") == large);
  EXPECT_TRUE(files.Remove(root + "/from") && files.Remove(root + "/from"));
  EXPECT_FALSE(files.Exists(root + "/from"));
  EXPECT_FALSE(files.Copy(root + "/from", root + "/missing/to"));
  EXPECT_TRUE(files.CreationTime(root + "/to"));
  EXPECT_FALSE(files.CreationTime(root + "/missing"));
}

TYPED_TEST(FileSystems, RemoveWhatInterruptedWritesLeft) {
  FileSystem& files = this->its_.files;
  const std::string& root = this->its_.root;
  for (const char* name : {"/.tallyfold-1a2b", "/.tallyfold-", "/.tallyfol", "/tallyfold-1"}) {
    EXPECT_TRUE(files.WriteAtomically(root + name, NewFileMode::Private, ""));
  }
  files.RemoveTemporaries(root);
  files.RemoveTemporaries(root + "/missing");
  EXPECT_EQ(SortedList(files, root), (std::vector<std::string>{".tallyfol", "tallyfold-1"}));
}

TYPED_TEST(FileSystems, LockAFolderOnce) {
  FileSystem& files = this->its_.files;
  const std::string& root = this->its_.root;
  std::unique_ptr<FolderLock> first;
  std::unique_ptr<FolderLock> second;
  EXPECT_EQ(files.LockFolder(root + "/missing", first), LockResult::Unavailable);
  EXPECT_FALSE(first);
  EXPECT_EQ(files.LockFolder(root, first), LockResult::Held);
  EXPECT_EQ(files.LockFolder(root, second), LockResult::HeldByOther);
  EXPECT_FALSE(second);
  EXPECT_EQ(SortedList(files, root), std::vector<std::string>{});
  first.reset();
  EXPECT_EQ(files.LockFolder(root, second), LockResult::Held);
}

TYPED_TEST(FileSystems, AppendToAFileThatNobodyElseHas) {
  FileSystem& files = this->its_.files;
  const std::string path = this->its_.root + "/log";
  std::unique_ptr<AppendedFile> file;
  std::unique_ptr<AppendedFile> other;
  EXPECT_EQ(files.OpenAppended(path, AppendedFileStart::Existing, file), LockResult::Unavailable);
  EXPECT_EQ(files.OpenAppended(this->its_.root + "/missing/log", AppendedFileStart::New, file),
            LockResult::Unavailable);
  ASSERT_EQ(files.OpenAppended(path, AppendedFileStart::New, file), LockResult::Held);
  EXPECT_EQ(files.OpenAppended(path, AppendedFileStart::New, other), LockResult::Unavailable);
  EXPECT_EQ(files.OpenAppended(path, AppendedFileStart::Existing, other), LockResult::HeldByOther);
  EXPECT_TRUE(file->Append("one"));
  EXPECT_TRUE(file->Append("two"));
  EXPECT_TRUE(file->CutTo(4));
  EXPECT_TRUE(file->Append("x"));
  EXPECT_EQ(file->Read()->view(), "onetx");
  file.reset();
  ASSERT_EQ(files.OpenAppended(path, AppendedFileStart::Existing, file), LockResult::Held);
  EXPECT_TRUE(file->Append("!"));
  ASSERT_TRUE(files.WriteAtomically(path + "-2", NewFileMode::Private, "mine"));
  EXPECT_FALSE(file->RenameTo(path + "-2")) << "that name is taken";
  EXPECT_TRUE(file->RenameTo(path + "-3"));
  EXPECT_EQ(Text(files, path + "-2"), "mine");
  EXPECT_EQ(Text(files, path + "-3"), "onetx!");
  EXPECT_TRUE(file->Remove());
  EXPECT_FALSE(file->Remove());
  EXPECT_EQ(SortedList(files, this->its_.root), std::vector<std::string>{"log-2"});
}

TEST(PosixFileSystem, AppendsToNothingButItsOwnPrivateFile) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  ASSERT_TRUE(files.WriteAtomically(folder / "target", NewFileMode::Private, "text"));
  ASSERT_EQ(symlink((folder / "target").c_str(), (folder / "link").c_str()), 0);
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  std::unique_ptr<AppendedFile> file;
  for (const char* name : {"link", "pipe", ""}) {
    for (const auto start : {AppendedFileStart::Existing, AppendedFileStart::New}) {
      EXPECT_EQ(files.OpenAppended(folder / name, start, file), LockResult::Unavailable) << name;
    }
  }
  ASSERT_EQ(files.OpenAppended(folder / "log", AppendedFileStart::New, file), LockResult::Held);
  struct stat status = {};
  ASSERT_EQ(stat((folder / "log").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0600u);
  // Someone else's file under its name is left alone.
  ASSERT_EQ(rename((folder / "target").c_str(), (folder / "log").c_str()), 0);
  EXPECT_FALSE(file->Remove());
  EXPECT_TRUE(files.Exists(folder / "log"));
}

TEST(PosixFileSystem, AddsPermissionsToThoseThereAre) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  const std::string path = folder / "file";
  ASSERT_TRUE(files.WriteAtomically(path, NewFileMode::Private, "text"));
  struct stat status = {};
  files.AddPermissions(path, 0444);
  files.AddPermissions(folder / "missing", 0444);
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0644u);

  // A copy has the permission of the file it was made from.
  EXPECT_TRUE(files.Copy(path, folder / "copy"));
  ASSERT_EQ(stat((folder / "copy").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0644u);
}

TEST(PosixFileSystem, KnowsWhenAFileWasMade) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  const Instant before = SystemClock().Now();
  ASSERT_TRUE(files.WriteAtomically(folder / "file", NewFileMode::Private, "text"));
  const auto created = files.CreationTime(folder / "file");
  ASSERT_TRUE(created);
  // File systems stamp with the time of the last tick.
  EXPECT_GE(*created, before - std::chrono::seconds{1});
  EXPECT_LE(*created, SystemClock().Now());
}

TEST(PosixFileSystem, ReadsFilesThatDoNotTellTheirSize) {
  const auto contents = PosixFileSystem().Read("/proc/self/status");
  ASSERT_TRUE(contents);
  EXPECT_NE(contents->view().find("Name:"), std::string_view::npos);
}

TEST(PosixFileSystem, TakesTheHomeFolderFromTheEnvironment) {
  const char* former = std::getenv("HOME");
  const std::string saved = former == nullptr ? "" : former;
  const struct {
    const char* home;
    const char* expected;  // null: that of the user's record, whatever it is
  } cases[] = {{"/home/ann", "/home/ann"},
               {"/home/ann//", "/home/ann"},
               {"/", ""},
               {"relative", nullptr},
               {"", nullptr}};
  for (const auto& c : cases) {
    setenv("HOME", c.home, 1);
    const std::string home = PosixFileSystem().HomeFolder();
    if (c.expected != nullptr) {
      EXPECT_EQ(home, c.expected);
    } else {
      EXPECT_TRUE(home.starts_with('/')) << home;
    }
  }
  setenv("HOME", saved.c_str(), 1);
}

}  // namespace
}  // namespace tallyfold
