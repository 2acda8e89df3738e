#include <gtest/gtest.h>

#include <functional>

#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/shell/application.h"
#include "app/shell/application_lock.h"
#include "app/shell/idle_watch.h"
#include "app/shell/lifecycle.h"
#include "app/shell/saving.h"
#include "app/test_application.h"
#include "app/views/registers.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kAccountsFile = "/home/user/Library/Tallyfold/Accounts.plist";
constexpr const char* kPreferencesFile =
    "/home/user/Library/Preferences/Quorva/Tallyfold Preferences";

std::string AccountsFile(const std::string& accounts, const std::string& password = "") {
  return "<plist version=\"1.0\"><dict><key>accounts</key><array>" + accounts +
         "</array><key>password</key><string>" + password +
         "</string><key>appVersion</key><string>2.0</string></dict></plist>";
}

std::string AccountDictionary(int number, const std::string& name, int version = 7) {
  return "<dict><key>name</key><string>" + name + "</string><key>number</key><integer>" +
         std::to_string(number) + "</integer><key>version</key><integer>" +
         std::to_string(version) + "</integer></dict>";
}

// Notes the calls of the launch with what was there at the time: preferences, observed
// notifications, the list of accounts, the timer.
class LaunchLog final : public FrontEnd, public WindowHooks {
 public:
  explicit LaunchLog(TestApplication& test) : test_(test) {
    test.app.SetFrontEnd(this);
    test.app.SetWindowHooks(this);
  }

  void LoadDatePicker() override { Note("date picker"); }
  void SetUpBezels() override { Note("bezels"); }
  void updateTableFonts() override { Note("fonts"); }
  void UpdateTableRowHeights() override { Note("row heights"); }
  void SetUpControls() override { Note("controls"); }
  void Internationalize() override {
    Note("texts");
    first_column = test_.app.registers().entryDataSource().VisibleTableColumns().front().identifier;
  }
  void SetTabViewImages() override { Note("tab images"); }
  void Show() override { Note("window"); }
  void BeforeLoad() override { Note("before load"); }
  void FocusSearchField() override { Note("search field"); }
  void CenterUpdateWindow() override { Note("update window"); }
  void Close() override { Note("close"); }
  void RedrawTitledWindows() override { Note("redraw"); }
  void Changed(Area area) override {
    if (area == Area::AccountsDrawer) {
      Note(test_.app.accountsDrawer().State().is_open ? "drawer open" : "drawer");
    } else if (area == Area::WindowTitle) {
      Note(test_.app.selection().WindowTitle());
    } else if (area == Area::Sheet) {
      Note("sheet");
    } else if (area == Area::Updates) {
      Note("updates");
    } else if (area == Area::Registers) {
      Note("rows");
    }
    last_area = area;
  }

  Texts lines;
  std::string first_column;
  Area last_area = Area::Accounts;

 private:
  void Note(std::string line) {
    const std::size_t stops = test_.speech.Heard().size();
    test_.notifications.Post(kUserInputNotification);
    if (test_.app.preferencesStore().HasPreferences()) line += " P";
    if (test_.speech.Heard().size() > stops) line += "O";
    if (test_.app.accountsStore().HasAccountList()) line += "A";
    if (test_.app.idleWatch().scheduleReminderTimer().IsValid()) line += "T";
    if (lines.empty() || lines.back() != line) lines.push_back(std::move(line));
  }

  TestApplication& test_;
};

TEST(Launch, RunsItsStepsInOrder) {
  struct Case {
    const char* what;
    std::string password;
    Texts end;
  } const cases[] = {
      {"unlocked",
       "",
       {"search field POAT", "Tallyfold:  Two POAT", "rows POAT", "search field POAT",
        "update window POAT", "updates POAT"}},
      {"locked",
       "secret",
       {"sheet POAT", "search field POAT", "update window POAT", "updates POAT"}},
  };
  for (const Case& c : cases) {
    TestApplication test(false);
    test.files.AddFile(
        kAccountsFile,
        AccountsFile(AccountDictionary(1, "One") + AccountDictionary(2, "Two"), c.password));
    test.files.AddFile(kPreferencesFile,
                       "<plist version=\"1.0\"><dict><key>version</key><integer>2</integer>"
                       "<key>selectedAccountNumber</key><integer>2</integer>"
                       "<key>accountPreferences</key><array><dict>"
                       "<key>accountNumber</key><integer>2</integer><key>tables</key><array><dict>"
                       "<key>identifier</key><string>entry</string><key>columns</key><array><dict>"
                       "<key>identifier</key><string>amount</string></dict></array></dict></array>"
                       "</dict></array>"
                       "<key>checkForUpdates</key><true/></dict></plist>");
    LaunchLog log(test);
    EXPECT_TRUE(test.app.lifecycle().applicationDidFinishLaunching());
    Texts expected = {"date picker", "bezels",    "fonts P",        "row heights P",
                      "controls P",  "rows P",    "texts P",        "tab images PO",
                      "window PO",   "drawer PO", "drawer open PO", "before load PO",
                      "rows POA"};
    expected.insert(expected.end(), c.end.begin(), c.end.end());
    EXPECT_EQ(log.lines, expected) << c.what;
    // The registers have the columns of the remembered account before any account is there.
    EXPECT_EQ(log.first_column, "amount") << c.what;
    EXPECT_EQ(log.last_area, Area::EntryTypeMenu) << c.what;
    EXPECT_EQ(test.app.applicationLock().initState(), c.password.empty() ? 0 : 2) << c.what;
    // The observations are in place.
    test.notifications.Post(kWillPowerOffNotification);
    EXPECT_EQ(test.host.Requests(), Texts{"flush defaults"}) << c.what;
  }
}

TEST(Launch, StopsWithoutAWriteWhereTheProgramEnds) {
  struct Case {
    const char* what;
    std::function<void(TestApplication&)> prepare;
    Texts requests;
  } const cases[] = {
      {"another copy runs",
       [](TestApplication& t) { t.files.LockByOther("/home/user/Library/Tallyfold"); },
       {"end 2"}},
      {"a file from a newer program",
       [](TestApplication& t) {
         t.files.AddFile(kAccountsFile, AccountsFile(AccountDictionary(1, "One", 8)));
       },
       {"end 0"}},
      {"an older file that is not to be upgraded",
       [](TestApplication& t) {
         t.files.AddFile(kAccountsFile, AccountsFile(AccountDictionary(1, "One", 5)));
         t.alerts.Answer("Quit");
       },
       {"end 0"}},
  };
  for (const Case& c : cases) {
    TestApplication test(false);
    test.files.AddFile(kAccountsFile, AccountsFile(AccountDictionary(1, "One")));
    c.prepare(test);
    LaunchLog log(test);
    test.files.ForgetChanges();
    EXPECT_FALSE(test.app.lifecycle().applicationDidFinishLaunching()) << c.what;
    EXPECT_EQ(test.host.Requests(), c.requests) << c.what;
    // Neither the closing window nor a power-off writes any more.
    test.app.lifecycle().windowWillClose();
    test.app.lifecycle().workspaceWillPowerOffNotification();
    test.app.saving().Accounts_Save();
    test.app.saving().Preferences_Save();
    for (const auto& change : test.files.Changes()) {
      EXPECT_FALSE(change.starts_with("write")) << c.what << ": " << change;
    }
  }
}

TEST(ShutDown, SavesUnlessLocked) {
  struct Case {
    const char* what;
    std::function<void(TestApplication&)> prepare;
    bool saves;
  } const cases[] = {
      {"unlocked", [](TestApplication&) {}, true},
      {"with a sheet open", [](TestApplication& t) { t.app.entries().New(EntryKind::Debit); },
       true},
      {"locked",
       [](TestApplication& t) {
         t.app.applicationLock().setPassword("secret");
         t.app.applicationLock().lock();
         t.files.ForgetChanges();
       },
       false},
  };
  for (const Case& c : cases) {
    for (const bool power_off : {false, true}) {
      TestApplication test;
      const auto account = test.AddAccount("A");
      c.prepare(test);
      power_off ? test.app.lifecycle().workspaceWillPowerOffNotification()
                : test.app.lifecycle().applicationWillTerminate();
      EXPECT_EQ(test.host.Requests().back(), "flush defaults");
      Texts written;
      for (const auto& change : test.files.Changes()) {
        if (change.starts_with("write")) written.push_back(change);
      }
      EXPECT_EQ(written, c.saves ? (Texts{"write " + std::string(kAccountsFile),
                                          "write " + std::string(kPreferencesFile)})
                                 : Texts{})
          << c.what;
      EXPECT_TRUE(account->GetEntries().empty());
    }
  }
}

TEST(MainWindow, EndsTheApplicationWhenItClosesAndIsRedrawnWhenItComesBack) {
  TestApplication test;
  LaunchLog log(test);
  test.app.accountsDrawer().ToggleAccountsDrawer();
  test.app.lifecycle().applicationWillBecomeActive();
  test.app.lifecycle().applicationWillResignActive();
  test.app.lifecycle().windowWillClose();
  EXPECT_EQ(log.lines, (Texts{"drawer open PA", "texts PA", "redraw PA", "drawer PA"}));
  EXPECT_EQ(test.host.Requests(), Texts{"terminate"});
  EXPECT_EQ(test.speech.Heard(), Texts{"(stop)"});
  EXPECT_TRUE(test.app.lifecycle().applicationShouldTerminate());
  EXPECT_TRUE(test.app.lifecycle().applicationShouldTerminateAfterLastWindowClosed());
  // Closing the drawer with the window is not the user's wish to see it closed.
  EXPECT_TRUE(test.app.desk().preferences().GetShowAccountsDrawer());
  EXPECT_EQ(test.app.accountsDrawer().State().menu_item_title, "Show Accounts");
}

}  // namespace
}  // namespace tallyfold
