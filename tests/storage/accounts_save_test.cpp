#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <new>

#include "fakes/temporary_folder.h"
#include "model/type_handover.h"
#include "storage/accounts_store_fixture.h"
#include "storage/own_files.h"
#include "system/posix_file_system.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

TEST(AccountsSaving, MakesTheFolderWritesAndGivesTheBadgeInThisOrder) {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.store.Accounts_Load());
  EXPECT_TRUE(f.store.Accounts_Save());
  const Lines first = {"folder /home/user/Library", "folder " + kData,
                       "permissions " + kData + " 700", "write " + kFile,
                       "badge " + kFile + " accountsfilebadge"};
  EXPECT_EQ(f.files.Changes(), first);
  EXPECT_EQ(f.files.Mode(kFile), 0600U);
  EXPECT_TRUE(f.lock.IsHeld());

  // What the file holds already is not written again, and needs no disk that takes it.
  f.files.ForgetChanges();
  f.files.FailOn(kFile);
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_FALSE(f.store.HasUnsavedChanges());
  Lines second = {"permissions " + kData + " 700", "permissions " + kFile + " 700",
                  "badge " + kFile + " accountsfilebadge"};
  EXPECT_EQ(f.files.Changes(), second);

  f.files.StopFailingOn(kFile);
  f.files.ForgetChanges();
  f.store.AddAccount(std::make_shared<LDGRAccount>());
  EXPECT_TRUE(f.store.Accounts_Save());
  second.insert(second.end() - 1, "write " + kFile);
  EXPECT_EQ(f.files.Changes(), second);
}

TEST(AccountsSaving, WritesAccountsPasswordAndVersion) {
  AccountsStoreFixture f;
  f.files.AddFolder("/home/user/Documents");
  f.store.AddAccount(nullptr);
  EXPECT_FALSE(f.store.Accounts_SaveToFilePath("/home/user/Documents/a.plist"));
  EXPECT_TRUE(f.store.Accounts_Load());
  const std::string path = "/home/user/Documents/a.plist";
  struct {
    std::optional<std::string> password;
    std::string written;
  } const cases[] = {
      {std::nullopt, "<key>password</key>\n\t<string></string>"},
      {"a<b", "<key>password</key>\n\t<string>a&lt;b</string>"},
      {"", "<key>password</key>\n\t<string></string>"},
  };
  for (const auto& c : cases) {
    f.store.setPassword(c.password);
    EXPECT_TRUE(f.store.Accounts_SaveToFilePath(path));
    EXPECT_TRUE(f.files.Content(path)->ends_with(
        "<dict>\n\t<key>accounts</key>\n\t<array/>\n\t" + c.written +
        "\n\t<key>appVersion</key>\n\t<string>2.0</string>\n</dict>\n</plist>\n"))
        << *f.files.Content(path);
  }
  EXPECT_FALSE(f.store.Accounts_SaveToFilePath(std::nullopt));
}

TEST(AccountsSaving, LogsAFolderThatIsNone) {
  struct {
    std::string file;  // where a file stands
    std::optional<std::string> path;
    std::string line;
  } const cases[] = {
      {kData, std::nullopt,
       "~/Library/Tallyfold/ exists, but it's a file instead of a folder.  Tallyfold is unable to "
       "save your Accounts"},
      {"/home/user/x", "/home/user/x/a.plist",
       "/home/user/x exists, but it's a file instead of a folder.  Tallyfold is unable to save "
       "your "
       "Accounts."},
      {"/home/user/x", "/home/user/y/a.plist",
       "/home/user/y does not exist.  Tallyfold is unable to save your Accounts."},
      {"/home/user/x", "a.plist", " does not exist.  Tallyfold is unable to save your Accounts."},
  };
  for (const auto& c : cases) {
    AccountsStoreFixture f;
    EXPECT_TRUE(f.store.Accounts_Load());
    f.files.AddFile(c.file, "kept");
    EXPECT_FALSE(c.path ? f.store.Accounts_SaveToFilePath(c.path) : f.store.Accounts_Save());
    EXPECT_EQ(f.ambient.log.Lines(), Lines{c.line});
    EXPECT_EQ(f.files.Content(c.file), "kept");
    EXPECT_TRUE(f.files.Changes().empty());
  }
}

TEST(AccountsSaving, KnowsWhatIsNotOnTheDisk) {
  AccountsStoreFixture f;
  EXPECT_FALSE(f.store.HasUnsavedChanges());
  EXPECT_TRUE(f.store.Accounts_Load());
  EXPECT_FALSE(f.store.HasUnsavedChanges());
  const auto changes_show = [&f] {
    const bool shown = f.store.HasUnsavedChanges();
    return shown && f.store.Accounts_Save() && !f.store.HasUnsavedChanges();
  };
  const auto account = std::make_shared<LDGRAccount>();
  f.store.AddAccount(account);
  EXPECT_TRUE(changes_show());
  account->SetName("Savings");
  EXPECT_TRUE(changes_show());
  f.store.setPassword("p");
  EXPECT_TRUE(changes_show());
  f.store.setPassword("p");
  f.store.setPassword(std::nullopt);
  EXPECT_FALSE(f.store.HasUnsavedChanges());

  // A new account in the place of a removed one.
  f.store.RemoveAccount(account.get());
  f.store.AddAccount(std::make_shared<LDGRAccount>());
  EXPECT_TRUE(changes_show());

  // A copy elsewhere is no save.
  f.store.accounts()[0]->SetName("Checking");
  EXPECT_TRUE(f.store.Accounts_SaveToFilePath("/home/user/copy.plist"));
  EXPECT_TRUE(changes_show());

  // A save that fails shows.
  f.store.accounts()[0]->SetName("Cash");
  f.files.FailOn(kFile);
  EXPECT_FALSE(f.store.Accounts_Save());
  EXPECT_TRUE(f.store.HasUnsavedChanges());
  f.files.StopFailingOn(kFile);
  EXPECT_TRUE(changes_show());
  EXPECT_TRUE(f.ambient.log.Lines().empty());
}

TEST(AccountsSaving, KeepsACopyOnlyOfWhatItDidNotWrite) {
  const std::string old = FileOf("<key>accounts</key><array/>");
  const std::string kept = kFile + ".kept-20070305-120000";
  struct {
    const char* name;
    std::string content;
    std::function<void(AccountsStoreFixture&)> happens;  // between load and save
    std::map<std::string, std::string> kept;
    std::size_t of_others;
  } const cases[] = {
      {"nothing happens", old, [](auto&) {}, {}, 0},
      {"the file is numbered anew", old, [&](auto& f) { f.files.AddFile(kFile, old); }, {}, 0},
      {"the file is numbered anew during the save",
       old,
       [&](auto& f) { f.files.WhileWriting([&] { f.files.AddFile(kFile, old); }); },
       {},
       0},
      {"its mode is changed", old, [](auto& f) { f.files.AddPermissions(kFile, 0777); }, {}, 0},
      {"the file is taken away", old, [](auto& f) { f.files.Remove(kFile); }, {}, 0},
      {"another one is swapped in",
       old,
       [](auto& f) { f.files.WhileWriting([&] { f.files.AddFile(kFile, "theirs"); }); },
       {{kept, "theirs"}},
       1},
      {"and one where none was",
       "",
       [](auto& f) { f.files.WhileWriting([&] { f.files.AddFile(kFile, "theirs"); }); },
       {{kept, "theirs"}},
       1},
      {"one where none was before",
       "",
       [](auto& f) { f.files.AddFile(kFile, "theirs"); },
       {{kept, "theirs"}},
       1},
      {"a changed one is swapped for another",
       old,
       [](auto& f) {
         f.files.AddFile(kFile, "first");
         f.files.WhileWriting([&] { f.files.AddFile(kFile, "second"); });
       },
       {{kept, "first"}, {kept + "_1", "second"}},
       2},
      {"the folder cannot be listed",
       old,
       [&](auto& f) {
         f.files.AddFile(kFile, "theirs");
         f.files.AddFile(kept, "earlier");
         f.files.FailOn(kData);
       },
       {{kept, "earlier"}, {kept + "_1", "theirs"}},
       1},
      {"a file set aside", "no list", [](auto&) {}, {{kept, "no list"}}, 0},
      {"a file set aside and taken away", "no list", [](auto& f) { f.files.Remove(kFile); }, {}, 0},
      {"a file set aside and changed",
       "no list",
       [](auto& f) { f.files.AddFile(kFile, "theirs"); },
       {{kept, "theirs"}},
       1},
      {"a folder without exchange that is not synced",
       old,
       [](auto& f) {
         f.files.HasExchange(false);
         f.files.FailAtStep(5, FakeFileSystem::Failing::Once);
         EXPECT_FALSE(f.store.Accounts_Save());
         EXPECT_EQ(f.store.Failure()->Text(),
                   "bringing the folder to the disk: Input/output error");
       },
       {},
       0},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    AccountsStoreFixture f;
    if (!c.content.empty()) f.files.AddFile(kFile, c.content);
    EXPECT_TRUE(f.store.Accounts_Load());
    c.happens(f);
    // The second save finds its own file.
    EXPECT_TRUE(f.store.Accounts_Save() && f.store.Accounts_Save());
    EXPECT_FALSE(f.store.HasUnsavedChanges() || f.store.Failure());
    f.files.StopFailingOn(kData);
    std::map<std::string, std::string> found;
    for (const std::string& name : f.files.List(kData)) {
      if (name.find(".kept-") != std::string::npos) {
        found[kData + '/' + name] = *f.files.Content(kData + '/' + name);
      }
    }
    EXPECT_EQ(found, c.kept);
    EXPECT_EQ(f.store.CopiesOfOthers().size(), c.of_others);

    // The next run tells them, until it has saved.
    AccountsStore next({f.files, f.alerts, f.application, f.processes}, f.gate, f.lock, f);
    EXPECT_TRUE(next.Accounts_Load());
    EXPECT_EQ(next.EarlierCopiesOfOthers(), f.store.CopiesOfOthers());
    EXPECT_TRUE(next.Accounts_Save());
    EXPECT_FALSE(f.files.Exists(kFile + ".kept"));
  }
}

TEST(AccountsSaving, KnowsOfTypesThatOnlyOldPreferencesHold) {
  const std::string old_account = FileOf(
      "<key>accounts</key><array><dict><key>version</key><integer>2</integer></dict></array>");
  for (const bool hands_over : {false, true}) {
    AccountsStoreFixture f;
    TypeHandOver().Clear();
    if (hands_over) TypeHandOver().Set("types", plist::Array());
    f.alerts.Answer("Update");
    EXPECT_TRUE(f.LoadFile(old_account));
    EXPECT_EQ(f.store.HoldsUnsavedTypes(), hands_over);
    f.files.FailOn(kFile);
    EXPECT_FALSE(f.store.Accounts_Save());
    EXPECT_TRUE(f.store.Accounts_SaveToFilePath("/home/user/copy.plist"));
    EXPECT_EQ(f.store.HoldsUnsavedTypes(), hands_over);
    f.files.StopFailingOn(kFile);
    EXPECT_TRUE(f.store.Accounts_Save());
    EXPECT_FALSE(f.store.HoldsUnsavedTypes());
  }
  TypeHandOver().Clear();
}

TEST(AccountsSaving, SaysWhyItFailed) {
  const std::string kept = kFile + ".kept-20070305-120000";
  struct {
    std::string content;  // "no list" is set aside
    std::function<void(AccountsStoreFixture&)> happens;
    std::string text;
  } const cases[] = {
      {"", [](auto& f) { f.files.AddFile(kData, ""); },
       "opening the folder: a file stands in its place"},
      {"", [](auto& f) { f.files.FailAtStep(3, FakeFileSystem::Failing::Once); },
       "making the new file: Input/output error"},
      {"no list", [&](auto& f) { f.files.FailOn(kept); },
       "keeping a copy of the file that was not read in whole: Input/output error"},
      {"no list",
       [&](auto& f) {
         f.files.AddFile(kFile, "theirs");
         f.files.FailOn(kept);
       },
       "keeping a copy of the file that someone else changed: Input/output error"},
      {FileOf("<key>accounts</key><array/>"),
       [](auto& f) { f.files.FailAtStep(2, FakeFileSystem::Failing::Once); },
       "writing the new file: Input/output error"},
      {FileOf("<key>accounts</key><array/>"),
       [](auto& f) { f.files.FailAtStep(4, FakeFileSystem::Failing::ForEverAfter); },
       "putting the new file in its place: Input/output error"},
      {FileOf("<key>accounts</key><array/>"),
       [](auto& f) { f.files.WhileWriting([] { throw std::bad_alloc(); }); },
       "writing the new file: there is no memory left"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    AccountsStoreFixture f;
    if (!c.content.empty()) f.files.AddFile(kFile, c.content);
    EXPECT_TRUE(f.store.Accounts_Load());
    c.happens(f);
    EXPECT_FALSE(f.store.Accounts_Save());
    ASSERT_TRUE(f.store.Failure());
    EXPECT_EQ(f.store.Failure()->Text(), c.text);
    EXPECT_EQ(f.store.HasUnsavedChanges(), !c.content.empty());
  }
}

TEST(AccountsSaving, KnowsTheAccountsFileHoweverItsPathIsWritten) {
  const TemporaryFolder home;
  const std::string former_home = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
  setenv("HOME", home.path().c_str(), 1);
  PosixFileSystem files;
  const DataPaths paths(home.path());
  std::filesystem::create_directories(paths.backup_folder);
  std::filesystem::create_directories(paths.preferences_folder);
  std::filesystem::create_directory_symlink(paths.data_folder, home / "linked");
  struct {
    std::string path;
    bool is_own;
  } const cases[] = {
      {paths.accounts_file, true},
      {paths.data_folder + "/./Accounts.plist", true},
      {paths.data_folder + "//Accounts.plist", true},
      {paths.backup_folder + "/../Accounts.plist", true},
      {home / "linked/Accounts.plist", true},
      {home / "link", true},
      {home / "Accounts.plist", false},
      {paths.data_folder + "/other.plist", false},
  };
  for (const auto& c : cases) {
    for (const bool is_there : {true, false}) {
      SCOPED_TRACE(c.path + (is_there ? "" : " (missing)"));
      std::filesystem::remove(paths.accounts_file);
      if (is_there) std::ofstream(paths.accounts_file) << "no list";
      std::filesystem::remove(home / "link");
      std::filesystem::create_symlink(paths.accounts_file, home / "link");
      AccountsStoreFixture f;
      AccountsStore store({files, f.alerts, f.application, f.processes}, f.gate, f.lock, f);
      EXPECT_TRUE(store.Accounts_Load());
      // A link to nothing is followed; what it leads to was made by somebody then.
      const bool is_own = c.is_own && (is_there || c.path != home / "link");
      EXPECT_EQ(IsOwnFile(files, paths, c.path), is_own);
      EXPECT_TRUE(store.Accounts_SaveToFilePath(c.path));
      EXPECT_EQ(store.KeptCopies().size(), is_own && is_there ? 1U : 0U);
    }
  }
  for (const std::string& own :
       {paths.accounts_file + ".kept-20070305-120000", paths.accounts_file + ".kept",
        paths.backup_folder + "/b", paths.preferences_file, paths.preferences_file + ".kept-1"}) {
    std::ofstream(own) << "x";
    std::filesystem::create_hard_link(own, home / "hard link");
    EXPECT_TRUE(IsOwnFile(files, paths, own) && IsOwnFile(files, paths, home / "hard link")) << own;
    std::filesystem::remove(home / "hard link");
  }
  setenv("HOME", former_home.c_str(), 1);
}

TEST(AccountsSaving, FailingAtAnyStepLeavesTheOldFileOrTheNewOne) {
  const std::string old = FileOf("<key>accounts</key><array/>");
  for (const std::string& content : {old, std::string("no property list")}) {
    AccountsStoreFixture counting;
    EXPECT_TRUE(counting.LoadFile(content));
    counting.files.StopFailing();
    EXPECT_TRUE(counting.store.Accounts_Save());
    const std::size_t steps = counting.files.Steps();
    const std::string saved = *counting.files.Content(kFile);
    EXPECT_GE(steps, 5U);

    for (std::size_t step = 1; step <= steps; ++step) {
      for (const auto failing :
           {FakeFileSystem::Failing::Once, FakeFileSystem::Failing::ForEverAfter}) {
        SCOPED_TRACE(step);
        AccountsStoreFixture f;
        EXPECT_TRUE(f.LoadFile(content));
        f.files.FailAtStep(step, failing);
        const bool written = f.store.Accounts_Save();
        const std::string found = f.files.Content(kFile).value_or("nothing");
        EXPECT_TRUE(found == saved || (!written && found == content)) << found;
        EXPECT_EQ(f.store.HasUnsavedChanges(), !written);

        f.files.StopFailing();
        EXPECT_TRUE(f.store.Accounts_Save());
        EXPECT_EQ(f.files.Content(kFile), saved);
        if (content != old) {
          EXPECT_EQ(f.files.Content(f.store.SetAside()->kept_path), content);
        }
      }
    }
  }
}

TEST(DataFolderLock, LetsOneCopyRun) {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.lock.Acquire());  // no folder yet
  EXPECT_FALSE(f.lock.IsHeld());
  const std::string left_over[] = {kData + "/.tallyfold-1234", kBackups + "/.tallyfold-1234"};
  for (const std::string& path : left_over) f.files.AddFile(path, "");
  f.files.LockByOther(kData);
  EXPECT_FALSE(f.lock.Acquire());
  EXPECT_EQ(f.application.Requests(), Lines{"end 2"});
  for (const std::string& path : left_over) EXPECT_TRUE(f.files.Exists(path));

  AccountsStoreFixture second;
  for (const std::string& path : left_over) second.files.AddFile(path, "");
  EXPECT_TRUE(second.lock.Acquire());
  EXPECT_TRUE(second.lock.IsHeld());
  for (const std::string& path : left_over) EXPECT_FALSE(second.files.Exists(path));
  DataFolderLock third(second.files, second.alerts, second.application, second.gate);
  EXPECT_FALSE(third.Acquire());
}

}  // namespace
}  // namespace tallyfold
