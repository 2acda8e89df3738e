#include "app/entries/entry_defaults.h"

#include <gtest/gtest.h>

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
  constexpr auto kDebit = EntryKind::Debit;
  constexpr auto kDeposit = EntryKind::Deposit;
  struct Case {
    const char* what;
    EntryKind kind;
    bool is_filled;
    std::int32_t type;  // the default of the kind; -1 for none
    std::int32_t date_preference;
    bool numbers_checks;
    const char* line;
  } const cases[] = {
      {"a debit", kDebit, false, -1, 0, true, "#1 20040307 debit 0.00"},
      {"in an empty account", kDebit, false, -1, 1, true, "#1 20040307 debit 0.00"},
      {"the date entered last", kDeposit, true, -1, 1, true, "#4 20040103 deposit 0.00"},
      {"another date choice", kDeposit, true, -1, 2, true, "#4 20040307 deposit 0.00"},
      {"a check", kDebit, true, 0, 0, true, "#4 20040307 debit 0.00 type=0 check=103"},
      {"numbered by hand", kDebit, true, 0, 0, false, "#4 20040307 debit 0.00 type=0 check=0"},
      {"the first check", kDebit, false, 0, 0, true, "#1 20040307 debit 0.00 type=0 check=1001"},
      {"no check", kDebit, false, 1, 0, true, "#1 20040307 debit 0.00 type=1"},
      {"a deposit type", kDeposit, false, 4, 0, true, "#1 20040307 deposit 0.00 type=4"},
      {"a transfer", EntryKind::Transfer, false, -1, 0, true, "#1 20040307 transfer 0.00 ->7#-1"},
  };
  for (const Case& c : cases) {
    FakeAmbient ambient;
    ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
    LDGRAccount account;
    LDGRPreferences preferences;
    if (c.is_filled) FillWithChecks(account);
    if (!c.is_filled) account.SetStartingCheckNumber(1001);
    const auto type = account.AccountEntryTypeForNumber(c.type);
    c.kind == kDebit ? account.SetDefaultDebitType(type) : account.SetDefaultDepositType(type);
    account.setLastTransferAccount(7);
    account.setIsLastTransferOrigin(false);
    preferences.SetDefaultDateWhenAddingEntries(c.date_preference);
    preferences.SetNumberChecksAutomatically(c.numbers_checks);
    EXPECT_EQ(
        Line(*NewEntryWithDefaults(c.kind, account.NextAvailableNumber(), account, preferences)),
        c.line)
        << c.what;
  }
}

}  // namespace
}  // namespace tallyfold
