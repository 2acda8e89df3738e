#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTabBar>
#include <QTableView>
#include <QUrl>
#include <clocale>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/shell/tabs.h"
#include "desktop/drawer/accounts_list.h"
#include "desktop/menu_bar.h"
#include "desktop/tabs/register_page.h"
#include "desktop/test_window.h"
#include "filters/register_search.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

using std::chrono::milliseconds;

std::string Utf8(const QString& text) {
  return text.toStdString();
}

TEST(LockedAccount, ShowsNothingOnAnyTabUntilItsPasswordIsGiven) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  const auto account = app.desk().SelectedAccount();
  account->SetPassword("open");
  app.selection().Account_Select(account);
  test.Settle();
  test.program->window().findChild<QAction*>(QLatin1String("Account_Lock"))->trigger();
  test.Settle();
  EXPECT_EQ(Utf8(test.program->window().windowTitle()), "Tallyfold:  No Account Selected");
  for (const Tab tab : {Tab::Entry, Tab::Reconcile, Tab::Schedule, Tab::Summary}) {
    app.tabs().Select(tab);
    test.Settle();
    for (const char* table :
         {"entry_Table", "reconcile_Table", "schedule_Table", "summary_Table"}) {
      EXPECT_EQ(test.Rows(table), 0) << table;
    }
    EXPECT_EQ(test.TextOf("rows_Label").contains(QLatin1Char('$')) &&
                  test.FindWidget("rows_Label")->isVisible(),
              false);
  }
  app.tabs().Select(Tab::Reconcile);
  EXPECT_FALSE(test.FindWidget("statementBalance_Field")->isEnabled());
  EXPECT_FALSE(test.FindWidget("search_Field")->isEnabled());
  EXPECT_EQ(Utf8(test.TextOf("difference_Field")), "");
  EXPECT_TRUE(test.FindWidget("unlock_Button")->isVisible());
  EXPECT_EQ(Utf8(test.Row("accountsDrawer_Accounts_Table", 1)), "Joint checking|Locked");

  test.Click("unlock_Button");
  test.Type("opem");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(app.sheets().Current(), Sheet::AccountAuthentication);
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app.desk().SelectedAccount(), nullptr);
  test.Key(Qt::Key_1, Qt::ControlModifier);
  test.Type("open");
  test.Key(Qt::Key_Return);
  test.Settle();
  EXPECT_EQ(test.Rows("reconcile_Table"), 23);
}

TEST(DecimalComma, IsTypedSoughtAndReconciledWith) {
  const std::string former = std::setlocale(LC_ALL, nullptr);
  // Where that is installed, the toolkit and the C library write commas as well.
  static_cast<void>(std::setlocale(LC_ALL, "de_DE.UTF-8"));
  TestWindow test(ExampleAccounts());
  test.ambient.locale.decimal_separator = ",";
  test.ambient.locale.thousands_separator = ".";
  test.ambient.locale.short_date_format = "%d.%m.%y";
  ASSERT_TRUE(test.Launch());
  test.Key(Qt::Key_D, Qt::ControlModifier);
  test.Find<QLineEdit>("debitSheet_Date_Field")->selectAll();
  test.Type("21.2.26");
  auto* amount = test.Find<QLineEdit>("debitSheet_Amount_Field");
  amount->setFocus();
  test.Type("1.234,50+0,5");
  test.Key(Qt::Key_Return);
  const auto& entries = test.program->app().desk().SelectedAccount()->GetEntries();
  ASSERT_EQ(entries.size(), 24U);
  EXPECT_EQ(entries.back()->GetAmount(), -1235.0);
  EXPECT_EQ(entries.back()->GetDate(), 20260221);

  test.Find<QLineEdit>("search_Field")->setFocus();
  test.program->app().search().Filter_Select(14);
  test.Find<QLineEdit>("search_Field")->setFocus();
  test.Type("1235");
  test.Wait(milliseconds(500));
  EXPECT_EQ(test.Rows("entry_Table"), 1);

  test.Key(Qt::Key_2, Qt::AltModifier);
  auto* statement = test.Find<QLineEdit>("statementBalance_Field");
  test.Fill("statementBalance_Field", "2.725,73");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.program->app().desk().SelectedAccount()->statementBalance(), 2725.73);
  // One that can be read as either is refused and stays as it was typed.
  statement->selectAll();
  test.Type("1,234");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.program->app().desk().SelectedAccount()->statementBalance(), 2725.73);
  EXPECT_EQ(Utf8(statement->text()), "1,234");
  ASSERT_EQ(test.program->Save(Ending::Asker::Nobody), Ending::Outcome::Saved);
  EXPECT_NE(test.files.Read(TestWindow::kAccountsFile)->view().find("<real>-1235</real>"),
            std::string_view::npos);
  static_cast<void>(std::setlocale(LC_ALL, former.c_str()));
}

TEST(StatementBalance, BelongsToTheAccountItWasTypedFor) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  const Desk& desk = test.program->app().desk();
  const auto first = desk.SelectedAccount();
  test.Key(Qt::Key_2, Qt::AltModifier);
  auto* statement = test.Find<QLineEdit>("statementBalance_Field");
  const auto type = [](const char* text) { TestWindow::Fill("statementBalance_Field", text); };
  type("77.5");
  test.Key(Qt::Key_2, Qt::ControlModifier);
  ASSERT_NE(desk.SelectedAccount(), first);
  EXPECT_EQ(first->statementBalance(), 77.5);
  EXPECT_EQ(desk.SelectedAccount()->statementBalance(), 0.0);
  EXPECT_EQ(Utf8(statement->text()), "0.00");
  type("2x");
  test.Key(Qt::Key_1, Qt::ControlModifier);
  EXPECT_EQ(Utf8(statement->text()), "77.50");
}

TEST(Frames, OfTheAccountsAndTheDetailsAreKeptBetweenRuns) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  AccountsList& accounts = *test.program->window().pieces().accounts;
  EXPECT_EQ(accounts.Frame().toStdString(), "accounts 130 balance 90");
  for (const char* bad : {"", "balance", "x 1 balance 140", "balance nan", "balance 1e9"}) {
    accounts.SetFrame(bad);
    EXPECT_EQ(accounts.Frame().toStdString(), "accounts 130 balance 90") << bad;
  }
  accounts.SetFrame("balance 140 accounts 70");
  EXPECT_EQ(Utf8(test.Row("accountsDrawer_Accounts_Table", 1)), "$2,725.58|Joint checking");
  test.program->window().pieces().menus->DetailsItem()->trigger();
  const auto* details =
      test.program->window().pieces().entries->findChild<QLabel*>(QStringLiteral("details_Label"));
  EXPECT_TRUE(details->isHidden());
  test.program->FlushSettings();
  UserSettings settings(test.settings / "window");
  EXPECT_EQ(settings.State(QStringLiteral("Tallyfold.accountsDrawer_Accounts_Table")).toStdString(),
            "balance 140 accounts 70");
  accounts.SetFrame("accounts 130 balance 90");
  test.program->window().pieces().menus->DetailsItem()->trigger();
  test.program->window().Place();
  EXPECT_EQ(accounts.Frame().toStdString(), "balance 140 accounts 70");
  EXPECT_TRUE(details->isHidden());
}

TEST(Palette, IsFollowedByWhatIsShownAlready) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  test.Key(Qt::Key_2, Qt::AltModifier);
  const auto ink = [&test] {
    return test.FindWidget("difference_Field")->palette().color(QPalette::WindowText);
  };
  const QColor light = ink();
  const QPalette former = QApplication::palette();
  QPalette dark(QColor(0x20, 0x20, 0x20));
  QApplication::setPalette(dark);
  test.Settle();
  EXPECT_NE(ink(), light);
  QApplication::setPalette(former);
  test.Settle();
  EXPECT_EQ(ink(), light);
}

TEST(DroppedFile, IsImportedWhereNothingIsInTheWay) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  test.files.AddFile("/home/user/one.qif", "!Type:Bank\nD2/20'26\nT-5.00\nPSoap\n^\n");
  const auto drop = [&test](const QList<QUrl>& files) {
    QMimeData data;
    data.setUrls(files);
    MainWindow& window = test.program->window();
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QCoreApplication::sendEvent(&window, &enter);
    if (enter.isAccepted()) {
      QDropEvent dropped(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
      QCoreApplication::sendEvent(&window, &dropped);
    }
    test.Settle();
    return enter.isAccepted();
  };
  const QUrl file = QUrl::fromLocalFile(QStringLiteral("/home/user/one.qif"));
  EXPECT_FALSE(drop({file, file}));
  EXPECT_FALSE(drop({QUrl(QStringLiteral("https://example.org/one.qif"))}));
  EXPECT_TRUE(drop({file}));
  EXPECT_EQ(test.program->app().sheets().Current(), Sheet::ImportOptions);
  // While a sheet is open the window behind it is veiled and takes no other.
  EXPECT_TRUE(test.FindWidget("veil")->isVisible());
  EXPECT_FALSE(drop({file}));
  test.Key(Qt::Key_Escape);
  EXPECT_FALSE(test.FindWidget("veil")->isVisible());
}

TEST(Narrow, WindowKeepsTheTextOfTheCurrentTabAlone) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  auto* tabs = test.Find<QTabBar>("main_TabView");
  EXPECT_EQ(Utf8(tabs->tabText(3)), "Summary");
  const int full = tabs->sizeHint().width();
  tabs->resize(full - 1, tabs->height());
  EXPECT_EQ(Utf8(tabs->tabText(0)), "Entries");
  EXPECT_EQ(Utf8(tabs->tabText(3)), "");
  EXPECT_EQ(Utf8(tabs->tabToolTip(3)), "Summary");
  EXPECT_EQ(Utf8(tabs->accessibleTabName(3)), "Summary");
  tabs->resize(full, tabs->height());
  EXPECT_EQ(Utf8(tabs->tabText(3)), "Summary");
}

TEST(FilterMenu, MarksTheParentOfTheChosenFilterAsWell) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  auto* menu = test.program->window().findChild<QMenu*>(QLatin1String("filter_Menu"));
  const auto marked = [menu] {
    emit menu->aboutToShow();
    QStringList names;
    for (QAction* action : menu->actions()) {
      QString name = action->text().remove(QLatin1Char('&'));
      if (action->isChecked()) names.append(action->menu() != nullptr ? name + u'-' : name);
    }
    return Utf8(names.join(QLatin1Char(' ')));
  };
  EXPECT_EQ(marked(), "General");
  test.program->app().search().Filter_Select(41);
  EXPECT_EQ(marked().back(), '-');
  test.program->app().search().Filter_Select(0);
  EXPECT_EQ(marked(), "General");
}

}  // namespace
}  // namespace tallyfold::desktop
