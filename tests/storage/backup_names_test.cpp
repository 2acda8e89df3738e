#include "storage/backup_names.h"

#include <gtest/gtest.h>

namespace tallyfold {
namespace {

using Names = std::vector<std::string>;
using std::chrono::days;
using std::chrono::milliseconds;

constexpr CivilTime kToday{2007, 3, 5, 7, 45, 1};

TEST(BackupNames, TellTheDayAndTheVersion) {
  EXPECT_EQ(AccountsBackupName(kToday, "2.0"), "Accounts_3_5_2007_2.0");
  EXPECT_EQ(AccountsBackupName({2007, 12, 31, 0, 0, 0}, "2.0"), "Accounts_12_31_2007_2.0");
  EXPECT_EQ(AccountsBackupNameBefore(kToday, "2.1"), "Accounts_3_5_2007_Before_2.1");
  EXPECT_EQ(PreferencesBackupNameBefore("2.1"), "Tallyfold Preferences_Before_2.1");
}

TEST(BackupNames, AreUniqueInTheirFolder) {
  const std::string base = "Accounts_3_5_2007_2.0";
  struct {
    Names listing;
    std::string accounts;
    std::string plain;
  } const cases[] = {
      // The first one goes without an extension.
      {{}, base, base},
      {{"Accounts_3_4_2007_2.0.plist"}, base + ".plist", base},
      {{base}, base + "_1.plist", base + "_1"},
      {{base + ".plist"}, base + "_1.plist", base + "_1"},
      {{base + ".plist", base + "_1.plist"}, base + "_2.plist", base + "_2"},
      {{base + "_1.plist.Z", base + ".plist.Z"}, base + "_2.plist", base + "_2"},
      {{"copy of " + base + ".plist"}, base + "_1.plist", base + "_1"},
      // A gap is used; _10 takes _1 with it, being the longer text.
      {{base + ".plist", base + "_2.plist"}, base + "_1.plist", base + "_1"},
      {{base + ".plist", base + "_10.plist"}, base + "_2.plist", base + "_2"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.listing));
    EXPECT_EQ(UniqueAccountsBackupName(c.listing, base), c.accounts);
    EXPECT_EQ(UniqueBackupName(c.listing, base), c.plain);
  }
}

TEST(BackupNames, OfKeptCopiesTellTheSecond) {
  const std::string name = "Accounts.plist.kept-20070305-074501";
  EXPECT_EQ(KeptCopyName({"Accounts.plist"}, "Accounts.plist", kToday), name);
  EXPECT_EQ(KeptCopyName({name}, "Accounts.plist", kToday), name + "_1");
}

TEST(Backups, AreDueAfterTheIntervalInWholeDays) {
  const Instant now{std::chrono::sys_days{std::chrono::year{2007} / 3 / 5}};
  struct {
    std::optional<Instant> newest;
    int interval;
    bool due;
  } const cases[] = {
      {std::nullopt, 7, true},
      {now - days{3}, 7, false},
      {now - days{7}, 7, true},
      {now - days{7} + milliseconds{1}, 7, false},
      {now - days{8}, 7, true},
      {now, 0, true},
      {now, -1, true},
      {now + milliseconds{1}, 0, true},
      {now + days{1} - milliseconds{1}, 0, true},
      {now + days{1}, 0, false},
      {now + milliseconds{1}, 1, false},
      {now + days{400}, 7, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(BackupIsDue(c.newest, now, c.interval), c.due) << c.interval;
  }
}

}  // namespace
}  // namespace tallyfold
