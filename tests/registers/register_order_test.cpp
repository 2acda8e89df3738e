#include "registers/register_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <memory>
#include <random>
#include <string_view>

#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/current_account.h"

namespace tallyfold {
namespace {

using Comparator = int (LDGRAccountEntry::*)(const LDGRAccountEntry&) const;

// Entries full of ties, in no order; numbers repeat too.
EntryList TiedEntries() {
  constexpr std::array<std::string_view, 11> kTexts = {"",
                                                       "coffee",
                                                       "Coffee",
                                                       "Coffee shop A",
                                                       "coffee SHOP a long name",
                                                       "École",
                                                       "école supérieure",
                                                       "coffee\xFFinvalid",
                                                       "Ωmega",
                                                       "東京",
                                                       "coffee "};
  std::mt19937 random(5);
  const auto below = [&random](std::uint32_t limit) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(random()) % limit);
  };
  EntryList entries;
  for (int i = 0; i < 1500; ++i) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(below(700) - 20);
    entry->SetDate(20040301 + below(4));
    entry->SetIsCheck(below(3) == 0);
    entry->SetCheckNumber(below(6) - 1);
    entry->SetType(below(9) - 1);
    entry->SetIsTransfer(below(4) == 0);
    entry->SetAmount((below(9) - 4) * 12.5);
    entry->SetCleared(below(2) == 0);
    entry->SetDescription(kTexts[static_cast<std::size_t>(below(kTexts.size()))]);
    entry->SetToFrom(kTexts[static_cast<std::size_t>(below(kTexts.size()))]);
    entries.push_back(std::move(entry));
  }
  return entries;
}

TEST(RegisterOrder, IsThatOfTheEntriesComparisons) {
  struct Case {
    std::string_view column;
    Comparator ascending;
    Comparator descending;
  };
  const std::array cases = {
      Case{"number", &LDGRAccountEntry::NumberIsGreaterThan,
           &LDGRAccountEntry::NumberIsGreaterThan_Reversed},
      Case{"check", &LDGRAccountEntry::CheckNumberIsGreaterThan,
           &LDGRAccountEntry::CheckNumberIsGreaterThan_Reversed},
      Case{"date", &LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan,
           &LDGRAccountEntry::DatePrimaryCheckSecondaryIsGreaterThan_Reversed},
      Case{"type", &LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan,
           &LDGRAccountEntry::TypePrimaryDateSecondaryIsGreaterThan_Reversed},
      Case{"description", &LDGRAccountEntry::DescriptionIsGreaterThan,
           &LDGRAccountEntry::DescriptionIsGreaterThan_Reversed},
      Case{"amount", &LDGRAccountEntry::AmountIsGreaterThan,
           &LDGRAccountEntry::AmountIsGreaterThan_Reversed},
      Case{"cleared", &LDGRAccountEntry::ClearedIsGreaterThan,
           &LDGRAccountEntry::ClearedIsGreaterThan_Reversed},
      Case{"toFrom", &LDGRAccountEntry::ToFromIsGreaterThan,
           &LDGRAccountEntry::ToFromIsGreaterThan_Reversed},
  };
  FakeAmbient ambient;
  LDGRAccount account;
  // Two types of one name.
  account.AddType(std::make_shared<LDGRAccountEntryType>());
  account.GetTypes().back()->SetNumber(6);
  account.GetTypes().back()->SetName("GIFT");
  const ScopedCurrentAccount current(&account);
  const EntryList entries = TiedEntries();
  for (const Case& c : cases) {
    for (const bool descending : {false, true}) {
      EntryList expected = entries;
      const Comparator comparator = descending ? c.descending : c.ascending;
      std::ranges::stable_sort(expected, [comparator](const auto& a, const auto& b) {
        return ((*a).*comparator)(*b) < 0;
      });
      EntryList sorted;
      for (const auto i : OrderOfEntries(entries, {SortKeyOfColumn(c.column), descending})) {
        sorted.push_back(entries[i]);
      }
      EXPECT_TRUE(sorted == expected) << c.column << (descending ? " descending" : "");
    }
  }
}

TEST(RegisterOrder, LeavesEntriesAsTheyAreForNoKey) {
  EXPECT_EQ(SortKeyOfColumn("balance"), std::nullopt);
  EXPECT_EQ(SortKeyOfColumn(""), std::nullopt);
  const EntryList entries = {std::make_shared<LDGRAccountEntry>(),
                             std::make_shared<LDGRAccountEntry>()};
  for (const std::int32_t key : {7, -1, 99}) {
    EXPECT_EQ(OrderOfEntries(entries, {static_cast<RegisterSortKey>(key), true}),
              (std::vector<std::uint32_t>{0, 1}));
  }
}

}  // namespace
}  // namespace tallyfold
