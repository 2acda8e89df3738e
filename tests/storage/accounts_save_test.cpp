#include <gtest/gtest.h>

#include "storage/accounts_store_fixture.h"

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

  f.files.ForgetChanges();
  EXPECT_TRUE(f.store.Accounts_Save());
  const Lines second = {"permissions " + kData + " 700", "permissions " + kFile + " 700",
                        "write " + kFile, "badge " + kFile + " accountsfilebadge"};
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

  // A save that fails shows even where nothing has changed.
  f.files.FailOn(kFile);
  EXPECT_FALSE(f.store.Accounts_Save());
  EXPECT_TRUE(f.store.HasUnsavedChanges());
  f.files.StopFailingOn(kFile);
  EXPECT_TRUE(changes_show());
  EXPECT_TRUE(f.ambient.log.Lines().empty());
}

TEST(AccountsSaving, KeepsACopyOfAFileThatSomeoneElseChanged) {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.store.Accounts_Load());
  const std::string kept = kFile + ".kept-20070305-120000";
  f.files.AddFile(kFile, "came after the load");
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_EQ(f.files.Content(kept), "came after the load");

  f.files.AddPermissions(kFile, 0777);
  EXPECT_TRUE(f.store.Accounts_Save());
  f.files.Remove(kFile);
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_EQ(f.store.KeptCopies(), Lines{kept});

  f.files.AddFile(kFile, "came after the save");
  f.files.FailOn(kept + "_1");
  EXPECT_FALSE(f.store.Accounts_Save());
  EXPECT_EQ(f.files.Content(kFile), "came after the save");
  f.files.StopFailingOn(kept + "_1");
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_EQ(f.files.Content(kept + "_1"), "came after the save");
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
  DataFolderLock third(second.files, second.alerts, second.application);
  EXPECT_FALSE(third.Acquire());
}

}  // namespace
}  // namespace tallyfold
