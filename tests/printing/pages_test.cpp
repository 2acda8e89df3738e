#include "printing/pages.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "printing/plain_text.h"

namespace tallyfold {
namespace {

// Rows that are named after their numbers, of given shapes.
class NumberedRows final : public PrintRows {
 public:
  explicit NumberedRows(std::vector<RowShape> shapes, std::size_t repeated = 1,
                        bool carries_over = false)
      : shapes_(std::move(shapes)), repeated_(repeated), carries_over_(carries_over) {}

  [[nodiscard]] std::size_t Count() const override { return shapes_.size() * repeated_; }
  [[nodiscard]] RowShape ShapeOf(std::size_t row) const override {
    return shapes_[row % shapes_.size()];
  }
  [[nodiscard]] PrintRow RowAt(std::size_t row) const override {
    asked.insert(row);
    PrintRow printed{{.cells = {{0, std::to_string(row)}}}};
    for (std::size_t i = 0; i < ShapeOf(row).details; ++i) {
      printed.details.push_back({.cells = {{0, std::to_string(row) + "." + std::to_string(i)}}});
    }
    return printed;
  }
  [[nodiscard]] bool CarriesOver() const override { return carries_over_; }
  [[nodiscard]] PrintLine LineAfter(std::size_t row) const override {
    return {.cells = {{0, "after " + std::to_string(row)}}};
  }

  mutable std::set<std::size_t> asked;

 private:
  std::vector<RowShape> shapes_;
  std::size_t repeated_;
  bool carries_over_;
};

PrintTable Table(std::shared_ptr<const PrintRows> rows, std::string title = "",
                 std::string column = "") {
  return {std::move(title), {{.title = std::move(column), .is_elastic = true}}, std::move(rows)};
}

PrintTable Table(std::vector<RowShape> shapes, std::string title = "", std::string column = "") {
  return Table(std::make_shared<NumberedRows>(std::move(shapes)), std::move(title),
               std::move(column));
}

const FixedPitchMetric kMetric;

// So many lines for tables: below them stand an empty line and the page's number.
Pages PagesOf(std::vector<PrintTable> tables, double lines) {
  const PaperSize size{30, lines + 2};
  return Pages({{}, "", std::move(tables)}, {size, size, {}}, Orientation::Automatic, kMetric);
}

// The lines of the tables on each page, separated by "/", pages by "|".
std::string Summed(const Pages& pages) {
  std::string text;
  for (std::size_t i = 0; i < pages.Count(); ++i) {
    std::string page = PageAsText(pages.PageAt(i));
    const std::string foot =
        "Page " + std::to_string(i + 1) + " of " + std::to_string(pages.Count());
    EXPECT_NE(page.find(foot), std::string::npos);
    page.resize(page.rfind('\n', page.find(foot)));
    page.resize(page.find_last_not_of('\n') + 1);
    for (char& c : page) c = c == '\n' ? '/' : c;
    text += (i == 0 ? "" : "|") + page;
  }
  return text;
}

TEST(Pages, KeepTogetherWhatBelongsTogether) {
  const RowShape plain;
  const RowShape kept{.is_kept_with_next = true};
  const RowShape two{.details = 1};
  const RowShape six{.details = 5};
  const RowShape note{.note = "a note of some words that takes two lines"};
  const RowShape total{.has_rule_above = true};
  constexpr std::string_view kRule = "------------------------------";
  struct Case {
    std::string_view what;
    double lines;
    std::vector<PrintTable> tables;
    std::string pages;
  };
  const Case cases[] = {
      {"nothing", 4, {}, ""},
      {"no rows", 4, {Table(std::vector<RowShape>(), "T")}, "T"},
      {"rows that fill the page", 4, {Table({plain, plain, plain, plain})}, "0/1/2/3"},
      {"one row more", 4, {Table({plain, plain, plain, plain, plain})}, "0/1/2/3|4"},
      {"a row of two lines", 4, {Table({plain, plain, plain, two})}, "0/1/2|3/3.0"},
      {"a row with a note",
       4,
       {Table({plain, two, note})},
       "0/1/1.0|2/  a note of some words that/  takes two lines"},
      {"kept rows", 4, {Table({plain, plain, kept, kept, plain})}, "0/1|2/3/4"},
      {"a total", 4, {Table({plain, plain, kept, total})}, "0/1|2/" + std::string(kRule) + "/3"},
      {"more kept rows than a page",
       3,
       {Table({plain, plain, kept, kept, kept, plain})},
       "0/1/2|3/4/5"},
      {"a title above its rows",
       5,
       {Table({plain, plain}, "A"), Table({plain, plain}, "B")},
       "A/0/1|B/0/1"},
      {"a title on the same page",
       7,
       {Table({plain, plain}, "A"), Table({plain, plain}, "B")},
       "A/0/1//B/0/1"},
      {"titles on each page",
       6,
       {Table({plain, plain, plain, plain, plain}, "A", "Col")},
       "A/Col/" + std::string(kRule) + "/0/1/2|A (continued)/Col/" + std::string(kRule) + "/3/4"},
      {"a row taller than a page",
       4,
       {Table({plain, plain, six, plain})},
       "0/1/2/2.0|2.1/2.2/2.3/2.4|3"},
      {"a tall row that begins on a new page",
       4,
       {Table({plain, plain, plain, six})},
       "0/1/2|3/3.0/3.1/3.2|3.3/3.4"},
      {"a tall row below a rule",
       4,
       {Table({plain, {.has_rule_above = true, .details = 5}})},
       "0/" + std::string(kRule) + "/1/1.0|1.1/1.2/1.3/1.4"},
      {"a tall row of the second table",
       6,
       {Table({plain}, "A"), Table({plain, plain, six, plain}, "B")},
       "A/0//B/0/1|B (continued)/2/2.0/2.1/2.2/2.3|B (continued)/2.4/3"},
      {"tables without rows",
       4,
       {Table({plain, plain, plain}), Table(std::vector<RowShape>(), "B"),
        Table(std::vector<RowShape>(), "C")},
       "0/1/2|B//C"},
      {"a line of a tall row alone",
       5,
       {Table({plain, plain, plain, {.details = 9}})},
       "0/1/2/3/3.0|3.1/3.2/3.3/3.4/3.5|3.6/3.7/3.8"},
      {"what is carried over",
       5,
       {Table(
           std::make_shared<NumberedRows>(std::vector{plain, plain, two, plain, plain}, 1, true))},
       "0/1/2/2.0/3|after 3/4"},
      {"what is carried into a row",
       4,
       {Table(std::make_shared<NumberedRows>(std::vector{six}, 1, true))},
       "0/0.0/0.1/0.2|after 0/0.3/0.4"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Summed(PagesOf(c.tables, c.lines)), c.pages) << c.what;
  }
}

TEST(Pages, RepeatAHeadWhoseTextsShareItsLine) {
  struct Case {
    HeadLine line;
    std::string_view printed;
  } const cases[] = {
      {{"Checking", "Sorted by Date"}, "Checking        Sorted by Date"},
      {{"The joint account of both", "Sorted by Date"}, "The joint acc…  Sorted by Date"},
      {{"", "Sorted by Date"}, "                Sorted by Date"},
      {{"Two\nlines of a name", ""}, "Two lines of a name"},
      {{"Checking", "01/01/26 – 12/31/26, Last Year"}, "01/01/26 – 12/31/26, Last Year"},
      {{"Checking", "01/01/26 – 12/31/26, A Long Year"}, ""},  // a range is never cut
  };
  const PaperSize size{30, 10};
  for (const Case& c : cases) {
    const Pages pages({{c.line}, "", {Table({{}, {}, {}, {}, {}, {}, {}})}}, {size, size, {}},
                      Orientation::Automatic, kMetric);
    ASSERT_EQ(pages.Count(), c.printed.empty() ? 0U : 2U);
    EXPECT_EQ(pages.GetProblem() == Pages::Problem::TooNarrow, c.printed.empty());
    for (std::size_t i = 0; i < pages.Count(); ++i) {
      const std::string page = PageAsText(pages.PageAt(i));
      EXPECT_EQ(page.substr(0, page.find('\n')), c.printed);
    }
  }

  // Nor is the day in the foot cut, whatever the numbers of the pages take beside it.
  const auto with_foot = [&size](std::size_t rows) {
    const Pages pages({{}, "Printed 11/22/26", {Table(std::vector<RowShape>(rows))}},
                      {size, size, {}}, Orientation::Automatic, kMetric);
    return std::pair(pages.GetProblem(), pages.LeastSize().width);
  };
  EXPECT_EQ(with_foot(7), std::pair(Pages::Problem::None, 29.0));
  EXPECT_EQ(with_foot(100), std::pair(Pages::Problem::TooNarrow, 31.0));
}

TEST(Pages, BreakANoteOfAnyLengthOverAsManyPagesAsItTakes) {
  std::string note;
  for (int i = 0; i < 20'000; ++i) note += std::to_string(i) + ' ';
  const Pages pages = PagesOf({Table({{.note = note}})}, 40);
  std::string read;
  for (std::size_t i = 0; i < pages.Count(); ++i) {
    for (const TextRun& run : pages.PageAt(i).runs) {
      if (run.style == TextStyle::Italic) read += run.text + ' ';
    }
  }
  EXPECT_EQ(read, note);
}

TEST(Pages, AreMadeOneByOneInAnyOrder) {
  const auto rows = std::make_shared<NumberedRows>(
      std::vector<RowShape>{{}, {.details = 2}, {.note = "n"}, {}}, 40'000);
  const Pages pages = PagesOf({Table(rows, "Title", "Column")}, 50);
  EXPECT_GT(pages.Count(), 5'000U);
  EXPECT_TRUE(rows->asked.empty());

  const Page first = pages.PageAt(0);
  EXPECT_LE(rows->asked.size(), 50U);
  rows->asked.clear();
  const Page last = pages.PageAt(pages.Count() - 1);
  EXPECT_EQ(*rows->asked.rbegin(), rows->Count() - 1);
  EXPECT_LE(rows->asked.size(), 50U);

  rows->asked.clear();
  for (std::size_t i = 0; i < pages.Count(); ++i) (void)pages.PageAt(i);
  EXPECT_EQ(pages.PageAt(0), first);
  EXPECT_EQ(pages.PageAt(pages.Count() - 1), last);
  EXPECT_EQ(rows->asked.size(), rows->Count());
}

TEST(Pages, TurnThePaperWhereColumnsWantItAndRefuseWhatIsTooSmall) {
  using Problem = Pages::Problem;
  struct Case {
    PaperSize portrait;
    Orientation orientation;
    Problem problem;
    PaperSize turned;
  } const cases[] = {
      // The columns need 10 + 2 + 6 and want 10 + 2 + 20; the lines are 2 + 3 + 2.
      {{34, 50}, Orientation::Automatic, Problem::None, {34, 50}},
      {{33, 50}, Orientation::Automatic, Problem::None, {50, 33}},
      {{34, 50}, Orientation::Landscape, Problem::None, {50, 34}},
      {{33, 50}, Orientation::Portrait, Problem::None, {33, 50}},
      {{20, 30}, Orientation::Portrait, Problem::None, {20, 30}},
      {{19, 30}, Orientation::Portrait, Problem::TooNarrow, {19, 30}},
      {{10, 19}, Orientation::Automatic, Problem::TooNarrow, {19, 10}},
      {{33, 20}, Orientation::Automatic, Problem::None, {33, 20}},  // turned it would be narrower
      {{34, 9}, Orientation::Automatic, Problem::None, {34, 9}},
      {{34, 8}, Orientation::Automatic, Problem::TooLow, {34, 8}},
      {{0, 0}, Orientation::Automatic, Problem::TooNarrow, {0, 0}},
      {{-5, 1e300}, Orientation::Portrait, Problem::TooNarrow, {-5, 1e300}},
  };
  for (const Case& c : cases) {
    PrintTable table = Table({{}, {}, {}}, "", "Text");
    table.columns = {{.title = "Date", .samples = {"2004-03-07"}},
                     {.title = "Text", .is_elastic = true, .wanted = 20, .least = 6}};
    const Pages pages({{}, "", {table}}, PaperOfSize(c.portrait, {1, 1, 1, 1}), c.orientation,
                      kMetric);
    EXPECT_EQ(pages.GetProblem(), c.problem) << c.portrait.width << " x " << c.portrait.height;
    EXPECT_EQ(pages.Size(), c.turned);
    EXPECT_EQ(pages.Count() == 0, c.problem != Problem::None);
    EXPECT_EQ(pages.LeastSize(), (PaperSize{20, 9}));
  }
}

TEST(Columns, ShareWhatOthersLeaveByWhatTheyNeed) {
  struct Case {
    std::string_view what;
    std::vector<PrintColumn> columns;
    std::vector<double> widths;
  };
  const std::string ten(10, 'x');
  const std::string forty(40, 'x');
  const Case cases[] = {
      {"no columns", {}, {}},
      {"as wide as their texts", {{.samples = {"1", ten}}, {.title = "Title"}}, {10, 5}},
      {"no wider than they need",
       {{.samples = {ten}, .is_elastic = true}, {.samples = {ten}, .is_elastic = true}},
       {10, 10}},
      {"one takes the rest",
       {{.samples = {ten}, .is_elastic = true},
        {.samples = {ten}, .is_elastic = true, .takes_rest = true}},
       {10, 28}},
      {"by what they want",
       {{.is_elastic = true, .wanted = 10}, {.is_elastic = true, .wanted = 28}},
       {10, 28}},
      {"a long text leaves the others room, a broken point nobody",
       {{.samples = {forty + forty}, .is_elastic = true, .wanted = 20},
        {.samples = {ten}, .is_elastic = true, .wanted = 10}},
       {30, 7}},
      {"never less than the least",
       {{.samples = {forty}, .is_elastic = true, .wanted = 40},
        {.samples = {ten}, .is_elastic = true, .wanted = 10, .least = 9}},
       {29, 9}},
      {"never less than the title",
       {{.title = ten + ten, .is_elastic = true}, {.is_elastic = true, .wanted = 60}},
       {20, 18}},
  };
  for (const Case& c : cases) {
    std::vector<double> widths;
    for (const PlacedColumn& column : ColumnLayout(c.columns, kMetric).Placed(40)) {
      widths.push_back(column.width);
    }
    EXPECT_EQ(widths, c.widths) << c.what;
  }
}

}  // namespace
}  // namespace tallyfold
