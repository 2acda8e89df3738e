#include <gtest/gtest.h>

#include "storage/account_numbers.h"
#include "storage/accounts_store_fixture.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

std::string Accounts(std::string_view dictionaries) {
  return FileOf("<key>accounts</key><array>" + std::string(dictionaries) + "</array>");
}

TEST(AccountsLoading, TakesWhatTheFileHoldsAndSetsTheRestAside) {
  const std::string one = "<dict><key>version</key><integer>7</integer></dict>";
  struct {
    const char* name;
    std::string content;
    std::size_t accounts;
    std::string password;
    bool authenticated;
    std::string reason;  // why the file is set aside; "" when it is not
  } const cases[] = {
      {"an empty list", Accounts(""), 0, "", true, ""},
      {"no password", Accounts(one), 1, "", true, ""},
      {"an empty password",
       FileOf("<key>accounts</key><array/><key>password</key><string></string>"), 0, "", true, ""},
      {"a password", FileOf("<key>accounts</key><array/><key>password</key><string>p</string>"), 0,
       "p", false, ""},
      {"a password that is no text",
       FileOf("<key>accounts</key><array/><key>password</key><integer>1</integer>"), 0, "", true,
       "The password in the file is no text."},
      {"a password, and no accounts", FileOf("<key>password</key><string>p</string>"), 0, "p",
       false, "The file does not contain a list of accounts."},
      {"accounts that are no list", FileOf("<key>accounts</key><string>x</string>"), 0, "", true,
       "The file does not contain a list of accounts."},
      {"elements that are no accounts", Accounts("<true/>" + one + "<array/>"), 1, "", true,
       "Some of the file is not in the form that Tallyfold writes."},
      {"no dictionary", "<plist><array/></plist>", 0, "", true,
       "The file does not hold a dictionary."},
      {"nothing", "", 0, "", true, "Line 1: "},
      {"a file that breaks off", "<plist>\n<dict>\n<key>accounts</key><arr", 0, "", true,
       "Line 3: "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    AccountsStoreFixture f;
    EXPECT_TRUE(f.LoadFile(c.content));
    EXPECT_EQ(f.store.accounts().size(), c.accounts);
    EXPECT_EQ(f.store.password(), c.password);
    EXPECT_EQ(f.store.authenticated(), c.authenticated);
    EXPECT_FALSE(f.store.HasUnsavedChanges());
    ASSERT_EQ(f.store.SetAside().has_value(), !c.reason.empty());
    if (!c.reason.empty()) {
      const FileSetAside& aside = *f.store.SetAside();
      EXPECT_TRUE(aside.reason.starts_with(c.reason)) << aside.reason;
      EXPECT_EQ(aside.kept_path, kFile + ".kept-20070305-120000");
    }

    const bool has_no_list = c.reason.starts_with("The file does not contain");
    EXPECT_EQ(f.ambient.log.Lines() == Lines{"Accounts file does not contain any accounts."},
              has_no_list);

    // Whatever was not taken in is still there after a save, and copied once only.
    f.ambient.clock.Advance(std::chrono::seconds{5});
    EXPECT_TRUE(f.store.Accounts_Save());
    EXPECT_TRUE(f.store.Accounts_Save());
    EXPECT_EQ(f.store.KeptCopies().size(), c.reason.empty() ? 0U : 1U);
    if (!c.reason.empty()) {
      EXPECT_EQ(f.files.Content(f.store.SetAside()->kept_path), c.content);
    }
  }
}

TEST(AccountsLoading, WithNoReadableFileStartsWithNoAccounts) {
  for (const bool is_pipe : {false, true}) {
    AccountsStoreFixture f;
    is_pipe ? f.files.AddPipe(kFile) : f.files.AddFolder(kFile);
    EXPECT_TRUE(f.store.Accounts_Load());
    EXPECT_TRUE(f.store.accounts().empty());
    EXPECT_EQ(f.store.SetAside()->reason, "The file cannot be read.");
    // What stands there is not touched; the change stays in memory and is known to be unsaved.
    f.store.AddAccount(std::make_shared<LDGRAccount>());
    EXPECT_FALSE(f.store.Accounts_Save());
    EXPECT_TRUE(f.store.HasUnsavedChanges());
    EXPECT_TRUE(f.files.Exists(kFile));
  }
  AccountsStoreFixture f;
  EXPECT_TRUE(f.store.Accounts_Load());
  EXPECT_TRUE(f.store.HasAccountList());
  EXPECT_FALSE(f.store.SetAside());
  EXPECT_EQ(f.asked, Lines{"forget selection"});
  EXPECT_TRUE(f.files.Changes().empty());
}

TEST(AccountsLoading, NumbersAccountsThatHaveNoNumber) {
  struct {
    std::vector<std::int64_t> stored;
    std::vector<std::int32_t> numbers;
  } const cases[] = {
      {{0, -1, 0, -1}, {0, 1, 0, 2}},
      {{-5, 3, -5}, {1, 3, 4}},
      // A later account keeps the number it came with.
      {{-1, -1, 1}, {3, 2, 1}},
      // Where no higher number is left, the least free one.
      {{-1, 2147483647, -1, 2, -1}, {1, 2147483647, 3, 2, 4}},
      {{-1, 1, 2147483647}, {2, 1, 2147483647}},
      // Beyond 32 bits: the last ones of those.
      {{-4294967297, 3, 4294967297}, {1, 3, 2147483647}},
  };
  for (const auto& c : cases) {
    std::string content;
    for (const std::int64_t number : c.stored) {
      content += "<dict><key>version</key><integer>7</integer><key>number</key><integer>" +
                 std::to_string(number) + "</integer></dict>";
    }
    AccountsStoreFixture f;
    EXPECT_TRUE(f.LoadFile(Accounts(content)));
    std::vector<std::int32_t> numbers;
    for (const auto& account : f.store.accounts()) numbers.push_back(account->GetNumber());
    EXPECT_EQ(numbers, c.numbers);
  }
}

TEST(AccountsLoading, LeavesSharedNumbersAndTellsOfThem) {
  AccountsStoreFixture f;
  std::string content;
  for (const auto& [name, number] : {std::pair{"A", 3}, {"B %@", 4}, {"C", 3}, {"D", 3}}) {
    content += "<dict><key>version</key><integer>7</integer><key>name</key><string>" +
               std::string(name) + "</string><key>number</key><integer>" + std::to_string(number) +
               "</integer></dict>";
  }
  EXPECT_TRUE(f.LoadFile(Accounts(content)));
  EXPECT_EQ(NotesOnSharedAccountNumbers(f.store.accounts()),
            Lines{"The account number 3 is that of \"A\", \"C\" and \"D\".  Transfers and view "
                  "settings with that number go to the first."});
}

TEST(AccountsLoading, AsksOrRefusesByTheVersionsOfAccounts) {
  const std::string too_new = "Account Information Is Too New";
  const std::string update = "Update Accounts File?";
  struct {
    std::vector<std::string> versions;
    std::string answer;
    std::string title;  // of the one alert; "" for none
    bool goes_on;
  } const cases[] = {
      {{}, "", "", true},
      {{"<integer>7</integer>"}, "", "", true},
      {{"<integer>7</integer>", "<integer>8</integer>"}, "Quit", too_new, false},
      {{"<integer>5</integer>", "<integer>8</integer>"}, "Quit", too_new, false},
      {{"<integer>7</integer>", "<integer>5</integer>", "<integer>4</integer>"},
       "Update",
       update,
       true},
      {{"<integer>7</integer>", "<integer>5</integer>"}, "Quit", update, false},
      {{""}, "Quit", update, false},
      {{"<string>6</string>"}, "Update", update, true},
      {{"<string>8</string>"}, "Quit", too_new, false},
      {{"<true/>"}, "Update", update, true},
      {{"<real>1e300</real>"}, "Quit", too_new, false},
  };
  for (const auto& c : cases) {
    std::string content = "<string>no account</string>";
    for (const std::string& version : c.versions) {
      content += "<dict>" + (version.empty() ? "" : "<key>version</key>" + version) + "</dict>";
    }
    SCOPED_TRACE(content);
    AccountsStoreFixture f;
    if (!c.answer.empty()) f.alerts.Answer(c.answer);
    EXPECT_EQ(f.LoadFile(Accounts(content)), c.goes_on);
    ASSERT_EQ(f.alerts.Requests().size(), c.title.empty() ? 0U : 1U);
    if (!c.title.empty()) {
      const AlertRequest& alert = f.alerts.Requests()[0];
      EXPECT_EQ(alert.title, c.title);
      EXPECT_EQ(alert.buttons, c.title == update ? Lines({"Quit", "Update"}) : Lines{"Quit"});
    }
    EXPECT_EQ(f.store.accounts().size(), c.goes_on ? c.versions.size() : 0U);
    for (const auto& account : f.store.accounts()) EXPECT_EQ(account->GetVersion(), 7);
    if (c.goes_on) {
      EXPECT_TRUE(f.application.Requests().empty());
      continue;
    }
    // The shut-down that follows writes nothing, nor does anything later.
    EXPECT_EQ(f.asked, (Lines{"forget selection", "close window", "not saved"}));
    EXPECT_EQ(f.application.Requests(), Lines{"end 0"});
    EXPECT_FALSE(f.store.Accounts_Save());
    EXPECT_FALSE(f.store.Accounts_SaveToFilePath("/home/user/copy.plist"));
    EXPECT_EQ(f.files.Content(kFile), Accounts(content));
    EXPECT_FALSE(f.files.Exists(kBackups));
  }
}

TEST(AccountsLoading, WritesNothingWhileAQuestionIsOpen) {
  // An alert during which the program is told to shut down.
  struct SavingAlerts final : Alerts {
    std::size_t Run(const AlertRequest&) override {
      saved = store->Accounts_Save() || store->Accounts_SaveToFilePath("/home/user/copy.plist");
      return 1;
    }
    AccountsStore* store = nullptr;
    bool saved = true;
  };
  AccountsStoreFixture f;
  SavingAlerts alerts;
  AccountsStore store({f.files, alerts, f.application, f.processes}, f.gate, f.lock, f);
  alerts.store = &store;
  const std::string content = Accounts("<dict/>");
  f.files.AddFile(kFile, content);
  EXPECT_FALSE(store.Accounts_Save());  // nothing was loaded yet
  EXPECT_TRUE(store.Accounts_Load());
  EXPECT_FALSE(alerts.saved);
  EXPECT_EQ(f.files.Content(kFile), content);
  EXPECT_TRUE(store.Accounts_Save());
}

TEST(AccountsLoading, FindsAccountsByNumber) {
  AccountsStoreFixture f;
  EXPECT_EQ(f.store.AccountWithNumber(0), nullptr);
  EXPECT_EQ(f.store.HighestAccountNumber(), 0);
  for (const std::int32_t number : {-4, 3, 9, 3}) {
    auto account = std::make_shared<LDGRAccount>();
    account->SetNumber(number);
    f.store.AddAccount(account);
  }
  EXPECT_EQ(f.store.AccountWithNumber(3), f.store.accounts()[1]);
  EXPECT_EQ(f.store.AccountWithNumber(4), nullptr);
  EXPECT_EQ(f.store.HighestAccountNumber(), 9);
  f.store.RemoveAccount(f.store.accounts()[2].get());
  f.store.RemoveAccount(nullptr);
  EXPECT_EQ(f.store.HighestAccountNumber(), 3);
}

TEST(AccountsBackup, IsTakenWhenDueUnderTheRightName) {
  using std::chrono::hours;
  struct {
    const char* name;
    std::string app_version;  // in the file; "" for none
    int interval;
    std::vector<std::pair<std::string, int>> backups;  // with their age in hours
    std::string made;                                  // "" for none
  } const cases[] = {
      {"the first", "2.0", 7, {{".DS_Store", 1}}, "Accounts_3_5_2007_2.0"},
      {"three days after", "2.0", 7, {{"A", 900}, {"Accounts_3_2_2007_2.0.plist", 72}}, ""},
      {"seven days after", "2.0", 7, {{"A", 168}}, "Accounts_3_5_2007_2.0.plist"},
      {"each time", "2.0", 0, {{"A", 1}}, "Accounts_3_5_2007_2.0.plist"},
      {"another version", "1.9", 7, {{"A", 1}}, "Accounts_3_5_2007_Before_2.0.plist"},
      {"a version unknown", "", 7, {}, "Accounts_3_5_2007_Before_2.0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    AccountsStoreFixture f;
    LDGRPreferences::sharedPreferences().SetBackupInterval(c.interval);
    for (const auto& [name, age] : c.backups) {
      f.files.AddFile(kBackups + '/' + name, "");
      f.files.SetCreationTime(kBackups + '/' + name, f.ambient.clock.Now() - hours{age});
    }
    const std::string content = FileOf(
        "<key>accounts</key><array/>" +
        (c.app_version.empty() ? ""
                               : "<key>appVersion</key><string>" + c.app_version + "</string>"));
    EXPECT_TRUE(f.LoadFile(content));
    const std::string path = kBackups + '/' + c.made;
    const Lines changes = f.files.Changes();
    ASSERT_GE(changes.size(), 2U);
    EXPECT_EQ(changes[0], "permissions " + kData + " 700");
    EXPECT_EQ(changes[1], "permissions " + kFile + " 700");
    if (c.made.empty()) {
      EXPECT_EQ(changes.size(), 2U) << changes.back();
    } else {
      EXPECT_EQ(changes.back(), "copy " + kFile + ' ' + path);
      EXPECT_EQ(f.files.Content(path), content);
    }
    EXPECT_TRUE(f.processes.Launched().empty());
    EXPECT_EQ(f.store.Backups().empty(), c.made.empty() && c.backups.empty());
  }
}

TEST(AccountsBackup, IsLeftToTheCompressToolWhereItCanBeUndone) {
  for (const bool has_uncompress : {false, true}) {
    AccountsStoreFixture f;
    f.files.AddFile("/usr/bin/compress", "");
    if (has_uncompress) f.files.AddFile("/usr/bin/uncompress", "");
    EXPECT_TRUE(f.LoadFile(Accounts("")));
    EXPECT_EQ(f.processes.Launched(), has_uncompress ? Lines{"/usr/bin/compress " + kBackups +
                                                             "/Accounts_3_5_2007_Before_2.0"}
                                                     : Lines{});
  }
}

TEST(AccountsBackup, LogsWhyItCouldNotBeTakenAndLoadingGoesOn) {
  struct {
    bool is_file_in_the_way;
    std::string line;
  } const cases[] = {
      {true,
       "~/Library/Tallyfold/Backups/ exists, but it's a file!  Please move the file to allow "
       "Tallyfold to create a folder to backup your data."},
      {false, "Backup operation was unsuccessful in LDGRController:Accounts_Backup."},
  };
  for (const auto& c : cases) {
    AccountsStoreFixture f;
    c.is_file_in_the_way ? f.files.AddFile(kBackups, "") : f.files.FailOn(kBackups);
    EXPECT_TRUE(f.LoadFile(Accounts("<dict><key>version</key><integer>7</integer></dict>")));
    EXPECT_EQ(f.ambient.log.Lines()[0], c.line);
    EXPECT_EQ(f.store.accounts().size(), 1U);
  }
  AccountsStoreFixture f;
  f.files.AddFile(kData, "");
  f.store.Accounts_Backup(plist::Dictionary());
  EXPECT_EQ(f.ambient.log.Lines(),
            Lines{"~/Library/Tallyfold/ exists, but it's a file!  Please move the file to allow "
                  "Tallyfold to create a folder to save your data."});
}

}  // namespace
}  // namespace tallyfold
