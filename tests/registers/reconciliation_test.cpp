#include "registers/reconciliation.h"

#include <gtest/gtest.h>

#include <cmath>

#include "fakes/fake_ambient.h"

namespace tallyfold {
namespace {

std::shared_ptr<LDGRAccountEntry> Entry(double amount, bool cleared) {
  auto entry = std::make_shared<LDGRAccountEntry>();
  entry->SetAmount(amount);
  entry->SetCleared(cleared);
  return entry;
}

TEST(Reconciliation, TellsWhatIsResolvedApartByItsSign) {
  struct Case {
    double starting;
    double statement;
    std::vector<std::pair<double, bool>> entries;
    Reconciliation figures;
    std::string text;
  } const cases[] = {
      {0.0, 0.0, {}, {}, "Balanced"},
      // 0.1 + 0.2 is not quite 0.3.
      {0.1, 0.3, {{0.2, true}}, {0.3, 0.3, 0.0, 0, 0.0, 0, 0.0, 1, 0.2}, "Balanced"},
      {100.0,
       1050.0,
       {{-25.5, true}, {0.0, true}, {40.0, true}, {-7.25, false}, {1000.0, false}},
       {1050.0, 114.5, 935.5, 2, 992.75, 1, -25.5, 2, 40.0},
       "$935.50"},
      {0.0, -0.01, {{-0.02, true}}, {-0.01, -0.02, 0.01, 0, 0.0, 1, -0.02, 0, 0.0}, "$0.01"},
      {0.0, -0.004, {}, {0.0, 0.0, 0.0, 0, 0.0, 0, 0.0, 0, 0.0}, "Balanced"},
  };
  const FakeAmbient ambient;
  for (const Case& c : cases) {
    LDGRAccount account;
    account.SetStartingBalance(c.starting);
    account.setStatementBalance(c.statement);
    for (const auto& [amount, cleared] : c.entries) account.AddEntry(Entry(amount, cleared));
    const Reconciliation figures = ReconciliationOf(account);
    EXPECT_EQ(figures, c.figures);
    EXPECT_FALSE(std::signbit(figures.difference) && figures.IsBalanced());
    EXPECT_EQ(DifferenceText(figures, LDGRPreferences()), c.text);
  }
}

}  // namespace
}  // namespace tallyfold
