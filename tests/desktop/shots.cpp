// Pictures of the window in its states, to be looked at: tallyfold_desktop_shots FOLDER [dark].
// Another scale by QT_SCALE_FACTOR, longer texts by a word "long", right to left by "rtl", a style
// of the platform's own by "foreign", only pictures whose names begin so by "only=NAME".

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFontDatabase>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QScrollBar>
#include <QTimer>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "desktop/look/palette_watch.h"
#include "desktop/look/style.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/test_window.h"
#include "desktop/window_panels.h"
#include "filters/register_search.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "platform/progress.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {
namespace {

class Wished final : public ColorScheme {
 public:
  explicit Wished(Wish wish) : wish_(wish) {}
  [[nodiscard]] Wish Current() const override { return wish_; }
  void WhenChanged(std::function<void()>) override {}

 private:
  Wish wish_;
};

constexpr QSize kSize(1280, 832);

// The file of the examples, in its options.
void OpenImport(TestWindow& test) {
  std::ifstream file(TALLYFOLD_EXAMPLES "/household.qif", std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  test.files.AddFile("/home/user/household.qif", content.str());
  test.panels.Answer("/home/user/household.qif");
  static_cast<void>(test.program->app().importCommand().QIFImport());
}

// A table of a bank. With a day above 12 it tells in which order days and months stand.
void OpenTable(TestWindow& test, const std::string& day) {
  test.files.AddFile("/home/user/statement-march.csv",
                     "Seaside Bank;Joint checking\nDate;Payee;Purpose;Reference;Amount;Balance\n"
                     "02/03/26;HARBOUR BOOKS LTD;Pay for March;HB-2026-03;2450.00;5175.58\n" +
                         day +
                         "/03/26;MS OKAFOR;Rent for March;;-890.00;4285.58\n"
                         "04/03/26;CORNER MARKET;Card 4711;;-66.20;4219.38\n"
                         "09/03/26;CAFE BY THE QUAY;Card 4711;;-18.90;4200.48\n");
  test.panels.Answer("/home/user/statement-march.csv");
  static_cast<void>(test.program->app().importCommand().QIFImport());
}

// The window in a state, and the sheet over it where one is open.
void Grab(const QString& folder, const QString& name, const std::string& accounts,
          const std::function<void(TestWindow&)>& prepare) {
  const QStringList only = QApplication::arguments().filter(QLatin1String("only="));
  if (!only.isEmpty() && !name.startsWith(only.first().mid(5))) return;
  TestWindow test(accounts);
  test.ambient.localizer.lengthens = QApplication::arguments().contains(QLatin1String("long"));
  static_cast<void>(test.Launch());
  test.program->window().resize(kSize);
  auto& preferences = test.program->app().desk().preferences();
  preferences.SetAccountsDrawerPreferredEdge(0);
  preferences.SetEntryFontSize(10);
  test.program->window().ShowDrawer();
  test.program->window().ShowLook();
  prepare(test);
  TestWindow::Settle();
  QPixmap picture = test.program->window().grab();
  if (QWidget* sheet = QApplication::activeWindow(); sheet != &test.program->window() && sheet) {
    sheet->grab().save(QDir(folder).filePath(name + QLatin1String("-sheet.png")));
  }
  if (!picture.save(QDir(folder).filePath(name + QLatin1String(".png")))) {
    std::fprintf(stderr, "%s.png could not be written\n", name.toUtf8().constData());
  }
}

// A register that nobody reads from end to end.
void AddEntries(TestWindow& test, int count) {
  LDGRController& app = test.program->app();
  const auto account = app.desk().SelectedAccount();
  Change change(app.ledger());
  EntryList entries;
  for (int i = 0; i < count; ++i) {
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetDate((2000 + i / 4032) * 10000 + (1 + i % 12) * 100 + 1 + i % 28);
    entry->SetAmount(i % 9 == 0 ? 1250.0 : -(i % 977) / 4.0);
    entry->SetDescription("Entry " + std::to_string(i));
    entry->SetNumber(change.NextNumber(account));
    entries.push_back(std::move(entry));
  }
  change.Add(account, entries);
  change.Close();
  app.refresh().ImportEnded();
}

void GrabAll(const QString& folder) {
  const std::string example = ExampleAccounts();
  const auto show = [&folder, &example](const char* name, std::function<void(TestWindow&)> state) {
    Grab(folder, QLatin1String(name), example, state);
  };
  show("entries", [](TestWindow& test) { test.ClickRow("entry_Table", 19); });
  show("reconcile", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->app().reconcileTab().StatementBalance_EndEditing(2791.93);
  });
  show("schedule", [](TestWindow& test) { test.program->app().tabs().Select(Tab::Schedule); });
  show("summary", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    test.program->app().summaries().Select(3);
  });
  show("hundred-thousand", [](TestWindow& test) {
    AddEntries(test, 100'000);
    test.ClickRow("entry_Table", 6);
    test.Find<QAbstractItemView>("entry_Table")->verticalScrollBar()->setValue(1'300'000);
  });
  show("no-account", [](TestWindow& test) {
    const auto account = test.program->app().desk().SelectedAccount();
    account->SetPassword("open");
    test.program->app().selection().Account_Select(account);
    test.program->window().findChild<QAction*>(QLatin1String("Account_Lock"))->trigger();
  });
  show("smallest-open-filter", [](TestWindow& test) {
    test.program->window().resize(test.program->window().minimumSize());
    test.program->app().search().Filter_Select(41);
  });
  show("nothing-matches", [](TestWindow& test) {
    test.Type("Nothing like this");
    test.Wait(std::chrono::seconds(1));
  });
  show("removal", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    test.Key(Qt::Key_Delete);
  });
  show("debit", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_Description_Field");
    test.Type("Week 8");
  });
  show("debit-split-refused", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_CheckNumber_Button");
    test.Find<QLineEdit>("debitSheet_CheckNumber_Field")->clear();
    test.Click("debitSheet_CheckNumber_Field");
    test.Type("-5");
    test.Click("debitSheet_Amount_Field");
    test.Type("50");
    test.Click("debitSheet_Split_Button");
    for (const char* text : {"Lunch", "Inn", "18.60"}) {
      test.Type(text);
      test.Key(Qt::Key_Tab);
    }
    test.Click("debitSheet_OK_Button");
  });
  show("deposit", [](TestWindow& test) { test.program->app().entries().New(EntryKind::Deposit); });
  show("transfer", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Transfer);
    test.Click("transferSheet_Amount_Field");
    test.Type("300");
  });
  show("schedule-sheet", [](TestWindow& test) {
    test.program->app().scheduleSheet().New(EntryKind::Deposit);
    test.Find<QLineEdit>("scheduleSheet_Start_Field")->setText(QStringLiteral("03/31/26"));
    test.Find<QLineEdit>("scheduleSheet_Description_Field")->setText(QStringLiteral("Pay"));
  });
  show("reminder", [](TestWindow& test) {
    static_cast<void>(test.program->app().reminder().Open());
    test.program->app().reminder().scheduleReminderSheet_LookAhead("14");
  });
  show("reminder-folded", [](TestWindow& test) {
    test.ambient.clock.SetLocal({2026, 6, 7, 12, 0, 0});
    static_cast<void>(test.program->app().reminder().Open());
  });
  show("transfer-refused", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Transfer);
    test.Click("transferSheet_Amount_Field");
    test.Type("12x");
    test.Click("transferSheet_OK_Button");
  });
  show("removal-of-half", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    test.Key(Qt::Key_Delete);
    test.Click("entryRemoveConfirm_OK_Button");
  });
  show("about-license", [](TestWindow& test) {
    test.program->app().about().Open();
    test.Settle();
    test.Click("aboutSheet_License_Button");
  });
  show("reminder-refused", [](TestWindow& test) {
    static_cast<void>(test.program->app().reminder().Open());
    test.program->app().reminder().scheduleReminderSheet_LookAhead("400");
    test.Key(Qt::Key_Tab, Qt::ShiftModifier);
    test.FindWidget("scheduleReminderSheet_Table")->setFocus();
    test.Key(Qt::Key_Space);
    test.Type("8x");
    test.Key(Qt::Key_Return);
    test.Click("scheduleReminderSheet_Commit_Button");
  });
  show("schedule-sheet-refused", [](TestWindow& test) {
    test.program->app().scheduleSheet().New(EntryKind::Debit);
    test.Settle();
    test.Find<QLineEdit>("scheduleSheet_Start_Field")->setText(QStringLiteral("05/01/27"));
    test.Click("scheduleSheet_PrecedingFriday_Button");
    test.Click("scheduleSheet_Amount_Field");
    test.Type("12x");
    test.Click("scheduleSheet_OK_Button");
  });
  show("import-options", [](TestWindow& test) { OpenImport(test); });
  show("import-table-asked", [](TestWindow& test) { OpenTable(test, "03"); });
  show("import-table", [](TestWindow& test) { OpenTable(test, "13"); });
  show("import-ofx", [](TestWindow& test) {
    test.files.AddFile("/home/user/bank.ofx",
                       "<OFX><STMTRS><CURDEF>USD<BANKACCTFROM><ACCTID>4711</BANKACCTFROM><STMTTRN>"
                       "<DTPOSTED>20260221<TRNAMT>-248<NAME>GARAGE<MEMO>Tyres</STMTTRN></STMTRS>"
                       "</OFX>");
    test.panels.Answer("/home/user/bank.ofx");
    static_cast<void>(test.program->app().importCommand().QIFImport());
  });
  show("import-table-review", [](TestWindow& test) {
    test.files.AddFile("/home/user/february.csv",
                       "Date,Payee,Purpose,Amount,Balance\n"
                       "2026-02-21,Garage M\xC3\xBCller,Card,-248.00,2791.78\n"
                       "2026-02-25,CORNER MARKET,Card 4711,-66.20,2725.58\n"
                       "2026-03-02,Harbour Books,Pay,2450.00,5175.58\n");
    test.panels.Answer("/home/user/february.csv");
    static_cast<void>(test.program->app().importCommand().QIFImport());
    test.Click("importOptions_OK_Button");
    test.Key(Qt::Key_Down);
    test.Click("importEntry_Match_Button");
  });
  show("import-review", [](TestWindow& test) {
    OpenImport(test);
    test.Click("importOptions_OK_Button");
    test.alerts.Answer("OK");
    test.Click("import_OK_Button");
    OpenImport(test);
    test.Click("importOptions_OK_Button");
    test.Key(Qt::Key_Down);
  });
  show("summary-options", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    test.program->app().summaries().Select(3);
    static_cast<void>(test.program->app().summarySheet().Open());
  });
  show("summary-options-refused", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Summary);
    static_cast<void>(test.program->app().summarySheet().Open());
    test.Find<QLineEdit>("accountSummarySheet_Name_Field")->clear();
    test.Type(" ");
    test.Click("accountSummarySheet_OK_Button");
  });
  show("import-encodings", [](TestWindow& test) {
    test.files.AddFile("/home/user/cafe.qif",
                       "!Type:Bank\nD3/2'26\nT0.00\nPCaf\xE9 by the Quay\n^\n");
    test.panels.Answer("/home/user/cafe.qif");
    static_cast<void>(test.program->app().importCommand().QIFImport());
  });
  show("export", [&folder](TestWindow& test) {
    test.panels.while_up = [&test, &folder] {
      QtFilePanels panels;
      SetUpPanels(panels, test.program->app());
      QTimer::singleShot(0, [&folder] {
        QWidget* panel = TestWindow::FindWidget("file_Panel");
        panel->grab().save(QDir(folder).filePath(QLatin1String("export-panel.png")));
        panel->close();
      });
      static_cast<void>(panels.Save({.title = "Export QIF",
                                     .name = "Tallyfold QIF Export.qif",
                                     .name_label = "Export as:",
                                     .button = "Export",
                                     .accessory = PanelAccessory::QifExport}));
    };
    static_cast<void>(test.program->app().exports().ExportQIF());
  });
  show("updates", [](TestWindow& test) { test.program->app().updates().CheckForUpdates(); });
  show("several-selected", [](TestWindow& test) {
    test.ClickRow("entry_Table", 6);
    for (int i = 0; i < 3; ++i) test.Key(Qt::Key_Down, Qt::ShiftModifier);
  });
  show("refused", [](TestWindow& test) {
    test.ClickRow("entry_Table", 3);
    const auto& desk = test.program->app().desk();
    test.program->app().entryOrders().MoveTo({desk.SelectedEntry()},
                                             desk.accounts()[1]->GetNumber());
  });
  show("drawer-below", [](TestWindow& test) {
    test.program->app().desk().preferences().SetAccountsDrawerPreferredEdge(1);
    test.program->window().ShowDrawer();
  });
  show("find", [](TestWindow& test) {
    test.Key(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    test.Type("Put aside");
    test.Key(Qt::Key_Return);
  });
  show("go-to-date", [](TestWindow& test) { test.Key(Qt::Key_G, Qt::ControlModifier); });
  show("smallest-reconcile", [](TestWindow& test) {
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->window().resize(test.program->window().minimumSize());
  });
  show("smallest", [](TestWindow& test) {
    test.program->window().resize(test.program->window().minimumSize());
  });
  const auto edit_account = [](TestWindow& test, int page) {
    test.program->app().accountSheet().Account_Edit();
    test.Settle();
    test.Find<QListWidget>("accountEditSheet_TabView")->setCurrentRow(page);
  };
  show("account", [&](TestWindow& test) { edit_account(test, 0); });
  show("account-types", [&](TestWindow& test) {
    edit_account(test, 1);
    test.ClickRow("accountEditSheet_Types_Table", 4);
    test.Click("accountEditSheet_Types_Remove_Button");
    test.ClickRow("accountEditSheet_Types_Table", 9);
    test.Click("accountEditSheet_Types_Remove_Button");
    test.ClickRow("accountEditSheet_Types_Table", 5);
  });
  show("account-types-edited", [&](TestWindow& test) {
    edit_account(test, 1);
    test.ClickRow("accountEditSheet_Types_Table", 5);
    test.Click("accountEditSheet_Types_Add_Button");
    test.Key(Qt::Key_Return);
    test.Key(Qt::Key_Right);
    test.Key(Qt::Key_F2);
  });
  show("account-descriptions", [&](TestWindow& test) {
    edit_account(test, 2);
    test.Click("accountEditSheet_Descriptions_Style_2_Button");
    for (const char* text : {"Rent", "Water"}) {
      test.Click("accountEditSheet_Descriptions_Add_Button");
      test.Type(text);
    }
    test.Key(Qt::Key_Return);
  });
  show("account-to-from", [&](TestWindow& test) { edit_account(test, 3); });
  show("account-password-refused", [&](TestWindow& test) {
    edit_account(test, 4);
    test.Click("accountEditSheet_Password_Field");
    test.Type("secret");
    test.Click("accountEditSheet_OK_Button");
  });
  show("account-refused", [&](TestWindow& test) {
    edit_account(test, 0);
    test.Find<QLineEdit>("accountEditSheet_StartingBalance_Field")->clear();
    test.Click("accountEditSheet_StartingBalance_Field");
    test.Type("12x");
    test.Click("accountEditSheet_OK_Button");
  });
  std::optional<LongOperation> operation;
  show("waiting", [&operation](TestWindow& test) {
    operation.emplace(LongWork::Saving, 100);
    test.ambient.clock.Advance(std::chrono::seconds(1));
    LongOperation::Reached(LongWork::Saving, 40);
  });
  operation.reset();
  show("backups", [](TestWindow& test) {
    LDGRController& app = test.program->app();
    test.files.AddFile("/home/user/Library/Tallyfold/Backups/Accounts_2_7_2026_1.0.0", "nothing");
    const auto& account = *app.desk().SelectedAccount();
    for (const int row : {3, 5}) {
      app.desk().SelectEntry(account.GetEntries()[static_cast<std::size_t>(row)]);
      app.entryOrders().Entry_ChangeKind();
    }
    test.ClickRow("entry_Table", 21);
    test.Key(Qt::Key_Delete);
    test.Click("entryRemoveConfirm_OK_Button");
    app.backups().BackUpNow();
    app.backupsSheet().Open();
    test.Wait(std::chrono::seconds(1));
    test.Key(Qt::Key_Down);
    test.Wait(std::chrono::seconds(1));
  });
  show("about", [](TestWindow& test) { test.program->app().about().Open(); });
  show("locked", [](TestWindow& test) {
    test.program->app().applicationLock().setPassword("secret");
    test.program->app().applicationLock().lock();
    test.Type("SECR");
  });
  show("password", [](TestWindow& test) {
    LDGRController& app = test.program->app();
    const auto other = app.desk().accounts()[1];
    other->SetPassword("secret");
    other->setAuthenticated(false);
    app.selection().Account_Select(other);
    test.Type("secret");
  });
  for (int page = 0; page < 9; ++page) {
    const QString name = QLatin1String("preferences-") + QString::number(page);
    Grab(folder, name, ExampleAccounts(), [page](TestWindow& test) {
      static_cast<void>(test.program->app().preferencesSheet().Open());
      test.Settle();
      test.Find<QListWidget>("preferencesSheet_TabView")->setCurrentRow(page);
    });
  }
  for (int chapter = 0; chapter < 8; chapter += 7) {
    const QString name = QLatin1String("help-") + QString::number(chapter);
    Grab(folder, name, example, [chapter](TestWindow& test) {
      test.Key(Qt::Key_F1);
      test.Find<QListWidget>("help_Chapters_List")->setCurrentRow(chapter);
    });
  }
  Grab(folder, QLatin1String("empty"), "",
       [](TestWindow& test) { test.program->app().sheets().CancelOpen(); });
}

}  // namespace
}  // namespace tallyfold::desktop

int main(int argc, char** argv) {
  using namespace tallyfold::desktop;
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2) {
    std::fputs("tallyfold_desktop_shots FOLDER [dark]\n", stderr);
    return 1;
  }
  QApplication::setQuitOnLastWindowClosed(false);
  if (QFontDatabase::hasFamily(QLatin1String("Inter"))) {
    QApplication::setFont(QFont(QLatin1String("Inter"), 10));
  }
  const bool is_dark = arguments.contains(QLatin1String("dark"));
  const PaletteWatch palette(
      std::make_unique<Wished>(is_dark ? ColorScheme::Wish::Dark : ColorScheme::Wish::Light));
  if (arguments.contains(QLatin1String("foreign")))
    QApplication::setStyle(QLatin1String("windows"));
  if (arguments.contains(QLatin1String("rtl"))) {
    QApplication::setLayoutDirection(Qt::RightToLeft);
  }
  InstallStyle(application);
  QDir().mkpath(arguments[1]);
  GrabAll(arguments[1]);
  return 0;
}
