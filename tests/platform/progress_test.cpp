#include "platform/progress.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "fakes/fake_progress.h"

namespace tallyfold {
namespace {

constexpr LongWork kWork = LongWork::Saving;

TEST(LongOperations, AreToldInSteadyFiguresUpToTheTotal) {
  struct Case {
    std::uint64_t total;
    std::uint64_t counted;  // one after the other, then finished
    std::size_t told;
  } const cases[] = {
      {0, 0, 1},
      {0, 5, 1},
      {1, 1, 2},
      {100, 100, 51},
      {250, 250, 85},
      {5000, 5000, 100},
      {1000000, 1000000, 101},
      {10, 3, 5},
      {10, 25, 11},
  };
  for (const Case& each : cases) {
    FakeProgress progress;
    {
      LongOperation operation(kWork, each.total);
      for (std::uint64_t i = 0; i < each.counted; ++i) LongOperation::Count(kWork);
      operation.Finish();
      LongOperation::Count(kWork);
    }
    ASSERT_EQ(progress.operations.size(), 1U);
    EXPECT_TRUE(progress.operations[0].IsWhole()) << each.total;
    EXPECT_EQ(progress.operations[0].done.size(), each.told) << each.total;
  }
}

TEST(LongOperations, AreToldAsTheOutermostOfTheirKind) {
  LongOperation::Count(kWork);
  LongOperation unheard(kWork, 3);
  unheard.Finish();
  FakeProgress progress;
  {
    LongOperation operation(kWork, 8);
    LongOperation::Count(LongWork::Loading, 5);
    LongOperation::Reached(kWork, 2);
    LongOperation::Reached(kWork, 1);  // less than before
    {
      LongOperation inner(kWork, 2);
      LongOperation::Count(kWork, 2);
      inner.Finish();
    }
    {
      const LongOperation other(LongWork::Parsing, 9);
      LongOperation::Count(LongWork::Parsing, 9);
    }
  }
  const LongOperation next(LongWork::Exporting, 1);
  ASSERT_EQ(progress.operations.size(), 2U);
  // Given up before its total.
  EXPECT_EQ(progress.operations[0].done, (std::vector<std::uint64_t>{0, 2, 4}));
  EXPECT_TRUE(progress.operations[0].is_over);
  EXPECT_EQ(progress.operations[1].work, LongWork::Exporting);
}

TEST(LongOperations, GoOnWhereNobodyCanShowThem) {
  FakeProgress progress;
  progress.when_told = [] { throw std::runtime_error("no memory to paint with"); };
  LongOperation operation(kWork, 2);
  LongOperation::Count(kWork, 2);
  EXPECT_EQ(progress.operations.at(0).done.size(), 2U);
}

}  // namespace
}  // namespace tallyfold
