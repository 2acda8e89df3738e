#include "desktop/shots.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <fstream>
#include <functional>
#include <optional>
#include <sstream>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
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
#include "desktop/print/qt_printers.h"
#include "desktop/services/qt_alerts.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/tool_bars.h"
#include "desktop/window_panels.h"
#include "filters/register_search.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "platform/progress.h"
#include "storage/preferences.h"
#include "summaries/account_summary.h"

namespace tallyfold::desktop {
namespace {

// The file of the examples, in its options.
void OpenImport(TestWindow& test) {
  std::ifstream file(TALLYFOLD_EXAMPLES "/household.qif", std::ios::binary);
  std::ostringstream content;
  content << file.rdbuf();
  test.files.AddFile("/home/user/household.qif", content.str());
  test.panels.Answer("/home/user/household.qif");
  static_cast<void>(test.program->app().importCommand().QIFImport());
}

void OpenStatement(TestWindow& test, const std::string& path, const std::string& bytes) {
  test.files.AddFile(path, bytes);
  test.panels.Answer(path);
  static_cast<void>(test.program->app().importCommand().QIFImport());
}

// A table of a bank. With a day above 12 it tells in which order days and months stand.
void OpenTable(TestWindow& test, const std::string& day) {
  OpenStatement(test, "/home/user/statement-march.csv",
                "Seaside Bank;Joint checking\nDate;Payee;Purpose;Reference;Amount;Balance\n"
                "02/03/26;HARBOUR BOOKS LTD;Pay for March;HB-2026-03;2450.00;5175.58\n" +
                    day +
                    "/03/26;MS OKAFOR;Rent for March;;-890.00;4285.58\n"
                    "04/03/26;CORNER MARKET;Card 4711;;-66.20;4219.38\n"
                    "09/03/26;CAFE BY THE QUAY;Card 4711;;-18.90;4200.48\n");
}

// Several questions, hundreds of lines that are no entries, and long texts.
std::string OddTable() {
  std::string text;
  for (int i = 0; i < 40; ++i) text += "Seaside Savings and Loan Association of the Coast\n";
  text += "Date;Payee;Purpose;Reference of the bank;Amount;Fee;Balance of the account\n";
  for (int i = 1; i < 9; ++i) {
    const std::string number = std::to_string(i);
    text += "0" + number +
            "/03/26;The Worshipful Company of Harbour Booksellers and Chart Makers;Pay for March, "
            "with what was left open of February;HB-2026-03-" +
            number + ";2." + number + "00;0.25;\n";
    for (int j = 0; j < 30; ++j) text += "Balance;;;;;;4285.58\n";
  }
  return text;
}

constexpr const char* kDisagreeingTable =
    "Date,Payee,Purpose,Amount,Balance\n2026-02-21,Garage,Card,-248.00,2791.78\n"
    "2026-02-25,CORNER MARKET,Card 4711,-66.20,2725.58\n"
    "2026-03-02,Harbour Books,Pay,2450.00,5175.59\nTotal,,,2135.80,\n";

constexpr const char* kCamt =
    "<Document xmlns=\"urn:iso:std:iso:20022:tech:xsd:camt.053.001.02\"><BkToCstmrStmt><Stmt><Acct>"
    "<Id><IBAN>DE00123456780000004711</IBAN></Id><Ccy>EUR</Ccy></Acct><Ntry><Amt Ccy=\"EUR\">12.50"
    "</Amt><CdtDbtInd>DBIT</CdtDbtInd><Sts>BOOK</Sts><BookgDt><Dt>2026-03-04</Dt></BookgDt>"
    "<NtryDtls><TxDtls><RltdPties><Cdtr><Nm>Corner Market</Nm></Cdtr></RltdPties><RmtInf><Ustrd>"
    "Bread and fish</Ustrd></RmtInf></TxDtls></NtryDtls></Ntry><Ntry><Amt Ccy=\"EUR\">12.50</Amt>"
    "<CdtDbtInd>CRDT</CdtDbtInd><RvslInd>true</RvslInd><Sts>BOOK</Sts><BookgDt><Dt>2026-03-05</Dt>"
    "</BookgDt></Ntry></Stmt></BkToCstmrStmt></Document>";

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

}  // namespace

void ForEachShot(const ShotTaker& take, const PanelTaker& take_panel) {
  const std::string example = ExampleAccounts();
  const auto show = [&take, &example](const char* name,
                                      const std::function<void(TestWindow&)>& state) {
    take(QLatin1String(name), example, state);
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
  show("import-table-odd", [](TestWindow& test) {
    OpenStatement(test, "/home/user/a-statement-with-a-long-name.csv", OddTable());
  });
  show("import-table-disagrees",
       [](TestWindow& test) { OpenStatement(test, "/home/user/february.csv", kDisagreeingTable); });
  show("import-camt", [](TestWindow& test) { OpenStatement(test, "/home/user/march.xml", kCamt); });
  show("import-ofx", [](TestWindow& test) {
    OpenStatement(test, "/home/user/bank.ofx",
                  "<OFX><STMTRS><CURDEF>USD<BANKACCTFROM><ACCTID>4711</BANKACCTFROM><STMTTRN>"
                  "<DTPOSTED>20260221<TRNAMT>-248<NAME>GARAGE<MEMO>Tyres</STMTTRN></STMTRS>"
                  "</OFX>");
  });
  show("import-table-review", [](TestWindow& test) {
    test.program->app().desk().SelectedAccount()->GetEntries()[18]->SetAmount(-66.20);
    test.program->app().desk().SelectedAccount()->GetEntries()[18]->SetDate(20260222);
    OpenStatement(test, "/home/user/february.csv",
                  "Date,Payee,Purpose,Amount,Balance\n"
                  "2026-02-21,Garage M\xC3\xBCller,Card,-248.00,2791.78\n"
                  "2026-02-25,CORNER MARKET,Card 4711,-66.20,2725.58\n"
                  "2026-03-02,Harbour Books,Pay,2450.00,5175.58\n");
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
  show("export", [&take_panel](TestWindow& test) {
    test.panels.while_up = [&test, &take_panel] {
      QtFilePanels panels;
      SetUpPanels(panels, test.program->app());
      QTimer::singleShot(0, [&take_panel] {
        QWidget* panel = TestWindow::FindWidget("file_Panel");
        take_panel(QLatin1String("export-panel"), *panel);
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
  const auto print = [&show](const char* name, const std::function<void(TestWindow&)>& state,
                             const std::function<void(TestWindow&)>& choose = nullptr) {
    show(name, [state, choose](TestWindow& test) {
      state(test);
      test.Settle();
      test.Key(Qt::Key_P, Qt::ControlModifier);
      if (choose) choose(test);
    });
  };
  const auto on_tab = [](Tab tab) {
    return [tab](TestWindow& test) { test.program->app().tabs().Select(tab); };
  };
  const auto with = [](const char* pop_up, int choice) {
    return [pop_up, choice](TestWindow& test) {
      test.Find<QComboBox>(pop_up)->setCurrentIndex(choice);
    };
  };
  print(
      "print", [](TestWindow& test) { test.ClickRow("entry_Table", 19); },
      [](TestWindow& test) {
        test.Find<QCheckBox>("printSheet_Splits_CheckBox")->setChecked(true);
        test.Find<QCheckBox>("printSheet_Notes_CheckBox")->setChecked(true);
      });
  print(
      "print-landscape", [](TestWindow& test) { AddEntries(test, 60); },
      with("printSheet_Orientation_PopUp", 2));
  print("print-empty", [](TestWindow& test) {
    test.Type("Nothing like this");
    test.Wait(std::chrono::seconds(1));
  });
  show("print-dialog", [&take_panel](TestWindow& test) {
    QtPrinters().Choose({"Register"_q, {595, 842}, 9}, &test.program->window(), [](QPrinter&) {});
    QWidget* dialog = TestWindow::FindWidget("print_Dialog");
    for (auto* button : dialog->findChildren<QPushButton*>()) {
      if (button->text().contains(QLatin1String("Options"))) button->click();
    }
    TestWindow::Settle();
    take_panel(QLatin1String("print-dialog-options"), *dialog);
    dialog->close();
  });
  print("print-long", [](TestWindow& test) {
    const auto& entries = test.program->app().desk().SelectedAccount()->GetEntries();
    for (const std::size_t i : {3U, 5U, 8U}) {
      entries[i]->SetDescription(
          "A description that is a good deal longer than any column could be");
      entries[i]->SetToFrom("The joint workshops of the harbour, the town and its neighbours");
      entries[i]->SetAmount(-12'345'678.9 * static_cast<double>(i));
    }
  });
  print(
      "print-too-narrow",
      [](TestWindow& test) {
        test.ambient.locale.short_date_format = "%A, the %d of %B in the year of %Y %A %A %A";
      },
      with("printSheet_Paper_PopUp", 5));
  print("print-reconcile", on_tab(Tab::Reconcile));
  print("print-schedule", on_tab(Tab::Schedule));
  print("print-summary", on_tab(Tab::Summary), with("printSheet_Zoom_PopUp", 1));
  print("print-summary-bars", [](TestWindow& test) {
    auto& summary = *test.program->app().desk().SelectedAccount()->selectedAccountSummary();
    summary.setShowStyle(1);
    summary.setSubtotalPeriodStyle(1);
    test.program->app().tabs().Select(Tab::Summary);
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
  show("narrow-reconcile", [](TestWindow& test) {
    test.program->app().desk().preferences().SetAccountsDrawerWidth(450);
    test.program->window().resize(900, 600);
    test.program->app().tabs().Select(Tab::Reconcile);
    test.program->app().accountsDrawer().ToggleAccountsDrawer();
    test.program->app().accountsDrawer().ToggleAccountsDrawer();
    TestWindow::Settle();
  });
  show("narrow-tools",
       [](TestWindow& test) { test.program->window().pieces().tools->setFixedWidth(480); });
  show("late-schedule", [](TestWindow& test) {
    test.ambient.clock.Advance(std::chrono::hours(24 * 8));
    test.program->app().refresh().DayChanged();
    test.program->app().tabs().Select(Tab::Schedule);
    test.ClickRow("schedule_Table", 1);
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
    take(name, example, [page](TestWindow& test) {
      static_cast<void>(test.program->app().preferencesSheet().Open());
      test.Settle();
      test.Find<QListWidget>("preferencesSheet_TabView")->setCurrentRow(page);
    });
  }
  for (int chapter = 0; chapter < 9; chapter += 8) {
    const QString name = QLatin1String("help-") + QString::number(chapter);
    take(name, example, [chapter](TestWindow& test) {
      test.Key(Qt::Key_F1);
      test.Find<QListWidget>("help_Chapters_List")->setCurrentRow(chapter);
    });
  }
  show("preferences-color", [](TestWindow& test) {
    static_cast<void>(test.program->app().preferencesSheet().Open());
    test.Settle();
    test.Find<QListWidget>("preferencesSheet_TabView")->setCurrentRow(2);
    test.Click("preferencesSheet_debitColor");
  });
  show("calendar", [](TestWindow& test) {
    test.program->app().entries().New(EntryKind::Debit);
    test.Click("debitSheet_Date_Field");
    test.Key(Qt::Key_Down, Qt::AltModifier);
  });
  show("alert", [&take_panel](TestWindow&) {
    QtAlerts alerts;
    QTimer::singleShot(0, [&take_panel] {
      QWidget* box = TestWindow::FindWidget("alert");
      take_panel(QLatin1String("alert-panel"), *box);
      box->close();
    });
    static_cast<void>(alerts.Run({.title = "A file of this name is there already.",
                                  .message = "Whatever it holds is lost.",
                                  .buttons = {"Replace", "Cancel"}}));
  });
  take(QLatin1String("empty"), "",
       [](TestWindow& test) { test.program->app().sheets().CancelOpen(); });
}

}  // namespace tallyfold::desktop
