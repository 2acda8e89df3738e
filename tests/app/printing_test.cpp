#include "app/shell/printing.h"

#include <gtest/gtest.h>

#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/application_lock.h"
#include "app/shell/tabs.h"
#include "app/test_application.h"
#include "filters/register_search.h"
#include "printing/plain_text.h"

namespace tallyfold {
namespace {

// The first line below the account's name, by which documents differ.
std::string Printed(LDGRController& app, PrintKind kind) {
  const FixedPitchMetric metric;
  PrintOptions options;
  options.paper = PlainTextPaper();
  const auto pages = app.printing().MakePages(kind, options, metric);
  EXPECT_EQ(pages.has_value(), app.printing().CanPrint(kind));
  return pages ? pages->PageAt(0).runs.at(1).text : "nothing";
}

TEST(Printing, PrintsScheduledEntriesInTheOrderOfTheirList) {
  TestApplication test;
  test.AddAccount("Checking");
  for (const double amount : {5.0, 9.0, 7.0}) {
    auto& sheet = test.app.scheduleSheet();
    sheet.New(EntryKind::Deposit);
    auto typed = sheet.State().typed;
    typed.start = 20040301;
    typed.amount = amount;
    sheet.Read(typed);
    ASSERT_TRUE(sheet.OK());
  }
  auto& rows = test.app.schedules().Rows();
  std::vector<std::string> orders;
  for (int click = 0; click < 2; ++click) {
    rows.ClickedTableColumn("amount");
    const FixedPitchMetric metric;
    const auto pages =
        test.app.printing().MakePages(PrintKind::Schedules, {.paper = PlainTextPaper()}, metric);
    std::string order;
    for (const TextRun& run : pages->PageAt(0).runs) {
      if (run.text.starts_with('$')) order += run.text;
    }
    orders.push_back(order);
  }
  EXPECT_EQ(orders, (std::vector<std::string>{"$9.00$7.00$5.00", "$5.00$7.00$9.00"}));
}

TEST(Printing, PrintsWhatTheTabShowsOfTheSelectedAccount) {
  TestApplication test;
  EXPECT_EQ(Printed(test.app, PrintKind::Register), "nothing");
  const auto account = test.AddAccount("Checking");
  test.AddDebit(5, "Tea");
  struct Case {
    Tab tab;
    std::string_view head;
  } const cases[] = {{Tab::Entry, "Register: all entries"},
                     {Tab::Reconcile, "Reconcile Report"},
                     {Tab::Schedule, "Scheduled Entries"},
                     {Tab::Summary, "Custom..."}};
  for (const Case& c : cases) {
    test.app.tabs().Select(c.tab);
    EXPECT_EQ(Printed(test.app, test.app.printing().KindShown()), c.head);
  }

  // The register used last goes on being printed, with the filter it has.
  test.app.tabs().Select(Tab::Reconcile);
  account->setReconcileFilterType(81);
  test.app.search().Search();
  test.app.tabs().Select(Tab::Summary);
  EXPECT_EQ(Printed(test.app, PrintKind::Register), "Register: Unresolved");

  account->setSelectedAccountSummary(nullptr);
  EXPECT_EQ(Printed(test.app, PrintKind::Summary), "nothing");
  account->SetPassword("secret");
  account->setAuthenticated(false);
  EXPECT_EQ(Printed(test.app, PrintKind::Register), "nothing");
  account->setAuthenticated(true);
  test.app.applicationLock().setPassword("secret");
  test.app.applicationLock().lock();
  EXPECT_EQ(Printed(test.app, PrintKind::Reconcile), "nothing");
}

}  // namespace
}  // namespace tallyfold
