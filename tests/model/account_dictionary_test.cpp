#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

using plist::Array;
using plist::Dictionary;
using plist::Value;

// A kind that no key takes when kinds are tested.
Value Wrong() {
  return Value::Opaque(plist::Kind::Date, "2004-03-07T00:00:00Z");
}

std::string Replaced(std::string text, std::string_view what, std::string_view with) {
  return text.replace(text.find(what), what.size(), with);
}

TEST(AccountDictionary, LogsEachMissingAndEachWrongKeyOnceAndKeepsItsDefault) {
  const char* const in = " in LDGRAccount:initWithDictionary";
  struct Case {
    std::string key;
    std::string missing;
    std::string wrong;  // "" where any kind will do
  };
  // In the order in which keys are stored, and so read.
  std::vector<Case> cases = {
      {"name", "Account does not have a name%", "Account name is in the wrong format%"},
      {"number", "Account does not have an identification number%", ""},
      {"version", "Account does not have a version%", ""},
      {"entries", "Account does not have entries%", "Account entries are in the wrong format%"},
      {"schedules", "Account does not have schedules%",
       "Account schedules are in the wrong format%"},
      {"startingCheckNumber", "Account does not have a starting check number%",
       "Account starting check number is in the wrong format%"},
      {"numberCount", "", ""},
      {"startingBalance", "Account does not have a starting balance%",
       "Account starting balance is in the wrong format%"},
      {"password", "Account does not have a password%", "Account password is in the wrong format%"},
      {"types", "No types defined for LDGRAccount.",
       "types are in the wrong format for LDGRAccount."},
      {"inactiveTypes", "No inactiveTypes defined for LDGRAccount.",
       "inactiveTypes are in the wrong format for LDGRAccount."},
      {"defaultDebitType", "", ""},
      {"defaultDepositType", "", ""},
      {"preference_Descriptions_Style", "", ""},
      {"preference_ToFrom_Style", "", ""},
      {"preference_Descriptions_SomeSelection", "", ""},
      {"preference_ToFrom_SomeSelection", "", ""},
      {"preferredDebitDescriptions", "", ""},
      {"preferredDepositDescriptions", "", ""},
      {"preferredTransferDescriptions", "", ""},
      {"preferredTos", "", ""},
      {"preferredFroms", "", ""},
      {"statementBalance", "Account does not have a statementBalance%",
       "Account statementBalance is in the wrong format%"},
      {"accountSummaries", "Account does not have any account summaries%",
       "Account Summaries are in the wrong format%"},
      {"selectedAccountSummary", "", ""},
      {"entryFilterType", "", ""},
      {"reconcileFilterType", "", ""},
      {"entryFilterData", "No entryFilterData defined for LDGRAccount.", ""},
      {"reconcileFilterData", "No reconcileFilterData defined for LDGRAccount.", ""},
      {"QIFImportEncoding", "", ""},
      {"QIFImportDateFormat", "", ""},
      {"QIFImportDecimalSeparator", "No QIFImportDecimalSeparator defined%",
       "QIFImportDecimalSeparator is in the wrong format%"},
      {"QIFImportThousandsSeparator", "No QIFImportThousandsSeparator defined%",
       "QIFImportThousandsSeparator is in the wrong format%"},
      {"QIFImportZeroAmountsAsDeposits", "", ""},
      {"QIFImportAllTypes", "", ""},
      {"QIFImportSplitLineItems", "", ""},
      {"QIFImport_SwapOptions_ToFrom", "", ""},
      {"QIFImport_SwapOptions_Type", "", ""},
      {"QIFImport_SwapOptions_Description", "", ""},
      {"textExport_ExportType", "", ""},
      {"textExport_Encoding", "", ""},
      {"lastTransferAccount", "", ""},
      {"isLastTransferOrigin", "", ""},
  };
  FakeAmbient ambient;
  const Dictionary defaults = LDGRAccount().asDictionary();
  ASSERT_EQ(defaults.size(), std::size(cases));
  std::vector<std::string> all_missing;
  const auto* item = defaults.begin();
  for (Case& test : cases) {
    EXPECT_EQ((item++)->key(), test.key);
    if (test.missing.empty()) {
      test.missing = "No " + test.key + " defined for LDGRAccount.";
      test.wrong = test.key + " is in wrong format for LDGRAccount.";
    }
    if (test.missing.ends_with('%')) test.missing = Replaced(test.missing, "%", in);
    if (test.wrong.ends_with('%')) test.wrong = Replaced(test.wrong, "%", in);
    all_missing.push_back(test.missing);

    Dictionary stored = defaults.ShallowCopy();
    stored.Remove(test.key);
    EXPECT_EQ(LDGRAccount(stored).asDictionary(), defaults) << test.key;
    EXPECT_EQ(ambient.log.Take(), std::vector<std::string>{test.missing});

    stored.Set(test.key, Wrong());
    const LDGRAccount account(stored);
    if (test.wrong.empty()) {
      EXPECT_EQ(ambient.log.Take(), std::vector<std::string>{});
    } else {
      EXPECT_EQ(account.asDictionary(), defaults) << test.key;
      EXPECT_EQ(ambient.log.Take(), std::vector<std::string>{test.wrong});
    }
  }
  EXPECT_EQ(LDGRAccount(Dictionary()).asDictionary(), defaults);
  EXPECT_EQ(ambient.log.Take(), all_missing);
  EXPECT_EQ(LDGRAccount(std::nullopt).asDictionary(), defaults);
  EXPECT_EQ(
      ambient.log.Take(),
      std::vector<std::string>{"Invalid theDictionary supplied to LDGRAccount:initWithDictionary"});
}

TEST(AccountDictionary, SkipsElementsThatAreNoRecords) {
  const std::pair<const char*, const char*> cases[] = {
      {"entries", "Account entries are in the wrong format in LDGRAccount:initWithDictionary"},
      {"schedules", "Account schedules are in the wrong format in LDGRAccount:initWithDictionary"},
      {"types", "types are in the wrong format for LDGRAccount."},
      {"inactiveTypes", "inactiveTypes are in the wrong format for LDGRAccount."},
      {"accountSummaries",
       "Account Summaries are in the wrong format in LDGRAccount:initWithDictionary"},
      {"preferredTos", "preferredTos is in wrong format for LDGRAccount."}};
  FakeAmbient ambient;
  LDGRAccount full;
  full.AddEntry(MakeEntry({.number = 1}));
  full.AddSchedule(std::make_shared<LDGRAccountSchedule>());
  full.SetInactiveTypes({MakeType(9, "Old")});
  full.SetPreferredTos({"Market"});
  for (const auto& [key, message] : cases) {
    const Dictionary stored = full.asDictionary();
    Array list = stored.Get(key).ArrayValue();
    const Array whole = list.ShallowCopy();
    list.Append(7);
    list.Append(Array());
    EXPECT_EQ(LDGRAccount(stored).asDictionary().Get(key), Value(whole)) << key;
    EXPECT_EQ(ambient.log.Take(), (std::vector<std::string>{message, message}));
  }
}

// Every option gets a value of its own, so that no two keys can be mixed up unseen.
TEST(AccountDictionary, StoresEachOptionUnderItsKeyAndReadsItBack) {
  using A = LDGRAccount;
  const struct {
    const char* key;
    Value value;
    void (*set)(A&);
  } cases[] = {
      {"name", "Home", [](A& a) { a.SetName("Home"); }},
      {"number", 3, [](A& a) { a.SetNumber(3); }},
      {"version", 8, [](A& a) { a.SetVersion(8); }},
      {"startingCheckNumber", 1001, [](A& a) { a.SetStartingCheckNumber(1001); }},
      {"startingBalance", 1.01, [](A& a) { a.SetStartingBalance(1.005); }},
      {"password", "secret", [](A& a) { a.SetPassword("secret"); }},
      {"defaultDebitType", 0, [](A& a) { a.SetDefaultDebitType(a.AccountEntryTypeForNumber(0)); }},
      {"defaultDepositType", 5,
       [](A& a) { a.SetDefaultDepositType(a.AccountEntryTypeForNumber(5)); }},
      {"preference_Descriptions_Style", 2, [](A& a) { a.SetPreference_Descriptions_Style(2); }},
      {"preference_ToFrom_Style", 4, [](A& a) { a.SetPreference_ToFrom_Style(4); }},
      {"preference_Descriptions_SomeSelection", 5,
       [](A& a) { a.SetPreference_Descriptions_SomeSelection(5); }},
      {"preference_ToFrom_SomeSelection", 6, [](A& a) { a.SetPreference_ToFrom_SomeSelection(6); }},
      {"statementBalance", 99.125, [](A& a) { a.setStatementBalance(99.125); }},
      {"selectedAccountSummary", 7, [](A& a) { a.selectAccountSummaryAtIndex(7); }},
      {"entryFilterType", 10, [](A& a) { a.setEntryFilterType(10); }},
      {"reconcileFilterType", 11, [](A& a) { a.setReconcileFilterType(11); }},
      {"entryFilterData", "typed", [](A& a) { a.setEntryFilterData("typed"); }},
      {"reconcileFilterData", 17, [](A& a) { a.setReconcileFilterData(17); }},
      {"QIFImportEncoding", 12, [](A& a) { a.SetQIFImportEncoding(12); }},
      {"QIFImportDateFormat", 13, [](A& a) { a.SetQIFImportDateFormat(13); }},
      {"QIFImportDecimalSeparator", ";", [](A& a) { a.SetQIFImportDecimalSeparator(";"); }},
      {"QIFImportThousandsSeparator", "'", [](A& a) { a.SetQIFImportThousandsSeparator("'"); }},
      {"QIFImportZeroAmountsAsDeposits", false,
       [](A& a) { a.SetQIFImportZeroAmountsAsDeposits(false); }},
      {"QIFImportAllTypes", true, [](A& a) { a.SetQIFImportAllTypes(true); }},
      {"QIFImportSplitLineItems", false, [](A& a) { a.SetQIFImportSplitLineItems(false); }},
      {"QIFImport_SwapOptions_ToFrom", 14, [](A& a) { a.SetQIFImport_SwapOptions_ToFrom(14); }},
      {"QIFImport_SwapOptions_Type", 15, [](A& a) { a.SetQIFImport_SwapOptions_Type(15); }},
      {"QIFImport_SwapOptions_Description", 16,
       [](A& a) { a.SetQIFImport_SwapOptions_Description(16); }},
      {"textExport_ExportType", -1, [](A& a) { a.setTextExport_ExportType(-1); }},
      {"textExport_Encoding", 18, [](A& a) { a.setTextExport_Encoding(18); }},
      {"lastTransferAccount", 19, [](A& a) { a.setLastTransferAccount(19); }},
      {"isLastTransferOrigin", false, [](A& a) { a.setIsLastTransferOrigin(false); }},
  };
  FakeAmbient ambient;
  LDGRAccount account;
  account.SetDefaultTransferType(account.DebitEntryTypeForName("Debit Card"));
  for (const auto& c : cases) c.set(account);
  const Dictionary stored = account.asDictionary();
  for (const auto& c : cases) EXPECT_EQ(stored.Get(c.key), c.value) << c.key;
  for (const char* key : {"defaultTransferType", "authenticated"}) EXPECT_FALSE(stored.Has(key));
  const LDGRAccount read(stored);
  EXPECT_EQ(read.asDictionary(), stored);
  EXPECT_EQ(read.GetDefaultTransferType(), nullptr);
  EXPECT_EQ(read.Revision(), 0U);
  EXPECT_EQ(ambient.log.Take(), std::vector<std::string>{});
}

TEST(AccountDictionary, IsReadLockedWithAPasswordAndOpenWithoutOne) {
  const std::pair<Value, bool> cases[] = {
      {"secret", true}, {"", false}, {Value(), false}, {7, false}};
  for (const auto& [password, locked] : cases) {
    Dictionary dictionary;
    dictionary.Set("password", password);
    const LDGRAccount account(dictionary);
    EXPECT_EQ(account.IsLocked(), locked);
    EXPECT_EQ(account.IsAuthenticated(), !locked);
  }
}

TEST(AccountDictionary, CanBeUsedUpWhileItIsRead) {
  LDGRAccount account;
  AddEntries(account, {{.number = 1, .amount = -3}, {.number = 2, .kind = EntryFields::Transfer}});
  account.AddSchedule(std::make_shared<LDGRAccountSchedule>());
  const Dictionary stored = account.asDictionary();
  const Dictionary copy = stored.DeepCopy();
  EXPECT_EQ(LDGRAccount(stored).asDictionary(), copy);
  EXPECT_EQ(stored, copy) << "the constructor leaves it alone";
  EXPECT_EQ(LDGRAccount::accountByConsuming(stored)->asDictionary(), copy);
  EXPECT_TRUE(stored.Get("entries").ArrayValue().At(0).IsNone()) << "its memory is free by now";
}

}  // namespace
}  // namespace tallyfold
