#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <random>
#include <set>

#include "fakes/fake_ambient.h"
#include "fakes/file_text.h"
#include "model/amounts.h"
#include "model/current_account.h"
#include "model/date_format.h"
#include "model/entry_split.h"
#include "plist/reader.h"
#include "printing/drawn_metric.h"
#include "printing/golden_file.h"
#include "printing/pages.h"
#include "printing/plain_text.h"
#include "printing/reconcile_document.h"
#include "printing/register_document.h"
#include "printing/schedule_document.h"
#include "printing/summary_document.h"
#include "registers/fake_table_host.h"
#include "registers/register_look.h"
#include "registers/schedule_list.h"
#include "summaries/account_summary.h"
#include "summaries/summary_layout.h"

namespace tallyfold {
namespace {

constexpr DateNumber kToday = 20260302;

// A register that shows all entries of an account in the order of days.
struct ShownRegister {
  explicit ShownRegister(std::shared_ptr<LDGRAccount> shown) : account(std::move(shown)) {
    rows.SetTableView(&table);
    rows.SetTableIdentifier("entry");
    rows.SetAccountPreferences(views);
    rows.SetAccount(account);
    rows.Reload(account->GetEntries());
  }

  std::shared_ptr<LDGRAccount> account;
  ScopedCurrentAccount current{account.get()};
  FakeTableHost host;
  TableState table{DefaultRegisterColumns()};
  std::shared_ptr<LDGRAccountPreferences> views = std::make_shared<LDGRAccountPreferences>();
  LDGRAccountTableViewData rows{host};
};

std::shared_ptr<LDGRAccount> ExampleAccount() {
  const std::string bytes = FileText(TALLYFOLD_TEST_DATA "/../../examples/Accounts.plist");
  const plist::Dictionary accounts = plist::Read(bytes).value.DictionaryValue();
  auto account =
      std::make_shared<LDGRAccount>(accounts.Get("accounts").ArrayValue().At(0).DictionaryValue());
  account->setStatementBalance(2792.63);
  return account;
}

std::shared_ptr<LDGRAccount> MixedAccount(std::size_t entries) {
  auto account = std::make_shared<LDGRAccount>();
  account->SetName("Gift list, first of five");
  account->SetStartingBalance(-250.75);
  std::mt19937 random(7);
  const auto one_of = [&](std::size_t count) { return random() % count; };
  const auto text = [&] {
    constexpr std::string_view kTexts[] = {
        "",
        "fi",
        "Groceries",
        "line\nbreak\tand\x07 bell",
        "八百屋でお茶とパンを買う八百屋で",
        "A description that is a good deal longer than any column of a register could ever be",
        "e\u0301\u0301\u0301",
        "iiiiiiiiiiiiiiiiiiiiiiii",
        "WWWWWWWWWWWWWWWWWWWWWWWW",
        "\xff"};
    return std::string(kTexts[one_of(std::size(kTexts))]);
  };
  for (std::size_t i = 0; i < entries; ++i) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(static_cast<std::int32_t>(i));
    entry->SetDate(static_cast<DateNumber>((1990 + one_of(45)) * 10000 + (1 + one_of(12)) * 100 +
                                           1 + one_of(28)));
    entry->SetIsDebit(one_of(3) != 0);
    entry->SetIsDeposit(!entry->IsDebit());
    entry->SetIsCheck(one_of(4) == 0);
    entry->SetCheckNumber(static_cast<std::int32_t>(one_of(2'000'000'000)));
    const double cents = static_cast<double>(one_of(1000)) / 100.0;
    entry->SetAmount((entry->IsDebit() ? -1.0 : 1.0) * cents *
                     (one_of(50) == 0 ? 1'111'111.0 : 11.0));
    entry->SetDescription(text());
    entry->SetToFrom(text());
    if (one_of(5) == 0) entry->SetNotes(text() + ' ' + text());
    if (one_of(6) == 0) {
      auto split = std::make_shared<LDGRAccountEntrySplit>();
      for (std::size_t line = 0; line < one_of(11); ++line) {
        split->SetDescription(text(), line);
        split->SetToFrom(text(), line);
        split->SetAmount(line == 3 ? -98'765'432.1 : cents, line);
      }
      entry->SetSplit(split);
    }
    account->AddEntry(std::move(entry));
  }
  return account;
}

std::string AllPages(const Pages& pages) {
  std::string text;
  for (std::size_t i = 0; i < pages.Count(); ++i) {
    text += (i == 0 ? "" : "\f\n") + PageAsText(pages.PageAt(i));
  }
  return text;
}

// A page as what stands where, for those who draw.
std::string Pieces(const Page& page) {
  std::string text;
  const auto number = [](double value) { return FixedAmountString(value); };
  for (const TextRun& run : page.runs) {
    text += number(run.x) + ' ' + number(run.y) + ' ' +
            std::to_string(static_cast<int>(run.style)) + ' ' + run.text + '\n';
  }
  constexpr const char* kWeights[] = {" hair rule ", " rule ", " heavy rule "};
  for (const Rule& rule : page.rules) {
    text += number(rule.x) + ' ' + number(rule.y) +
            kWeights[static_cast<std::size_t>(rule.weight)] + number(rule.width) + '\n';
  }
  for (const Bar& bar : page.bars) {
    text += number(bar.x) + ' ' + number(bar.y) + " bar " + number(bar.width) + " x " +
            number(bar.height) + '\n';
  }
  return text;
}

class PrintedDocuments : public testing::Test {
 protected:
  PrintedDocuments() { ambient_.clock.SetLocal({2026, 3, 2, 12, 0, 0}); }

  [[nodiscard]] PrintDocument Summary(const std::shared_ptr<LDGRAccount>& account,
                                      std::int32_t style) const {
    LDGRAccountSummary& summary = *account->selectedAccountSummary();
    summary.setShowStyle(style);
    // Of weeks, some have lost money.
    summary.setSubtotalPeriodStyle(style == 1 ? 1 : 2);
    summary.Refresh();
    return SummaryDocument(*account, LayOutSummary(summary, RegisterDateFormat(preferences_)),
                           preferences_, kToday);
  }
  [[nodiscard]] Pages OnPlainPaper(PrintDocument document, double length) const {
    Paper paper = PlainTextPaper();
    paper.portrait.height = paper.landscape.height = length;
    return Pages(std::move(document), paper, Orientation::Automatic, fixed_);
  }

  FakeAmbient ambient_;
  LDGRPreferences preferences_;
  FixedPitchMetric fixed_;
  DrawnMetric drawn_;
};

TEST_F(PrintedDocuments, AreAsTheyWereDrawnOnce) {
  const auto account = ExampleAccount();
  const ShownRegister shown(account);
  const RegisterPrintOptions options{"all entries", true, true, kToday};
  ScheduleList schedules = account->GetSchedules();
  SortByNextDate(schedules, false);
  const auto text = [&](PrintDocument document) {
    return AllPages(OnPlainPaper(std::move(document), 40));
  };
  EXPECT_TRUE(
      IsAsInFile(text(RegisterDocument(shown.rows, preferences_, options)), "pages/register.txt"));
  EXPECT_TRUE(
      IsAsInFile(text(ReconcileDocument(account, preferences_, options)), "pages/reconcile.txt"));
  EXPECT_TRUE(IsAsInFile(text(ScheduleDocument(*account, schedules, preferences_, options)),
                         "pages/schedules.txt"));
  EXPECT_TRUE(IsAsInFile(text(Summary(account, 0)), "pages/summary.txt"));
  EXPECT_TRUE(IsAsInFile(text(Summary(account, 1)), "pages/summary_with_bars.txt"));

  const Pages drawn(Summary(account, 1), LetterPaper(), Orientation::Automatic, drawn_);
  EXPECT_TRUE(IsAsInFile(Pieces(drawn.PageAt(0)), "pages/summary_drawn.txt"));
}

// --- Nothing is cut -----------------------------------------------------------------------------

// No text runs into another or out of the margins, on any page.
void ExpectThatEveryTextHasItsPlace(const Page& page, const Paper& paper,
                                    const TextMetric& metric) {
  std::map<double, std::vector<const TextRun*>> lines;
  for (const TextRun& run : page.runs) lines[run.y].push_back(&run);
  double free_y = paper.margins.top;
  for (auto& [y, runs] : lines) {
    EXPECT_GE(y, free_y - 1e-6);
    free_y = y + metric.LineHeight(runs.front()->style);
    std::ranges::sort(runs, {}, &TextRun::x);
    double free_x = paper.margins.left;
    for (const TextRun* run : runs) {
      EXPECT_GE(run->x, free_x - 1e-6) << run->text;
      free_x = run->x + metric.Width(run->text, run->style);
    }
    EXPECT_LE(free_x, page.size.width - paper.margins.right + 1e-6) << runs.back()->text;
  }
  EXPECT_LE(free_y, page.size.height - paper.margins.bottom + 1e-6);
}

TEST_F(PrintedDocuments, CutNoDayAndNoAmountAndLoseNoEntry) {
  const auto account = MixedAccount(400);
  const ShownRegister shown(account);
  const PaperSize small{700, 300};
  for (const Paper& paper : {LetterPaper(), A4Paper(), PaperOfSize(small, {1, 2, 3, 4})}) {
    for (const std::int32_t date_format : {0, 1, 2}) {
      preferences_.SetDateFormat(date_format);
      ambient_.locale.short_date_format = "%A %d %B %Y";
      const bool with_details = date_format != 1;
      const Pages pages(RegisterDocument(shown.rows, preferences_,
                                         {"all entries", with_details, with_details, kToday}),
                        paper, Orientation::Automatic, drawn_);
      ASSERT_EQ(pages.GetProblem(), Pages::Problem::None);
      std::multiset<std::string> texts;
      for (std::size_t i = 0; i < pages.Count(); ++i) {
        const Page page = pages.PageAt(i);
        ExpectThatEveryTextHasItsPlace(page, paper, drawn_);
        for (const TextRun& run : page.runs) texts.insert(run.text);
      }
      const std::string format = RegisterDateFormat(preferences_);
      for (std::size_t row = 0; row < account->GetEntries().size(); ++row) {
        const LDGRAccountEntry& entry = *shown.rows.GetEntries()[row];
        std::vector<std::string> whole = {
            FormatDate(DateNumberToNSCalendarDate(entry.GetDate()), format),
            RegisterAmountText(entry.GetAmount(), preferences_),
            RegisterAmountText(shown.rows.RunningBalanceOfRow(row), preferences_)};
        if (entry.IsCheck()) whole.push_back(std::to_string(entry.GetCheckNumber()));
        for (const std::string& text : whole) {
          const auto found = texts.find(text);
          ASSERT_NE(found, texts.end()) << text;
          texts.erase(found);
        }
      }
    }
  }
}

TEST_F(PrintedDocuments, BringForwardTheBalanceTheRegisterShows) {
  const auto account = MixedAccount(300);
  ShownRegister shown(account);
  const auto carried = [&] {
    const Pages pages = OnPlainPaper(
        RegisterDocument(shown.rows, preferences_, {"all entries", false, false, kToday}), 30);
    std::vector<std::string> lines;
    std::string last;  // the balance in the last line of the page before
    for (std::size_t i = 0; i < pages.Count(); ++i) {
      const Page page = pages.PageAt(i);
      for (std::size_t run = 0; run + 1 < page.runs.size(); ++run) {
        if (page.runs[run].text == "Balance brought forward") {
          lines.push_back(page.runs[run + 1].text);
          EXPECT_TRUE(i == 0 || lines.back() == last) << "page " << i + 1;
        }
        if (page.runs[run].text.starts_with("Closing")) lines.push_back(page.runs[run + 2].text);
      }
      // The foot is all that follows it.
      last = page.runs[page.runs.size() - 3].text;
    }
    EXPECT_TRUE(lines.empty() || lines.size() == pages.Count() + 1);
    return lines;
  };
  const auto balance = [&](double amount) { return RegisterAmountText(amount, preferences_); };
  const auto by_day = carried();
  ASSERT_GT(by_day.size(), 10U);
  EXPECT_EQ(by_day.front(), balance(-250.75));
  EXPECT_EQ(by_day.back(), balance(account->GetBalance()));

  // A filter leaves entries out, not their amounts.
  shown.rows.Reload({account->GetEntries()[5], account->GetEntries()[9]});
  const double last = shown.rows.RunningBalanceOfRow(1);
  EXPECT_EQ(carried(), (std::vector{balance(shown.rows.RunningBalanceOfRow(0) -
                                            shown.rows.GetEntries()[0]->GetAmount()),
                                    balance(last)}));
  shown.rows.Reload({});
  EXPECT_TRUE(carried().empty());

  shown.rows.Reload(account->GetEntries());
  shown.rows.ClickedTableColumn("date");
  EXPECT_TRUE(carried().empty()) << "descending";
  shown.rows.ClickedTableColumn("amount");
  EXPECT_TRUE(carried().empty());
  shown.rows.ClickedTableColumn("date");
  shown.rows.HideTableColumnWithIdentifier("balance");
  EXPECT_TRUE(carried().empty());
}

TEST_F(PrintedDocuments, CloseWithWordsAndFiguresWhateverColumnsShow) {
  const auto account = ExampleAccount();
  const std::string sum = RegisterAmountText(account->GetBalance() - 1250.0, preferences_);
  const std::string balance = RegisterAmountText(account->GetBalance(), preferences_);
  using Lines = std::vector<std::string>;
  const struct {
    std::vector<std::string_view> columns;
    Lines closing;
  } cases[] = {
      {{"date", "description", "amount"}, {"Total of 23 entries", sum}},
      {{"type"}, {"Total of 23 entries"}},
      {{"date"}, {"Total of 23 entries"}},
      {{"check", "cleared"}, {"Total of 23 entries"}},
      {{"amount"}, {"Total of 23 entries", sum}},
      {{"check", "cleared", "amount"}, {"Total of 23 entries", sum}},
      {{"date", "amount", "balance"}, {"Closing balance, 23 entries", sum, balance}},
  };
  for (const auto& c : cases) {
    ShownRegister shown(account);
    for (const TableColumn& column : DefaultRegisterColumns()) {
      if (std::ranges::find(c.columns, column.identifier) != c.columns.end()) continue;
      shown.rows.HideTableColumnWithIdentifier(column.identifier);
    }
    const Pages pages = OnPlainPaper(
        RegisterDocument(shown.rows, preferences_, {"all entries", false, false, kToday}), 60);
    ASSERT_EQ(pages.Count(), 1U);
    Lines closing;
    for (const TextRun& run : pages.PageAt(0).runs) {
      if (run.style == TextStyle::Strong) closing.push_back(run.text);
    }
    EXPECT_EQ(closing, c.closing);
  }
}

TEST_F(PrintedDocuments, TurnThePaperForEntriesOnlyAndPrintThoseThatAreWanted) {
  const auto account = ExampleAccount();
  ShownRegister shown(account);
  shown.rows.ClickedTableColumn("date");
  RegisterPrintOptions options{"all entries", false, false, kToday};
  const auto printed = [&] {
    return Pages(RegisterDocument(shown.rows, preferences_, options), PlainTextPaper(),
                 Orientation::Automatic, fixed_);
  };
  EXPECT_GT(printed().Size().width, printed().Size().height + 40);
  const EntryList& entries = account->GetEntries();
  options.only = {entries[2], std::make_shared<LDGRAccountEntry>(), entries[4]};
  const std::string page = PageAsText(printed().PageAt(0));
  EXPECT_NE(page.find("Register: 2 selected entries"), std::string::npos);
  EXPECT_NE(page.find("Total of 2 entries"), std::string::npos) << page;
  // In the order of the register.
  EXPECT_LT(page.find(entries[4]->GetDescription()), page.find(entries[2]->GetDescription()));
  options.only = {};
  shown.rows.Reload({});
  EXPECT_EQ(printed().Size(), PlainTextPaper().portrait);
}

TEST_F(PrintedDocuments, AreMadeOfWhateverAnAccountHolds) {
  const auto empty = std::make_shared<LDGRAccount>();
  empty->SetName("a\nb\x1b[2J");
  const auto odd = std::make_shared<LDGRAccount>();
  odd->SetName(std::string(10'000, 'W'));
  for (const double amount : {1e300, -1e300, 1e15}) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetAmount(amount);
    entry->SetDate(2147483647);
    entry->SetDescription(std::string(20'000, 'x'));
    entry->SetNotes(std::string(20'000, 'x'));
    auto split = std::make_shared<LDGRAccountEntrySplit>();
    split->SetDescription("A description", 9);
    split->SetToFrom(std::string(10'000, 'W'), 9);
    entry->SetSplit(split);
    odd->AddEntry(entry);
  }
  struct Case {
    std::shared_ptr<LDGRAccount> account;
    double width;
    Pages::Problem problem;
  };
  for (const Case& c :
       {Case{empty, 612, Pages::Problem::None}, Case{odd, 612, Pages::Problem::TooNarrow},
        Case{odd, 9'000, Pages::Problem::None}}) {
    ShownRegister shown(c.account);
    const RegisterPrintOptions options{"all entries", true, true, kToday};
    const Paper paper = PaperOfSize({c.width, 792}, kPaperMargins);
    for (const char* hidden : {"", "description", "toFrom", "type", "check", "date", "cleared"}) {
      shown.rows.HideTableColumnWithIdentifier(hidden);
      const Pages pages(RegisterDocument(shown.rows, preferences_, options), paper,
                        Orientation::Portrait, drawn_);
      EXPECT_EQ(pages.GetProblem(), c.problem);
      for (std::size_t i = 0; i < pages.Count(); ++i) {
        ExpectThatEveryTextHasItsPlace(pages.PageAt(i), paper, drawn_);
      }
    }
    for (PrintDocument& document :
         std::vector{ReconcileDocument(c.account, preferences_, options),
                     ScheduleDocument(*c.account, c.account->GetSchedules(), preferences_, options),
                     Summary(c.account, 1)}) {
      const Pages pages(std::move(document), paper, Orientation::Portrait, drawn_);
      for (std::size_t i = 0; i < pages.Count(); ++i) {
        ExpectThatEveryTextHasItsPlace(pages.PageAt(i), paper, drawn_);
      }
    }
  }
}

TEST(FiltersInPrint, AreNamedWithTheirText) {
  EXPECT_EQ(FilterInWords(0, ""), "all entries");
  EXPECT_EQ(FilterInWords(10, "rent"), "Description “rent”");
  EXPECT_EQ(FilterInWords(10, ""), "all entries");
  EXPECT_EQ(FilterInWords(41, "left over"), "Last Month");
  EXPECT_EQ(FilterInWords(-9999, "x"), "all entries");
  EXPECT_EQ(FilterInWords(0, 12), "all entries");
}

}  // namespace
}  // namespace tallyfold
