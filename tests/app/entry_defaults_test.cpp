#include "app/entry_defaults.h"

#include <gtest/gtest.h>

#include <functional>

#include "app/test_application.h"
#include "fakes/fake_ambient.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

// An account whose entries were entered in this order: check 101 of 1 March as number 1, check 102
// of 2 February as number 2, a debit of 3 January as number 3.
void FillWithChecks(LDGRAccount& account) {
  constexpr struct {
    DateNumber date;
    std::int32_t check;
  } kEntries[] = {{20040301, 101}, {20040202, 102}, {20040103, -1}};
  for (const auto& each : kEntries) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(account.NextAvailableNumber());
    entry->SetDate(each.date);
    entry->SetIsDebit(true);
    entry->SetIsCheck(each.check >= 0);
    entry->SetCheckNumber(each.check);
    account.AddEntry(entry);
  }
}

TEST(NewEntries, TakeTheirDefaultsFromPreferencesAndAccount) {
  struct Case {
    const char* what;
    EntryKind kind;
    std::function<void(LDGRAccount&, LDGRPreferences&)> prepare;
    const char* line;
  } const cases[] = {
      {"a debit", EntryKind::Debit, [](auto&, auto&) {}, "#1 20040307 debit 0.00"},
      {"the last date of an empty account", EntryKind::Debit,
       [](auto&, auto& preferences) { preferences.SetDefaultDateWhenAddingEntries(1); },
       "#1 20040307 debit 0.00"},
      {"the date of the last entered entry, which is not the latest", EntryKind::Deposit,
       [](auto& account, auto& preferences) {
         FillWithChecks(account);
         preferences.SetDefaultDateWhenAddingEntries(1);
       },
       "#4 20040103 deposit 0.00"},
      {"another date choice", EntryKind::Deposit,
       [](auto& account, auto& preferences) {
         FillWithChecks(account);
         preferences.SetDefaultDateWhenAddingEntries(2);
       },
       "#4 20040307 deposit 0.00"},
      {"a check type", EntryKind::Debit,
       [](auto& account, auto&) {
         FillWithChecks(account);
         account.SetDefaultDebitType(account.AccountEntryTypeForNumber(0));
       },
       "#4 20040307 debit 0.00 type=0 check=103"},
      {"a check type numbered by hand", EntryKind::Debit,
       [](auto& account, auto& preferences) {
         FillWithChecks(account);
         account.SetDefaultDebitType(account.AccountEntryTypeForNumber(0));
         preferences.SetNumberChecksAutomatically(false);
       },
       "#4 20040307 debit 0.00 type=0 check=0"},
      {"the first check", EntryKind::Debit,
       [](auto& account, auto&) {
         account.SetStartingCheckNumber(1001);
         account.SetDefaultDebitType(account.AccountEntryTypeForNumber(0));
       },
       "#1 20040307 debit 0.00 type=0 check=1001"},
      {"a debit type that is no check", EntryKind::Debit,
       [](auto& account, auto&) {
         account.SetDefaultDebitType(account.AccountEntryTypeForNumber(1));
       },
       "#1 20040307 debit 0.00 type=1"},
      {"a deposit type", EntryKind::Deposit,
       [](auto& account, auto&) {
         account.SetDefaultDepositType(account.AccountEntryTypeForNumber(4));
       },
       "#1 20040307 deposit 0.00 type=4"},
      {"a first transfer", EntryKind::Transfer, [](auto&, auto&) {},
       "#1 20040307 transfer 0.00 origin"},
      {"a transfer like the last one", EntryKind::Transfer,
       [](auto& account, auto&) {
         account.setLastTransferAccount(7);
         account.setIsLastTransferOrigin(false);
       },
       "#1 20040307 transfer 0.00 ->7#-1"},
  };
  for (const Case& c : cases) {
    FakeAmbient ambient;
    ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
    LDGRAccount account;
    LDGRPreferences preferences;
    c.prepare(account, preferences);
    EXPECT_EQ(Line(*NewEntryWithDefaults(c.kind, account, preferences)), c.line) << c.what;
  }
}

}  // namespace
}  // namespace tallyfold
