#include "app/shell/printing.h"

#include <gtest/gtest.h>

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
