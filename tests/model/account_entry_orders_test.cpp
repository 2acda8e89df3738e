#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "fakes/fake_ambient.h"
#include "model/account_entry.h"
#include "model/account_records.h"
#include "model/current_account.h"
#include "model/plist_literals.h"

namespace tallyfold {
namespace {

using Entry = LDGRAccountEntry;
using Order = int (Entry::*)(const Entry&) const;

constexpr std::int32_t kCheck = Entry::kCheck;
constexpr std::int32_t kTransfer = Entry::kTransfer;

std::shared_ptr<Entry> Make(std::int32_t number,
                            std::initializer_list<std::pair<const char*, plist::Value>> items) {
  plist::Dictionary record = Dict(items);
  record.Set("number", number);
  auto entry = std::make_shared<Entry>(record);
  // No file gives an entry such an amount.
  const double amount = record.Get("amount").DoubleValue();
  if (std::isnan(amount)) entry->SetAmount(amount);
  return entry;
}

std::vector<std::int32_t> Sorted(EntryList entries, Order order) {
  std::stable_sort(entries.begin(), entries.end(),
                   [order](const auto& a, const auto& b) { return ((*b).*order)(*a) > 0; });
  return NumbersOf(entries);
}

// Each list is written in its order; numbers tell what ties decide.
TEST(EntryOrders, SortByTheirKeysThenByNumberAndMirrored) {
  FakeAmbient ambient;
  ambient.localizer.Translate("Transfer", "Giro");
  LDGRAccount account(Dict({}));
  account.AddType(
      std::make_shared<LDGRAccountEntryType>(Dict({{"name", "zebra"}, {"number", 101}})));
  account.AddType(
      std::make_shared<LDGRAccountEntryType>(Dict({{"name", "Auto"}, {"number", 102}})));
  account.AddType(
      std::make_shared<LDGRAccountEntryType>(Dict({{"name", "AUTO"}, {"number", 103}})));
  const ScopedCurrentAccount current(&account);

  const struct {
    const char* name;
    Order order;
    Order reversed;
    EntryList entries;
  } cases[] = {
      {"number",
       &Entry::NumberIsGreaterThan,
       &Entry::NumberIsGreaterThan_Reversed,
       {Make(-2'147'483'647, {}), Make(3, {}), Make(7, {}), Make(2'147'483'647, {})}},
      {"date",
       &Entry::DateIsGreaterThan,
       &Entry::DateIsGreaterThan_Reversed,
       {Make(9, {}), Make(3, {{"date", 20040101}}), Make(7, {{"date", 20040101}}),
        Make(1, {{"date", 20040102}})}},
      {"check number",
       &Entry::CheckNumberIsGreaterThan,
       &Entry::CheckNumberIsGreaterThan_Reversed,
       {Make(9, {{"entryFlags", kCheck}, {"checkNumber", 100}}),
        Make(3, {{"entryFlags", kCheck}, {"checkNumber", 101}}),
        Make(4, {{"entryFlags", kCheck}, {"checkNumber", 101}}), Make(1, {{"checkNumber", 5}}),
        Make(2, {{"checkNumber", 4}})}},
      {"date then check",
       &Entry::DatePrimaryCheckSecondaryIsGreaterThan,
       &Entry::DatePrimaryCheckSecondaryIsGreaterThan_Reversed,
       {Make(8, {{"date", 20040101}}),
        Make(7, {{"date", 20040102}, {"entryFlags", kCheck}, {"checkNumber", 100}}),
        Make(6, {{"date", 20040102}, {"entryFlags", kCheck}, {"checkNumber", 101}}),
        Make(1, {{"date", 20040102}, {"checkNumber", 99}})}},
      {"description",
       &Entry::DescriptionIsGreaterThan,
       &Entry::DescriptionIsGreaterThan_Reversed,
       {Make(9, {}), Make(3, {{"description", "Rent"}}), Make(7, {{"description", "RENT"}}),
        Make(1, {{"description", "rent 10"}}), Make(2, {{"description", "rent 9"}})}},
      {"to/from",
       &Entry::ToFromIsGreaterThan,
       &Entry::ToFromIsGreaterThan_Reversed,
       {Make(9, {{"toFrom", "a"}}), Make(3, {{"toFrom", "É"}}), Make(7, {{"toFrom", "é"}})}},
      {"type then date",
       &Entry::TypePrimaryDateSecondaryIsGreaterThan,
       &Entry::TypePrimaryDateSecondaryIsGreaterThan_Reversed,
       {Make(20, {{"type", 999}}), Make(21, {{"type", -1}}),
        Make(9, {{"type", 102}, {"date", 20040101}}), Make(8, {{"type", 103}, {"date", 20040102}}),
        Make(10, {{"type", 102}, {"date", 20040102}}),
        Make(4, {{"type", 999}, {"entryFlags", kTransfer}}),
        Make(1, {{"type", 101}, {"entryFlags", kTransfer}})}},
      {"amount",
       &Entry::AmountIsGreaterThan,
       &Entry::AmountIsGreaterThan_Reversed,
       {Make(2, {{"amount", std::nan("")}}), Make(5, {{"amount", std::nan("")}}),
        Make(9, {{"amount", -2.0}}),
        Make(1, {{"amount", 50.0}, {"entryFlags", 1}, {"split", Dict({{"amounts", List({1.0})}})}}),
        Make(3, {{"amount", 1.0}}), Make(7, {{"amount", 1.0}}), Make(4, {{"amount", 1.001}})}},
      {"cleared",
       &Entry::ClearedIsGreaterThan,
       &Entry::ClearedIsGreaterThan_Reversed,
       {Make(3, {}), Make(9, {}), Make(1, {{"cleared", true}}), Make(7, {{"cleared", true}})}}};
  for (const auto& c : cases) {
    std::vector<std::int32_t> expected = NumbersOf(c.entries);
    EntryList shuffled = c.entries;
    std::rotate(shuffled.begin(), shuffled.begin() + 2, shuffled.end());
    EXPECT_EQ(Sorted(shuffled, c.order), expected) << c.name;
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(Sorted(shuffled, c.reversed), expected) << c.name;

    const Entry& first = *c.entries.front();
    const Entry& last = *c.entries.back();
    EXPECT_EQ((first.*c.order)(last), -1) << c.name;
    EXPECT_EQ((last.*c.order)(first), 1) << c.name;
    EXPECT_EQ((first.*c.order)(first), 0) << c.name;
    EXPECT_EQ((first.*c.reversed)(last), 1) << c.name;
  }
}

TEST(EntryOrders, KnowNoTypesWithoutACurrentAccount) {
  const auto transfer = Make(1, {{"entryFlags", kTransfer}, {"type", 1}});
  const auto other = Make(2, {{"type", 2}});
  EXPECT_EQ(transfer->TypePrimaryDateSecondaryIsGreaterThan(*other), 1);
}

}  // namespace
}  // namespace tallyfold
