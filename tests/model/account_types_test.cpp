#include <gtest/gtest.h>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/account_records.h"

namespace tallyfold {
namespace {

TEST(AccountTypes, StartWithSixSortedByTheirTranslatedNames) {
  FakeAmbient ambient;
  ambient.localizer.Translate("Check", "Scheck");
  const auto types = LDGRAccount::DefaultTypes();
  EXPECT_EQ(NamesOf(types), (TextList{"Debit Card", "Deposit", "Direct Deposit", "Gift",
                                      "Online Payment", "Scheck"}));
  const struct {
    std::int32_t number;
    bool is_check;
    bool is_deposit;
  } expected[] = {{1, false, false}, {3, false, true},  {4, false, true},
                  {5, false, true},  {2, false, false}, {0, true, false}};
  for (std::size_t i = 0; i < types.size(); ++i) {
    EXPECT_EQ(types[i]->GetNumber(), expected[i].number);
    EXPECT_EQ(types[i]->GetIsCheck(), expected[i].is_check) << types[i]->GetName();
    EXPECT_EQ(types[i]->GetIsDeposit(), expected[i].is_deposit) << types[i]->GetName();
    EXPECT_FALSE(types[i]->GetIsTransfer());
  }
}

TEST(AccountTypes, AreFoundAmongTheActiveThenTheInactive) {
  LDGRAccount account;
  account.SetTypes({MakeType(1, "Rent"), MakeType(2, "Rent", true), MakeType(2, "Twice")});
  account.SetInactiveTypes(
      {MakeType(1, "Old rent"), MakeType(7, "Gone"), MakeType(8, "Gone", true)});
  EXPECT_EQ(account.AccountEntryTypeForNumber(1)->GetName(), "Rent");
  EXPECT_EQ(account.AccountEntryTypeForNumber(7)->GetName(), "Gone");
  EXPECT_EQ(account.AccountEntryTypeForNumber(-1), nullptr);
  EXPECT_EQ(account.DebitEntryTypeForName("Rent")->GetNumber(), 1);
  EXPECT_EQ(account.DepositEntryTypeForName("Rent")->GetNumber(), 2);
  EXPECT_EQ(account.DebitEntryTypeForName("Gone")->GetNumber(), 7);
  EXPECT_EQ(account.DepositEntryTypeForName("Gone")->GetNumber(), 8);
  EXPECT_EQ(account.DebitEntryTypeForName("rent"), nullptr) << "case counts";
}

TEST(AccountTypes, AreListedByKind) {
  LDGRAccount account;
  account.SetTypes(
      {MakeType(1, "Move", false, true), MakeType(2, "Pay", true), MakeType(3, "Bill"), nullptr});
  account.SetInactiveTypes({MakeType(4, "Old")});
  EXPECT_EQ(NamesOf(account.GetDebitTypes()), TextList{"Bill"});
  EXPECT_EQ(NamesOf(account.GetDepositTypes()), TextList{"Pay"});
  EXPECT_EQ(NamesOf(account.GetTransferTypes()), TextList{"Move"});
}

TEST(AccountTypes, StayFindableAndStopBeingADefaultWhenDeactivated) {
  LDGRAccount account;
  const auto debit = account.DebitEntryTypeForName("Debit Card");
  const auto deposit = account.DepositEntryTypeForName("Deposit");
  account.SetDefaultDebitType(debit);
  account.SetDefaultDepositType(deposit);
  account.DeactivateType(debit);
  account.DeactivateType(nullptr);
  EXPECT_EQ(account.GetDefaultDebitType(), nullptr);
  EXPECT_EQ(account.GetDefaultDepositType(), deposit);
  EXPECT_EQ(account.AccountEntryTypeForNumber(1), debit);
  EXPECT_EQ(account.GetTypes().size(), 5U);
  EXPECT_EQ(account.GetInactiveTypes(), EntryTypeList{debit});

  // One that is the default of both kinds stops being the one for debits alone.
  account.SetDefaultDebitType(deposit);
  account.DeactivateType(deposit);
  EXPECT_EQ(account.GetDefaultDebitType(), nullptr);
  EXPECT_EQ(account.GetDefaultDepositType(), deposit);
  account.SetInactiveTypes({});
  EXPECT_EQ(account.GetDefaultDepositType(), nullptr) << "a default that is nowhere any more";
}

TEST(AccountTypes, AreImportedOnceUnderNewNumbers) {
  LDGRAccount from;
  from.SetTypes(
      {MakeType(0, "Bills"), MakeType(1, "Gift"), MakeType(2, "Gift", true), MakeType(3, "bills")});
  from.SetInactiveTypes({MakeType(4, "Old")});
  LDGRAccount to;
  to.SetTypes({MakeType(5, "Gift", true), MakeType(6, "Bills")});
  to.SetInactiveTypes({MakeType(9, "Gift")});
  to.importTypesFromAccount(from);
  EXPECT_EQ(NamesOf(to.GetTypes()), (TextList{"Bills", "bills", "Gift", "Gift"}));
  EXPECT_EQ(to.DebitEntryTypeForName("bills")->GetNumber(), 10);
  EXPECT_EQ(to.DebitEntryTypeForName("Gift")->GetNumber(), 11);
  EXPECT_NE(to.DebitEntryTypeForName("bills"), from.DebitEntryTypeForName("bills"));
  const auto revision = to.Revision();
  to.importTypesFromAccount(to);
  EXPECT_EQ(to.GetTypes().size(), 4U);
  EXPECT_EQ(to.Revision(), revision);
}

}  // namespace
}  // namespace tallyfold
