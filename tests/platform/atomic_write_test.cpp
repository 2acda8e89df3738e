#include "system/atomic_write.h"

#include <errno.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "fakes/file_text.h"
#include "fakes/temporary_folder.h"
#include "system/posix_file_system.h"

namespace tallyfold {
namespace {

namespace fs = std::filesystem;

// The real calls, but for those that are to fail.
class FaultyCalls final : public FileCalls {
 public:
  enum class Failing { Once, ForEverAfter };

  FaultyCalls(int step, Failing failing) : failing_step_(step), failing_(failing) {}

  int OpenFolder(const std::string& path) override {
    return Fails() ? -1 : FileCalls::OpenFolder(path);
  }
  int CreateFile(int folder, const std::string& name, mode_t mode) override {
    return Fails() ? -1 : FileCalls::CreateFile(folder, name, mode);
  }
  int ChangeOwner(int file, uid_t user, gid_t group) override {
    return Fails() ? -1 : FileCalls::ChangeOwner(file, user, group);
  }
  int ChangeMode(int file, mode_t mode) override {
    return Fails() ? -1 : FileCalls::ChangeMode(file, mode);
  }
  // A disk that fills up has taken a part of what it was given.
  ssize_t Write(int file, const char* bytes, size_t size) override {
    if (Fails()) {
      if (short_write_) return -1;
      short_write_ = true;
      --steps_;
      return FileCalls::Write(file, bytes, size / 2);
    }
    return FileCalls::Write(file, bytes, size);
  }
  int Sync(int file_or_folder) override { return Fails() ? -1 : FileCalls::Sync(file_or_folder); }
  // A failed close has closed all the same.
  int Close(int file_or_folder) override {
    const bool fails = Fails();
    const int result = FileCalls::Close(file_or_folder);
    return fails ? -1 : result;
  }
  int Rename(int folder, const std::string& from, const std::string& to, unsigned flags) override {
    return Fails() ? -1 : FileCalls::Rename(folder, from, to, flags);
  }
  int Remove(int folder, const std::string& name) override {
    return Fails() ? -1 : FileCalls::Remove(folder, name);
  }

  [[nodiscard]] bool HasFailed() const { return steps_ >= failing_step_; }

 private:
  bool Fails() {
    ++steps_;
    errno = EIO;
    return failing_ == Failing::Once ? steps_ == failing_step_ : steps_ >= failing_step_;
  }

  int failing_step_;
  Failing failing_;
  int steps_ = 0;
  bool short_write_ = false;
};

void Put(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

unsigned Mode(const std::string& path) {
  return static_cast<unsigned>(fs::status(path).permissions());
}

std::size_t FileCount(const std::string& folder) {
  return static_cast<std::size_t>(
      std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

// More than the writer gathers before it writes, in pieces smaller and larger than that.
const std::string kNew = std::string(100'000, 'x') + std::string(700'000, 'y') + "end";

WriteReport WriteNew(FileCalls& calls, const std::string& path) {
  return WriteFileAtomically(calls, path, {}, 0600, [](ByteSink& sink) {
    sink.Append(std::string_view(kNew).substr(0, 100'000));
    sink.Append(std::string_view(kNew).substr(100'000, 700'000));
    sink.Append("");
    sink.Append("end");
    return true;
  });
}

// Fails at step 1, 2, 3 ... until a write goes through untouched. Returns the number of steps.
int FailAtEveryStep(FaultyCalls::Failing failing, bool replaces) {
  for (int step = 1;; ++step) {
    const TemporaryFolder folder;
    const std::string path = folder / "Accounts.plist";
    if (replaces) Put(path, "old");
    FaultyCalls calls(step, failing);
    const bool written{WriteNew(calls, path)};
    if (!calls.HasFailed()) {
      EXPECT_TRUE(written);
      EXPECT_TRUE(FileText(path) == kNew);
      EXPECT_EQ(FileCount(folder.path()), 1u);
      return step - 1;
    }

    SCOPED_TRACE("step " + std::to_string(step) + (replaces ? " replacing" : " making"));
    const bool is_new = FileText(path) == kNew;
    const bool is_old = replaces ? FileText(path) == "old" : !fs::exists(path);
    EXPECT_TRUE(is_new || is_old);
    if (written) {
      EXPECT_TRUE(is_new);
    } else if (failing == FaultyCalls::Failing::Once) {
      EXPECT_TRUE(is_old);
      EXPECT_EQ(FileCount(folder.path()), replaces ? 1u : 0u);
    }
    PosixFileSystem().RemoveTemporaries(folder.path());
    EXPECT_EQ(FileCount(folder.path()), is_new || replaces ? 1u : 0u);
  }
}

TEST(AtomicWrite, LeavesOldOrNewWhereverItFails) {
  // Open the folder, create, set the mode, write thrice, sync, close, rename, sync the folder, and
  // close that; replacing a file also removes the old one under its other name.
  EXPECT_EQ(FailAtEveryStep(FaultyCalls::Failing::Once, true), 12);
  EXPECT_EQ(FailAtEveryStep(FaultyCalls::Failing::ForEverAfter, true), 12);
  EXPECT_EQ(FailAtEveryStep(FaultyCalls::Failing::Once, false), 11);
  EXPECT_EQ(FailAtEveryStep(FaultyCalls::Failing::ForEverAfter, false), 11);
}

// Lets something happen to the file just before the new one is put in its place, and knows as much
// of renaming as some file system does.
class MeddledCalls final : public FileCalls {
 public:
  enum class Knows { Exchange, LinksOnly, NeitherOfThem };
  MeddledCalls(Knows knows, std::function<void()> meddle)
      : knows_(knows), meddle_(std::move(meddle)) {}

  int Rename(int folder, const std::string& from, const std::string& to, unsigned flags) override {
    if (meddle_) std::exchange(meddle_, nullptr)();
    if (flags == 0 || knows_ == Knows::Exchange) {
      if (++renames_ != failing_rename) return FileCalls::Rename(folder, from, to, flags);
      errno = EIO;
      return -1;
    }
    errno = EINVAL;
    return -1;
  }
  int Link(int folder, const std::string& from, const std::string& to) override {
    if (knows_ == Knows::LinksOnly) return FileCalls::Link(folder, from, to);
    errno = EPERM;
    return -1;
  }
  int Sync(int file_or_folder) override {
    errno = EIO;
    return ++syncs_ == failing_sync ? -1 : FileCalls::Sync(file_or_folder);
  }

  int failing_rename = 0;
  int failing_sync = 0;

 private:
  Knows knows_;
  std::function<void()> meddle_;
  int renames_ = 0;
  int syncs_ = 0;
};

using Knows = MeddledCalls::Knows;
using Replaces = WriteTerms::Replaces;

TEST(AtomicWrite, DestroysNothingThatCameInMeanwhile) {
  enum class Meddling { None, SwapIn, WriteInto, TouchOnly, PutThere, TakeAway };
  const struct {
    const char* name;
    bool is_there;
    Replaces replaces;
    Meddling meddling;
    bool written;
  } cases[] = {
      {"known", true, Replaces::Known, Meddling::None, true},
      {"another swapped in", true, Replaces::Known, Meddling::SwapIn, false},
      {"changed where it is", true, Replaces::Known, Meddling::WriteInto, false},
      {"the same content anew", true, Replaces::Known, Meddling::TouchOnly, true},
      {"taken away", true, Replaces::Known, Meddling::TakeAway, true},
      {"one where none is to be", true, Replaces::Nothing, Meddling::None, false},
      {"one where none was", false, Replaces::Nothing, Meddling::PutThere, false},
      {"still none", false, Replaces::Nothing, Meddling::None, true},
      {"another than was to be replaced", true, Replaces::Anything, Meddling::SwapIn, false},
      {"more of what is to be replaced", true, Replaces::Anything, Meddling::WriteInto, true},
      {"one where none was seen", false, Replaces::Anything, Meddling::PutThere, false},
  };
  for (const auto& c : cases) {
    for (const Knows knows : {Knows::Exchange, Knows::LinksOnly, Knows::NeitherOfThem}) {
      SCOPED_TRACE(c.name + std::string(" ") + std::to_string(static_cast<int>(knows)));
      const TemporaryFolder folder;
      const std::string path = folder / "file";
      PosixFileSystem files;
      if (c.is_there) Put(path, "old");
      MeddledCalls calls(knows, [&] {
        if (c.meddling == Meddling::TakeAway) fs::remove(path);
        if (c.meddling == Meddling::WriteInto) std::ofstream(path, std::ios::app) << "er";
        if (c.meddling == Meddling::SwapIn || c.meddling == Meddling::TouchOnly) {
          Put(folder / "other", c.meddling == Meddling::SwapIn ? "theirs" : "old");
          fs::rename(folder / "other", path);
        }
        if (c.meddling == Meddling::PutThere) Put(path, "theirs");
      });
      WriteTerms terms;
      terms.replaces = c.replaces;
      terms.known = files.Identity(path).value_or(FileIdentity{});
      terms.is_known_content = [](std::string_view content) { return content == "old"; };
      const WriteReport report = WriteFileAtomically(
          calls, path, terms, 0600, [](ByteSink& sink) { return sink.Append("new"), true; });
      EXPECT_EQ(!report.failure, c.written);
      EXPECT_EQ(report.found_another, !c.written);
      EXPECT_EQ(FileText(path) == "new", c.written);
      EXPECT_EQ(report.in_place, c.written ? files.Identity(path) : std::nullopt);
      if (c.meddling == Meddling::SwapIn) {
        EXPECT_EQ(FileText(path), "theirs");
      }
      EXPECT_EQ(FileCount(folder.path()), 1u);
    }
  }
}

TEST(AtomicWrite, SparesWhatCameInWhereThereIsNoWayBack) {
  const TemporaryFolder folder;
  const std::string path = folder / "file";
  PosixFileSystem files;
  Put(path, "old");
  WriteTerms terms;
  terms.replaces = Replaces::Known;
  terms.known = *files.Identity(path);
  MeddledCalls calls(Knows::Exchange, [&] {
    Put(folder / "other", "theirs");
    fs::rename(folder / "other", path);
  });
  calls.failing_rename = 2;
  const WriteReport report =
      WriteFileAtomically(calls, path, terms, 0600, [](ByteSink&) { return true; });
  EXPECT_TRUE(report.found_another);
  EXPECT_EQ(report.in_place, files.Identity(path));
  files.RemoveTemporaries(folder.path());
  for (const std::string& name : files.List(folder.path())) {
    EXPECT_TRUE(name == "file" ||
                (name.starts_with("file.kept-") && FileText(folder / name.c_str()) == "theirs"))
        << name;
  }
  EXPECT_EQ(FileCount(folder.path()), 2u);
}

TEST(AtomicWrite, TellsTheFileThatIsInPlaceAndWhereItFailed) {
  for (const bool replaces : {false, true}) {
    for (const Knows knows : {Knows::Exchange, Knows::NeitherOfThem}) {
      const TemporaryFolder folder;
      const std::string path = folder / "file";
      if (replaces) Put(path, "old");
      MeddledCalls calls(knows, nullptr);
      calls.failing_sync = 2;  // the folder's
      const WriteReport report = WriteNew(calls, path);
      ASSERT_TRUE(report.failure);
      EXPECT_EQ(report.failure->step, FileStep::SyncFolder);
      EXPECT_EQ(report.failure->reason, "Input/output error");
      const bool stays = replaces && knows == Knows::NeitherOfThem;
      EXPECT_EQ(FileText(path) == kNew, stays);
      EXPECT_EQ(report.in_place, stays ? PosixFileSystem().Identity(path) : std::nullopt);
    }
  }
}

// The real calls, but for giving files away.
class NoGifts final : public FileCalls {
 public:
  int ChangeOwner(int, uid_t, gid_t) override {
    errno = EPERM;
    return -1;
  }
};

TEST(AtomicWrite, GivesAnotherGroupNoPermission) {
  const TemporaryFolder folder;
  const std::string path = folder / "file";
  Put(path, "old");
  if (chown(path.c_str(), static_cast<uid_t>(-1), 12345) != 0) {
    GTEST_SKIP() << "needs a user who may give files away";
  }
  ASSERT_EQ(chmod(path.c_str(), 0664), 0);
  FileCalls calls;
  EXPECT_TRUE(WriteNew(calls, path));
  EXPECT_EQ(Mode(path), 0664u);
  NoGifts no_gifts;
  EXPECT_TRUE(WriteNew(no_gifts, path));
  EXPECT_EQ(Mode(path), 0604u);
}

TEST(AtomicWrite, LeavesNothingBehindAProducerThatGivesUp) {
  const TemporaryFolder folder;
  FileCalls calls;
  Put(folder / "file", "old");
  EXPECT_FALSE(WriteFileAtomically(calls, folder / "file", {}, 0600, [](ByteSink& sink) {
    sink.Append("half");
    return false;
  }));
  EXPECT_THROW(static_cast<void>(WriteFileAtomically(
                   calls, folder / "file", {}, 0600,
                   [](ByteSink&) -> bool { throw std::runtime_error("out of memory"); })),
               std::runtime_error);
  EXPECT_EQ(FileText(folder / "file"), "old");
  EXPECT_EQ(FileCount(folder.path()), 1u);
}

TEST(AtomicWrite, KeepsTheModeOfAFileAndGivesANewOneItsOwn) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  const mode_t former_mask = umask(027);
  const struct {
    const char* name;
    std::optional<unsigned> old_mode;
    NewFileMode new_mode;
    unsigned expected;
  } cases[] = {
      {"private", std::nullopt, NewFileMode::Private, 0600},
      {"by mask", std::nullopt, NewFileMode::ByUmask, 0640},
      {"open to all", 0666, NewFileMode::Private, 0666},
      {"read-only", 0444, NewFileMode::ByUmask, 0444},
  };
  for (const auto& c : cases) {
    const std::string path = folder / c.name;
    if (c.old_mode) {
      Put(path, "old");
      ASSERT_EQ(chmod(path.c_str(), *c.old_mode), 0);
    }
    EXPECT_TRUE(files.WriteAtomically(path, c.new_mode, "new")) << c.name;
    EXPECT_EQ(Mode(path), c.expected) << c.name;
    EXPECT_EQ(FileText(path), "new") << c.name;
  }
  umask(former_mask);
}

TEST(AtomicWrite, FollowsSymbolicLinks) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  ASSERT_TRUE(files.CreateFolder(folder / "there"));
  Put(folder / "there/file", "old");
  fs::create_symlink("there/file", folder / "relative");
  fs::create_symlink(folder / "relative", folder / "absolute");
  fs::create_symlink("there/not yet", folder / "dangling");
  fs::create_symlink("circle", folder / "circle");
  fs::create_symlink("there", folder / "to a folder");

  EXPECT_TRUE(files.WriteAtomically(folder / "absolute", NewFileMode::Private, "new"));
  EXPECT_EQ(FileText(folder / "there/file"), "new");
  EXPECT_TRUE(fs::is_symlink(folder / "relative"));
  EXPECT_TRUE(fs::is_symlink(folder / "absolute"));
  EXPECT_TRUE(files.WriteAtomically(folder / "dangling", NewFileMode::Private, "made"));
  EXPECT_EQ(FileText(folder / "there/not yet"), "made");
  EXPECT_FALSE(files.WriteAtomically(folder / "circle", NewFileMode::Private, "new"));
  EXPECT_FALSE(files.WriteAtomically(folder / "to a folder", NewFileMode::Private, "new"));
  EXPECT_EQ(FileCount(folder / "there"), 2u);
}

TEST(AtomicWrite, RefusesWhatIsNoRegularFile) {
  const TemporaryFolder folder;
  PosixFileSystem files;
  ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
  ASSERT_TRUE(files.CreateFolder(folder / "folder"));
  for (const std::string& path : {folder / "pipe", folder / "folder", folder / "missing/file",
                                  folder / "", std::string("/dev/null"), std::string()}) {
    EXPECT_FALSE(files.WriteAtomically(path, NewFileMode::Private, "new")) << path;
  }
  EXPECT_EQ(FileCount(folder.path()), 2u);
}

}  // namespace
}  // namespace tallyfold
