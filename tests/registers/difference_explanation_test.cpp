#include "registers/difference_explanation.h"

#include <gtest/gtest.h>

#include <numeric>

#include "registers/smallest_subset.h"

namespace tallyfold {
namespace {

using Kind = DifferenceExplanation::Kind;
using Amounts = std::vector<double>;

struct Explained {
  Kind kind;
  Amounts amounts;
  friend bool operator==(const Explained&, const Explained&) = default;
};

TEST(DifferenceExplanations, AreGivenWhereOneIsUnique) {
  struct Case {
    double difference;  // of the statement from what is resolved
    Amounts resolved;
    Amounts unresolved;
    std::optional<Explained> explained;
  } const cases[] = {
      {0.0, {}, {0.0, 5.0}, std::nullopt},
      {-31.4, {10.0}, {-31.4, 5.0}, Explained{Kind::Unresolved, {-31.4}}},
      {-31.4, {31.4}, {-31.4}, Explained{Kind::Unresolved, {-31.4}}},
      {-31.4, {31.4}, {-31.4, -31.4}, std::nullopt},
      {31.4, {-31.4, 5.0}, {-31.4}, Explained{Kind::Resolved, {-31.4}}},
      {31.4, {-31.4, -31.4}, {30.0, 1.4}, std::nullopt},
      {50.2, {-25.1, 25.1}, {}, Explained{Kind::WrongSign, {-25.1}}},
      {0.03, {-0.01, -0.02}, {}, std::nullopt},
      // 54.32 was entered as 45.32, 0.45 as 4.05.
      {9.0, {45.32, -77.0}, {}, Explained{Kind::SwappedDigits, {45.32}}},
      {-9.0, {-45.32, 77.0}, {}, Explained{Kind::SwappedDigits, {-45.32}}},
      {3.6, {0.45, 3.0}, {}, Explained{Kind::SwappedDigits, {0.45}}},
      {9.0, {45.32, 12.0}, {}, Explained{Kind::SwappedDigits, {}}},
      {9.0, {45.3, -4.5}, {}, Explained{Kind::WrongSign, {-4.5}}},
      {9.0, {}, {4.0, 5.0}, Explained{Kind::UnresolvedSet, {4.0, 5.0}}},
      {9.0, {}, {4.0, 5.0, 1.0, 8.0}, Explained{Kind::SwappedDigits, {}}},
      {10.0, {}, {4.0, 0.0, 6.0, 1.0, 3.0}, Explained{Kind::UnresolvedSet, {4.0, 6.0}}},
      {1.1, {}, {1e15, -1e15, 0.6}, std::nullopt},
      {0.7, {}, {0.1, 0.2, 0.4}, Explained{Kind::UnresolvedSet, {0.1, 0.2, 0.4}}},
  };
  for (const Case& c : cases) {
    LDGRAccount account;
    double balance = 0.0;
    for (const bool cleared : {true, false}) {
      for (const double amount : cleared ? c.resolved : c.unresolved) {
        auto entry = std::make_shared<LDGRAccountEntry>();
        entry->SetAmount(amount);
        entry->SetCleared(cleared);
        account.AddEntry(entry);
        if (cleared) balance += amount;
      }
    }
    account.setStatementBalance(balance + c.difference);
    const auto explanation = ExplainDifference(account, ReconciliationOf(account));
    std::optional<Explained> explained;
    if (explanation) {
      explained = Explained{explanation->kind, {}};
      for (const auto& entry : explanation->entries) {
        explained->amounts.push_back(entry->GetAmount());
      }
      EXPECT_NE(ExplanationText(*explanation), "");
    }
    EXPECT_EQ(explained, c.explained) << c.difference;
  }
}

std::vector<std::int64_t> PowersOfTwo(int count) {
  std::vector<std::int64_t> amounts;
  for (int i = 0; i < count; ++i) amounts.push_back(std::int64_t{1} << i);
  return amounts;
}

TEST(SmallestSubset, IsFoundWhenItIsTheOnlyOneAndGivenUpInTime) {
  using Indexes = std::vector<std::size_t>;
  const std::vector<std::int64_t> equal(32, 10);
  // Every fourth amount of thousands, in no order, so that sums repeat.
  std::vector<std::int64_t> many;
  for (std::int64_t i = 0; i < 5000; ++i) many.push_back((i * 7919 % 5000 - 2500) * 4);
  struct Case {
    std::vector<std::int64_t> amounts;
    std::int64_t total;
    std::optional<Indexes> subset;
  } const cases[] = {
      {{}, 5, std::nullopt},
      {PowersOfTwo(32), 0xFFF, Indexes{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}},
      {PowersOfTwo(32), 0x1FFF, std::nullopt},  // thirteen
      {PowersOfTwo(60), std::int64_t{0x15} << 40, Indexes{40, 42, 44}},
      {PowersOfTwo(60), std::int64_t{0x55} << 40, Indexes{40, 42, 44, 46}},
      {equal, 50, std::nullopt},
      {equal, 51, std::nullopt},
      {{-7, 3, -2, 9}, -9, Indexes{0, 2}},
      {many, 1, std::nullopt},    // nothing makes it
      {many, 8, std::nullopt},    // a lot does
      {many, -19996, Indexes{}},  // only the two least: -10000 and -9996
  };
  for (const Case& c : cases) {
    auto found = SmallestSubset(c.amounts, c.total, 12);
    if (c.subset && c.subset->empty() && found) {
      std::int64_t sum = 0;
      for (const std::size_t i : *found) sum += c.amounts[i];
      EXPECT_EQ(sum, c.total);
      EXPECT_EQ(found->size(), 2U);
    } else {
      EXPECT_EQ(found, c.subset) << c.total;
    }
  }
}

}  // namespace
}  // namespace tallyfold
