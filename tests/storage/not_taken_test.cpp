#include <gtest/gtest.h>

#include <algorithm>

#include "storage/accounts_store_fixture.h"
#include "storage/sample_account.h"

namespace tallyfold {
namespace {

using Lines = std::vector<std::string>;

// An accounts file with one of everything, without line ends and tabs.
std::string WholeFile() {
  AccountsStoreFixture f;
  EXPECT_TRUE(f.store.Accounts_Load());
  f.store.AddAccount(SampleAccount());
  EXPECT_TRUE(f.store.Accounts_Save());
  std::string file = *f.files.Content(kFile);
  std::erase_if(file, [](char c) { return c == '\n' || c == '\t'; });
  return file;
}

std::string Before(std::string_view key, std::string_view inserted) {
  return std::string(inserted) + "<key>" + std::string(key) + "</key>";
}
std::string Stored(std::string_view key, std::string_view value) {
  return "<key>" + std::string(key) + "</key>" + std::string(value);
}

struct Damage {
  std::string from;  // the first of it in the file
  std::string to;
  Lines log;
  std::string reason;  // the end of why the file is set aside; "" when it is not
};

// Puts a key of no meaning before `key`.
Damage UnknownKeyBefore(std::string_view key) {
  return {
      Before(key, ""), Before(key, "<key>odd</key><true/>"), {}, "The key \"odd\" is not known."};
}
Damage OtherValue(std::string_view key, std::string_view value, std::string_view other,
                  const Lines& log, std::string_view reason) {
  return {Stored(key, value), Stored(key, other), log, std::string(reason)};
}

const std::string kWrongEntry =
    "theValue is in the wrong format in LDGRAccountEntry:initWithDictionary";
const std::string kWrongSplit =
    "theValue is in the wrong format in LDGRAccountEntrySplit:initWithDictionary";

void ExpectKeptAsSaid(const std::string& content, const Damage& damage, AccountsStoreFixture& f) {
  SCOPED_TRACE(damage.from + " -> " + damage.to);
  ASSERT_TRUE(f.LoadFile(content));
  EXPECT_EQ(f.ambient.log.Lines(), damage.log);
  ASSERT_EQ(f.store.accounts().size(), 1U);
  ASSERT_NE(f.store.SetAside().has_value(), damage.reason.empty());
  if (f.store.SetAside()) {
    EXPECT_TRUE(f.store.SetAside()->reason.ends_with(damage.reason)) << f.store.SetAside()->reason;
  }
  EXPECT_TRUE(f.store.Accounts_Save());
  EXPECT_TRUE(f.store.Accounts_Save());
  ASSERT_EQ(f.store.KeptCopies().size(), damage.reason.empty() ? 0U : 1U);
  if (damage.reason.empty()) return;
  EXPECT_EQ(f.files.Content(f.store.KeptCopies()[0]), content);
}

TEST(WhatIsNotTaken, IsKeptBesideTheFileBeforeItIsSavedOver) {
  const std::string sample = WholeFile();
  const Damage cases[] = {
      {"<key>entries</key>",
       "<key>entrhes</key>",
       {"Account does not have entries in LDGRAccount:initWithDictionary"},
       "The key \"entrhes\" is not known."},
      {"<key>schedules</key>",
       Before("schedules", "<key>entries</key><array/>"),
       {},
       "The key \"entries\" stands twice."},
      UnknownKeyBefore("appVersion"),
      UnknownKeyBefore("checkNumber"),
      UnknownKeyBefore("toFrom"),
      UnknownKeyBefore("repeatInterval"),
      UnknownKeyBefore("isCheck"),
      UnknownKeyBefore("showStyle"),
      // What an upgrade reads and leaves; and what is merely missing.
      {"<key>checkNumber</key>", Before("checkNumber", "<key>isDebit</key><true/>"), {}, ""},
      {"<key>cleared</key><true/>",
       "",
       {"No cleared defined for theDictionary in LDGRAccountEntry:initWithDictionary"},
       ""},
      {"<key>name</key><string>", "<key>name</key><string>in the wrong format ", {}, ""},
      // Wrong kinds where no line tells.
      OtherValue("number", "<integer>3</integer>", "<string>3</string>", {},
                 "A value of \"number\" is of a wrong kind."),
      OtherValue("name", "<string>Gift</string>", "<integer>1</integer>", {},
                 "A value of \"name\" is of a wrong kind."),
      OtherValue("isDeposit", "<false/>", "<string>no</string>", {},
                 "A value of \"isDeposit\" is of a wrong kind."),
      {"<string>first</string>", "<data/>", {}, "A value of \"descriptions\" is of a wrong kind."},
      {"<real>0.2</real>",
       "<string>0.2</string>",
       {},
       "A value of \"amounts\" is of a wrong kind."},
      {"<string>first</string>",
       "<string>first</string><string/>",
       {},
       "Something of \"descriptions\" was left out."},
      OtherValue("entryFlags", "<integer>4</integer>", "<integer>2</integer>", {},
                 "Something of \"transferEntry\" was left out."),
      // Not-a-number is of a wrong kind, great numbers are of a right one.
      {"<real>-1234567.89</real>",
       "<real>nan</real>",
       {kWrongEntry},
       "A value of \"amount\" is of a wrong kind."},
      {"<real>0.2</real>",
       "<real>-inf</real>",
       {kWrongSplit},
       "A value of \"amounts\" is of a wrong kind."},
      {"<real>-1234567.89</real>", "<real>-999999999999999.9</real>", {}, ""},
      {"<real>-1234567.89</real>",
       "<real>-1e15</real>",
       {},
       "A value of \"amount\" is out of its range."},
      OtherValue("checkNumber", "<integer>101</integer>", "<integer>1099511627776</integer>", {},
                 "A value of \"checkNumber\" is out of its range."),
      OtherValue("checkNumber", "<integer>101</integer>", "<integer>18446744073709551615</integer>",
                 {}, "A value of \"checkNumber\" is out of its range."),
      OtherValue("selectedAccountSummary", "<integer>0</integer>", "<integer>12</integer>", {},
                 "A value of \"selectedAccountSummary\" is out of its range."),
      OtherValue("defaultDepositType", "<integer>-1</integer>", "<integer>99</integer>", {},
                 "A value of \"defaultDepositType\" is out of its range."),
      {"<key>committedDates</key><array>",
       "<key>committedDates</key><array><string/>",
       {"committedDates is in the wrong format for schedule."},
       "A value of \"committedDates\" is of a wrong kind."},
      {"<key>accountSummaries</key><array>",
       "<key>accountSummaries</key><array><true/>",
       {"Account Summaries are in the wrong format in LDGRAccount:initWithDictionary"},
       "Something of \"accountSummaries\" was left out."},
  };
  for (const Damage& damage : cases) {
    std::string content = sample;
    const std::size_t place = content.find(damage.from);
    ASSERT_NE(place, std::string::npos) << damage.from;
    content.replace(place, damage.from.size(), damage.to);
    AccountsStoreFixture f;
    ExpectKeptAsSaid(content, damage, f);
  }
}

TEST(WhatIsNotTaken, IsAlsoWhatAnUpgradeReplacesWithoutABackup) {
  const std::string no_backup = "The file is of an older form, and no backup of it was made.";
  struct {
    std::string version;
    bool is_backed_up;
    Damage damage;
  } const cases[] = {
      {"<integer>6</integer>", true, {}},
      {"<integer>6</integer>", false, {"", "", {}, no_backup}},
      {"<integer>7</integer>", false, {}},
      {"<string>6</string>", true, {"", "", {}, "A value of \"version\" is of a wrong kind."}},
      {"<integer>6</integer>", true,
       OtherValue("date", "<integer>20070305</integer>", "<string>soon</string>", {},
                  "A value of \"date\" could not be brought to the present form.")},
      {"<integer>4</integer>", true,
       OtherValue("amount", "<real>-1234567.89</real>", "<data/>", {},
                  "A value of \"amount\" could not be brought to the present form.")},
      {"<integer>2</integer>",
       true,
       {"<key>checkNumber</key>",
        Before("checkNumber", "<key>isCheck</key><string>x</string>"),
        {},
        "A value of \"isCheck\" is of a wrong kind."}},
  };
  for (const auto& c : cases) {
    std::string content = WholeFile();
    for (const auto& [from, to] :
         {std::pair(Stored("version", "<integer>7</integer>"), Stored("version", c.version)),
          std::pair(c.damage.from, c.damage.to)}) {
      content.replace(content.find(from), from.size(), to);
    }
    AccountsStoreFixture f;
    if (!c.is_backed_up) f.files.AddFile(kBackups + "/Accounts_3_5_2007_2.0", "");
    f.alerts.Answer("Update");
    ExpectKeptAsSaid(content, c.damage, f);
  }
}

}  // namespace
}  // namespace tallyfold
