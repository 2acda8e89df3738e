#include "app/shell/printing.h"

#include <gtest/gtest.h>

#include "app/test_application.h"
#include "printing/plain_text.h"

namespace tallyfold {
namespace {

// The first line below the account's name, by which documents differ.
std::string Printed(LDGRController& app, PrintKind kind) {
  const FixedPitchMetric metric;
  PrintOptions options;
  options.paper = PlainTextPaper();
  const auto pages = app.Print_Pages(kind, options, metric);
  EXPECT_EQ(pages.has_value(), app.Print_IsPossible(kind));
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
    test.app.SelectTab(c.tab);
    EXPECT_EQ(Printed(test.app, test.app.Print_KindShown()), c.head);
  }

  // The register used last goes on being printed, with the filter it has.
  test.app.SelectTab(Tab::Reconcile);
  account->setReconcileFilterType(81);
  test.app.Search();
  test.app.SelectTab(Tab::Summary);
  EXPECT_EQ(Printed(test.app, PrintKind::Register), "Register: Unresolved");

  account->setSelectedAccountSummary(nullptr);
  EXPECT_EQ(Printed(test.app, PrintKind::Summary), "nothing");
  account->SetPassword("secret");
  account->setAuthenticated(false);
  EXPECT_EQ(Printed(test.app, PrintKind::Register), "nothing");
  account->setAuthenticated(true);
  test.app.setPassword("secret");
  test.app.lock();
  EXPECT_EQ(Printed(test.app, PrintKind::Reconcile), "nothing");
}

}  // namespace
}  // namespace tallyfold
