#include <gtest/gtest.h>

#include <map>

#include "ledger/ledger_fixture.h"
#include "ledger/random_user.h"
#include "rounds.h"

namespace tallyfold {
namespace {

TEST(Undo, GoesBackAndForthThroughThousandsOfSteps) {
  for (int round = 1; round <= Rounds(4); ++round) {
    const auto seed = static_cast<unsigned>(round);
    LedgerFixture f;
    RandomUser user(f.ledger, seed);
    user.BeginImporting();
    // What the file was before each step, the present state last.
    std::vector<std::string> states{f.Bytes()};
    std::size_t present = 0;
    const auto move = [&](bool back) {
      const bool can = back ? present > 0 : present + 1 < states.size();
      const auto why = back ? f.history.WhyNotUndo() : f.history.WhyNotRedo();
      const bool moved = back ? f.history.Undo() : f.history.Redo();
      ASSERT_EQ(moved, why == History::Refusal::None);
      if (why == History::Refusal::Locked) return;
      ASSERT_EQ(moved, can);
      if (moved) present = back ? present - 1 : present + 1;
    };
    std::map<const LDGRAccount*, std::int32_t> counts;
    for (int i = 0; i < 600; ++i) {
      const int what = user.Below(10);
      if (what < 7) {
        const std::string before = f.Bytes();
        const bool had_unsaved = f.store.HasUnsavedChanges();
        const std::size_t told = f.mirror.sets.size();
        if (user.Act()) {
          states.resize(++present);
          states.push_back(f.Bytes());
        } else if (f.mirror.sets.size() == told) {
          EXPECT_EQ(f.Bytes(), before);
          EXPECT_EQ(f.store.HasUnsavedChanges(), had_unsaved);
        }
      } else if (what == 7) {
        // Locks come and go between steps.
        for (const auto& account : f.store.accounts()) {
          account->setAuthenticated(user.Below(2) == 0);
        }
        move(true);
        for (const auto& account : f.store.accounts()) account->setAuthenticated(true);
      } else {
        move(what == 8);
      }
      ASSERT_TRUE(f.Bytes() == states[present]) << seed << ' ' << i;
      ASSERT_TRUE(f.mirror.Equals(f.store.accounts())) << seed << ' ' << i;
      for (const auto& account : f.store.accounts()) {
        std::int32_t& count = counts[account.get()];
        ASSERT_GE(account->GetNumberCount(), count) << "a number could be given twice";
        count = account->GetNumberCount();
      }
    }
    while (present > 0) {
      move(true);
      ASSERT_TRUE(f.Bytes() == states[present]) << seed << ": back to " << present;
    }
    while (present + 1 < states.size()) move(false);
    EXPECT_EQ(f.Bytes(), states.back());
    EXPECT_TRUE(f.mirror.Equals(f.store.accounts()));
  }
}

}  // namespace
}  // namespace tallyfold
