#include "desktop/shots_exchange.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTimer>
#include <fstream>
#include <functional>
#include <sstream>

#include "app/controller.h"
#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_command.h"
#include "app/face/refresh.h"
#include "app/shell/tabs.h"
#include "desktop/print/qt_printers.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/window_panels.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
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

}  // namespace

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

void ShowExchange(const ShowState& show, const PanelTaker& take_panel) {
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
}

}  // namespace tallyfold::desktop
