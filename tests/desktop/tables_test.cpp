#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "desktop/register/column_widths.h"
#include "desktop/register/row_selection.h"
#include "desktop/register/type_ahead.h"
#include "fakes/fake_ambient.h"
#include "model/text.h"

namespace tallyfold::desktop {
namespace {

using Kind = RowsChange::Kind;

// The same as plainly as it can be said: which rows are selected.
std::set<int> RowsOf(const RowSelection& selection) {
  std::set<int> rows;
  for (const RowSelection::Range& range : selection.Ranges()) {
    for (int row = range.first; row <= range.last; ++row) rows.insert(row);
  }
  return rows;
}

TEST(RowSelections, FollowRowsThroughAnyChange) {
  constexpr int kRounds = 3'000;
  std::mt19937 random(7);
  const auto below = [&random](int end) {
    return end <= 0 ? 0 : static_cast<int>(random() % static_cast<unsigned>(end));
  };
  RowSelection selection;
  // A number for each record, negative while it is not selected.
  std::vector<int> records(40);
  std::iota(records.begin(), records.end(), 1);
  for (int& record : records) record = -record;
  const auto turn = [&records](int row, bool is_selected) {
    const int number = std::abs(records[static_cast<std::size_t>(row)]);
    records[static_cast<std::size_t>(row)] = is_selected ? number : -number;
  };
  for (int round = 0; round < kRounds; ++round) {
    const int count = static_cast<int>(records.size());
    std::vector<std::uint32_t> former;
    RowsChange change;
    switch (below(7)) {
      case 0: {
        const int row = below(count);
        turn(row, selection.Toggle(row));
        continue;
      }
      case 1: {
        const RowSelection::Range range{below(count), below(count)};
        selection.Add(range);
        for (int row = std::min(range.first, range.last); row <= std::max(range.first, range.last);
             ++row) {
          turn(row, true);
        }
        continue;
      }
      case 2: {
        const int first = below(count + 1);
        const int more = 1 + below(3);
        change = {Kind::Inserted, static_cast<std::size_t>(first),
                  static_cast<std::size_t>(first + more - 1)};
        for (int i = 0; i < more; ++i) records.insert(records.begin() + first, -1'000 - round);
        break;
      }
      case 3: {
        if (count < 20) continue;
        const int first = below(count - 3);
        const int last = first + below(3);
        change = {Kind::Removed, static_cast<std::size_t>(first), static_cast<std::size_t>(last)};
        records.erase(records.begin() + first, records.begin() + last + 1);
        break;
      }
      case 4: {
        const int from = below(count);
        const int to = below(count);
        change = {Kind::Moved, static_cast<std::size_t>(from), static_cast<std::size_t>(to)};
        const int record = records[static_cast<std::size_t>(from)];
        records.erase(records.begin() + from);
        records.insert(records.begin() + to, record);
        break;
      }
      case 5: {
        former.resize(records.size());
        std::iota(former.begin(), former.end(), 0U);
        std::shuffle(former.begin(), former.end(), random);
        std::vector<int> shuffled;
        for (const std::uint32_t row : former) shuffled.push_back(records[row]);
        records = std::move(shuffled);
        change = {Kind::Reordered, 0, records.size() - 1, former};
        break;
      }
      default:
        change = {Kind::Changed, 0, records.size() - 1};
        break;
    }
    selection.Follow(change, records.size());
    std::set<int> expected;
    for (std::size_t row = 0; row < records.size(); ++row) {
      if (records[row] > 0) expected.insert(static_cast<int>(row));
    }
    ASSERT_EQ(RowsOf(selection), expected) << "round " << round;
    ASSERT_EQ(selection.Count(), expected.size());
    for (std::size_t i = 1; i < selection.Ranges().size(); ++i) {
      ASSERT_GT(selection.Ranges()[i].first, selection.Ranges()[i - 1].last + 1);
    }
    const int row = below(static_cast<int>(records.size()));
    ASSERT_EQ(selection.Contains(row), expected.contains(row));
  }
  selection.SelectThese({5, 3, 4, 9, 3});
  EXPECT_EQ(RowsOf(selection), (std::set<int>{3, 4, 5, 9}));
  selection.Follow({}, 5);
  EXPECT_EQ(selection.Count(), 0U);
}

TEST(ColumnWidths, GiveWayInTheirOrder) {
  const auto widths = [](int available) {
    std::vector<ColumnRoom> rooms;
    for (const auto& [name, width] : {std::pair{"date", 80.0},
                                      {"type", 110.0},
                                      {"description", 200.0},
                                      {"toFrom", 150.0},
                                      {"amount", 90.0}}) {
      rooms.push_back(RoomOf(name, width, 1.0));
    }
    return WidthsIn(available, rooms);
  };
  using Widths = std::vector<int>;
  EXPECT_EQ(widths(800), (Widths{80, 110, 370, 150, 90}));
  EXPECT_EQ(widths(630), (Widths{80, 110, 200, 150, 90}));
  EXPECT_EQ(widths(560), (Widths{80, 110, 130, 150, 90}));
  EXPECT_EQ(widths(530), (Widths{80, 110, 120, 130, 90}));
  EXPECT_EQ(widths(500), (Widths{80, 100, 120, 110, 90}));
  EXPECT_EQ(widths(300), (Widths{80, 90, 120, 110, 90}));
  EXPECT_EQ(WidthsIn(500, {RoomOf("amount", 90, 2.0)}), Widths{180});
  EXPECT_EQ(WidthsIn(500, {RoomOf("amount", -5, 1.0)}), Widths{24});
  EXPECT_TRUE(WidthsIn(500, {}).empty());
}

// A sorted column of texts or numbers, which counts what it is asked for.
class SortedColumn final : public TableDataSource {
 public:
  SortedColumn(std::vector<TableCell> ascending, TableColumn::Content content, bool descends)
      : cells(std::move(ascending)), table({{"c", 100, "C", content}}) {
    if (descends) std::reverse(cells.begin(), cells.end());
    table.SetDataSource(this);
    table.SetIndicator("c", descends);
  }
  [[nodiscard]] std::size_t numberOfRowsInTableView() const override { return cells.size(); }
  [[nodiscard]] TableCell tableView(std::string_view, std::size_t row) const override {
    ++asked;
    return cells[row];
  }
  [[nodiscard]] RowLook LookOfRow(std::size_t) const override { return {}; }
  // "-" for none.
  [[nodiscard]] std::string Found(std::string_view typed) const {
    const auto row = RowOfTyped(table, typed, "%m/%d/%y", 0);
    return row ? cells[*row].text : "-";
  }

  std::vector<TableCell> cells;
  TableState table;
  mutable std::size_t asked = 0;
};

TEST(TypeAhead, FindsWhatBeginsSoInEitherOrder) {
  FakeAmbient ambient;
  ambient.clock.SetLocal({2026, 2, 22});
  struct Case {
    const char* typed;
    const char* ascending;
    const char* descending;
  };
  const std::vector<TableCell> texts = {{.text = ""},       {.text = "Apples"},
                                        {.text = "bakery"}, {.text = "Bakery 2"},
                                        {.text = "cash"},   {.text = "Zo\u00eb"}};
  const Case text_cases[] = {{"b", "bakery", "Bakery 2"},
                             {"BAKERY", "bakery", "Bakery 2"},
                             {"bakery 2", "Bakery 2", "Bakery 2"},
                             {"zo\u00cb", "Zo\u00eb", "Zo\u00eb"},
                             {"d", "-", "-"},
                             {"zz", "-", "-"},
                             {"", "-", "-"}};
  const std::vector<TableCell> days = {{.text = "01/30/26", .number = 20260130},
                                       {.text = "02/02/26", .number = 20260202},
                                       {.text = "02/17/26", .number = 20260217}};
  const Case day_cases[] = {{"2/2", "02/02/26", "02/02/26"},
                            {"2/3", "02/17/26", "02/02/26"},
                            {"2/17/26", "02/17/26", "02/17/26"},
                            {"1/1", "01/30/26", "-"},
                            {"3/1", "-", "02/17/26"},
                            {"x", "-", "-"}};
  const std::vector<TableCell> checks = {{.text = "9", .number = 9},
                                         {.text = "1001", .number = 1001},
                                         {.text = "1004", .number = 1004},
                                         {.text = ""}};
  const Case check_cases[] = {{"1002", "1004", "1001"}, {"9", "9", "9"}, {"a", "-", "-"}};
  const auto play = [](const std::vector<TableCell>& cells, TableColumn::Content content,
                       const auto& cases) {
    const SortedColumn up(cells, content, false);
    const SortedColumn down(cells, content, true);
    for (const Case& each : cases) {
      EXPECT_EQ(up.Found(each.typed), each.ascending) << each.typed;
      EXPECT_EQ(down.Found(each.typed), each.descending) << each.typed;
    }
  };
  play(texts, TableColumn::Content::Text, text_cases);
  play(days, TableColumn::Content::Day, day_cases);
  play(checks, TableColumn::Content::Count, check_cases);
}

TEST(TypeAhead, AsksForAHandfulOfCells) {
  std::vector<TableCell> cells(100'000);
  for (std::size_t i = 0; i < cells.size(); ++i) cells[i].text = std::to_string(1'000'000 + i);
  const SortedColumn column(std::move(cells), TableColumn::Content::Text, false);
  EXPECT_EQ(column.Found("1077777"), "1077777");
  EXPECT_LT(column.asked, 30U);
}

TEST(TypeAhead, BeginsAnewAfterAPause) {
  TypedLetters letters;
  EXPECT_EQ(letters.Add(QStringLiteral("w"), 1'000, 400), "w");
  EXPECT_EQ(letters.Add(QStringLiteral("e"), 1'400, 400), "we");
  EXPECT_EQ(letters.Add(QStringLiteral("x"), 1'801, 400), "x");
}

}  // namespace
}  // namespace tallyfold::desktop
