#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QTableView>
#include <QTimer>
#include <QUrl>
#include <fstream>
#include <sstream>

#include "app/desk.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/sheet_slot.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/sheets/export_rows.h"
#include "desktop/test_window.h"
#include "desktop/texts.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

class Exchange : public testing::Test {
 protected:
  Exchange() : test(ExampleAccounts()) {
    EXPECT_TRUE(test.Launch());
    std::ifstream file(TALLYFOLD_EXAMPLES "/household.qif", std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    test.files.AddFile(kFile, content.str());
  }

  void Order(const char* command) {
    auto* action = test.program->window().findChild<QAction*>(QLatin1String(command));
    ASSERT_NE(action, nullptr) << command;
    action->trigger();
    TestWindow::Settle();
  }
  void Import() {
    test.panels.Answer(kFile);
    Order("QIFImport");
  }
  static int Chosen(const char* pop_up) {
    return TestWindow::Find<QComboBox>(pop_up)->currentIndex();
  }
  static QString TitleOf(const char* button) {
    return TestWindow::Find<QAbstractButton>(button)->text();
  }
  [[nodiscard]] LDGRController& app() { return test.program->app(); }

  static constexpr const char* kFile = "/home/user/household.qif";
  TestWindow test;
};

TEST_F(Exchange, OptionsProveWhatTheyMakeOfTheFileAndKeepThreeDestinationsApart) {
  Import();
  EXPECT_EQ(test.TextOf("importOptions_Title"), "Importing From:  household.qif"_q);
  EXPECT_EQ(test.FocusName(), "importOptions_Account_PopUp"_q);
  EXPECT_EQ(test.Rows("importOptions_Formats_Table"), 12);
  EXPECT_EQ(test.Row("importOptions_Formats_Table", 0), "MM/DD/YY|6|03/02/26|03/31/26|fits"_q);
  EXPECT_EQ(test.Row("importOptions_Formats_Table", 4), "DD/MM/YY|5|02/03/26|12/03/26|"_q);
  EXPECT_EQ(test.Row("importOptions_Proof_Table", 1),
            "03/02/26|Check|Rent for March|Ms Okafor|-$890.00"_q);
  EXPECT_EQ(TitleOf("importOptions_OK_Button"), "Review 5 Entries"_q);

  test.Find<QComboBox>("importOptions_SwapToFrom_PopUp")->setCurrentIndex(2);
  EXPECT_EQ(Chosen("importOptions_SwapToFrom_PopUp"), 2);
  EXPECT_EQ(Chosen("importOptions_SwapDescription_PopUp"), 1);
  EXPECT_EQ(Chosen("importOptions_SwapType_PopUp"), 0);

  test.Key(Qt::Key_Escape);
  EXPECT_FALSE(app().sharedQIFImportController().IsRunning());
  EXPECT_EQ(test.Rows("entry_Table"), 23);
}

TEST_F(Exchange, AFileWithoutEntriesSaysWhyAndItsTypesComeInAllTheSame) {
  const std::pair<const char*, QString> files[] = {
      {"", "The file is empty; download it again"_q},
      {"!Type:Bank\n", "There are no entries here: nothing to review."_q},
      {"!Type:Cat\nNGroceries\nE\n^\nNPets\nE\n^\n",
       "There are no entries here, but 1 type that is new to the account."_q}};
  for (const auto& [content, facts] : files) {
    test.files.AddFile(kFile, content);
    Import();
    EXPECT_EQ(test.TextOf("importOptions_Facts"), facts);
    if (&content == &std::rbegin(files)->first) break;
    EXPECT_FALSE(test.FindWidget("importOptions_OK_Button")->isEnabled());
    test.Key(Qt::Key_Escape);
  }
  test.Key(Qt::Key_Return);
  EXPECT_TRUE(test.TextOf("import_Facts").endsWith(": 1"_q));
  test.Click("import_OK_Button");
  EXPECT_NE(app().desk().SelectedAccount()->DebitEntryTypeForName("Pets"), nullptr);
}

TEST_F(Exchange, ReviewedEntriesComeInAfterAQuestionAndAreKnownWhenTheyComeAgain) {
  Import();
  test.Key(Qt::Key_Return);
  ASSERT_EQ(test.Rows("import_Table"), 5);
  EXPECT_EQ(test.FocusName(), "import_Table"_q);
  EXPECT_EQ(test.TextOf("importTotal_Field"), "$1,176.95"_q);
  test.ClickRow("import_Table", 4);  // its mark
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 4 Entries"_q);
  EXPECT_EQ(test.TextOf("importTotal_Field"), "$1,476.95"_q);
  test.Key(Qt::Key_Space);
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 3 Entries"_q);
  test.Click("import_GoBack_Button");
  test.Click("importOptions_OK_Button");
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 5 Entries"_q);

  test.Key(Qt::Key_Down);
  test.Key(Qt::Key_Return);
  EXPECT_EQ(app().sheets().Current(), Sheet::Debit);
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
  EXPECT_EQ(QApplication::activeWindow()->objectName(), "import_Window"_q);
  test.Key(Qt::Key_Delete);
  EXPECT_EQ(test.Rows("import_Table"), 4);

  test.alerts.Answer("Cancel");
  test.Click("import_OK_Button");
  EXPECT_EQ(test.Rows("entry_Table"), 23);
  test.alerts.Answer("OK");
  test.Click("import_OK_Button");
  EXPECT_EQ(test.Rows("entry_Table"), 27);
  EXPECT_EQ(test.alerts.Requests().size(), 2U);

  Import();
  test.Click("importOptions_OK_Button");
  EXPECT_EQ(TitleOf("import_Repeats_Button"), "4 repeat an entry"_q);
  EXPECT_EQ(test.TextOf("import_Match_Field"), "Repeats the entry of 03/02/26"_q);
  EXPECT_TRUE(test.Row("import_Table", 0).endsWith("|Repeats"_q))
      << ToUtf8(test.Row("import_Table", 0));
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 1 Entry"_q);
  // The rows of a chip are selected, and all of them are acted on.
  test.Click("import_Repeats_Button");
  test.Find<QWidget>("import_Table")->setFocus();
  test.Key(Qt::Key_Space);
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 5 Entries"_q);
  test.Click("importEntry_Remove_Button");
  EXPECT_EQ(test.Rows("import_Table"), 1);
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(test.Rows("entry_Table"), 27);
}

TEST_F(Exchange, ATableOfABankIsAskedAboutReviewedMatchedAndCommittedInOneStep) {
  test.files.AddFile("/home/user/march.csv",
                     "Date;Who;Payee;Amount;Balance\n02/03/26;Pay;Harbour Books;2450.00;5175.58\n"
                     "03/03/26;Rent;Ms Okafor;-890.00;4285.58\n"
                     "04/03/26;Card;Corner Market;-66.20;4219.38\n");
  test.panels.Answer("/home/user/march.csv");
  Order("QIFImport");
  EXPECT_EQ(test.TextOf("importOptions_Title"), "Importing From:  march.csv"_q);
  EXPECT_EQ(test.FocusName(), "importOptions_Account_PopUp"_q);
  EXPECT_FALSE(test.Find<QAbstractButton>("importOptions_OK_Button")->isEnabled());
  EXPECT_EQ(Chosen("importOptions_DayOrder_PopUp"), -1);
  EXPECT_FALSE(test.Find<QComboBox>("importOptions_Fees_PopUp")->isVisible());
  EXPECT_EQ(TitleOf("importOptions_Answer_Button_1"), "Month, Day, Year: 2026-02-03"_q);
  test.Click("importOptions_Answer_Button_1");
  EXPECT_FALSE(test.FindWidget("importOptions_Question")->isVisible());
  EXPECT_EQ(test.TextOf("importOptions_Balances"), "All 3 balances agree with the amounts."_q);
  EXPECT_EQ(test.Row("importOptions_Proof_Table", 0), "02/03/26|Salary||Harbour Books|$2,450.00"_q);
  // The wrong answer, and a column that no heading tells.
  test.Find<QComboBox>("importOptions_DayOrder_PopUp")->setCurrentIndex(0);
  test.Find<QComboBox>("importOptions_Column_PopUp_1")->setCurrentIndex(11);
  EXPECT_EQ(test.Row("importOptions_Proof_Table", 0),
            "03/02/26|Salary|Pay|Harbour Books|$2,450.00"_q);
  test.Find<QComboBox>("importOptions_Column_PopUp_3")->setCurrentIndex(0);
  EXPECT_FALSE(test.Find<QAbstractButton>("importOptions_OK_Button")->isEnabled());
  test.Find<QComboBox>("importOptions_Column_PopUp_3")->setCurrentIndex(3);
  test.Click("importOptions_OK_Button");

  ASSERT_EQ(test.Rows("import_Table"), 3);
  EXPECT_FALSE(test.Find<QAbstractButton>("importEntry_Match_Button")->isEnabled());
  test.Click("import_GoBack_Button");
  app().desk().SelectedAccount()->GetEntries().back()->SetDate(20260303);
  test.Click("importOptions_OK_Button");
  test.Key(Qt::Key_End);
  test.Click("importEntry_Match_Button");
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 2, Match 1"_q);
  EXPECT_EQ(test.TextOf("import_Match_Field"), "Matched with the entry of 03/03/26"_q);
  EXPECT_TRUE(test.Row("import_Table", 2).endsWith("|Matched"_q));
  test.Click("import_Balance_CheckBox");
  test.alerts.Answer("OK");
  test.Click("import_OK_Button");
  const auto account = app().desk().SelectedAccount();
  EXPECT_EQ(account->GetEntries().size(), 25U);
  EXPECT_TRUE(account->GetEntries()[22]->GetCleared());
  EXPECT_EQ(account->statementBalance(), 4219.38);
  Order("Undo");
  EXPECT_EQ(account->GetEntries().size(), 23U);
  EXPECT_FALSE(account->GetEntries()[22]->GetCleared());
  EXPECT_EQ(account->statementBalance(), 0.0);

  // Its headings are known; and what cannot be read says so.
  test.panels.Answer("/home/user/march.csv");
  Order("QIFImport");
  EXPECT_EQ(TitleOf("importOptions_OK_Button"), "Review 3 Entries"_q);
  EXPECT_TRUE(test.Find<QAbstractButton>("importOptions_OK_Button")->isEnabled());
  test.Key(Qt::Key_Escape);
  test.files.AddFile("/home/user/print.csv", "%PDF-1.4");
  test.panels.Answer("/home/user/print.csv");
  test.alerts.Answer("OK");
  Order("QIFImport");
  EXPECT_TRUE(test.alerts.Requests().back().message.starts_with("the file is a printed statement"));
  EXPECT_FALSE(app().sharedQIFImportController().IsRunning());
}

// What is dragged onto the window and let go there.
void Drop(QWidget& window, const QString& path) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(path)});
  QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  TestWindow::Settle();
}

TEST_F(Exchange, AnOddTableDroppedOnTheWindowAsksAllAtOnceAndIsMatchedWithAChosenEntry) {
  test.files.AddFile("/home/user/odd.csv",
                     "Bank;;;;\nDate;Payee;Purpose;Amount;Fee\n01/03/26;Quay;Tea;2.100;0.25\n"
                     "02/03/26;Quay;Tea;2.100;0.25\n03/03/26;Quay;Tea;2.100;0.25\n"
                     "04/03/26;Quay;Tea;2.100;0.25\n05/03/26;Quay;Tea;2.100;0.25\n"
                     "soon;Roof;;much;\n06/03/26;Quay;Tea;66.20;0\nTotal;;;76.70;\n");
  Drop(test.program->window(), "/home/user/odd.csv"_q);
  EXPECT_EQ(test.TextOf("importOptions_Title"), "Importing From:  odd.csv"_q);
  EXPECT_EQ(test.Rows("importOptions_Lines_Table"), 10);
  EXPECT_EQ(test.Row("importOptions_Lines_Table", 1), "2|Date|Payee|Purpose|Amount|Fee|headings"_q);
  EXPECT_EQ(test.Row("importOptions_Lines_Table", 2), "3|01/03/26|Quay|Tea|2.100|0.25|"_q);
  // The last first: the others stay where they are.
  test.Click("importOptions_Question_2_Answer_Button_1");
  EXPECT_FALSE(test.FindWidget("importOptions_Question_2")->isVisible());
  test.Click("importOptions_Question_1_Answer_Button_0");
  EXPECT_FALSE(test.Find<QAbstractButton>("importOptions_OK_Button")->isEnabled());
  test.Click("importOptions_Answer_Button_0");
  const QString left_out[] = {"1|Bank|||||before the first entry"_q,
                              "8|soon|Roof||much||neither day nor amount can be read"_q,
                              "10|Total|||76.70||names a balance or a sum"_q};
  EXPECT_EQ(TitleOf("importOptions_LeftOut_Button"), "3 lines are no entries"_q);
  for (const int each : {0, 1, 2, 0}) {
    test.Click("importOptions_LeftOut_Button");
    EXPECT_EQ(test.Row("importOptions_Lines_Table",
                       test.Find<QTableView>("importOptions_Lines_Table")->currentIndex().row()),
              left_out[each]);
  }
  const auto& entries = app().desk().SelectedAccount()->GetEntries();
  entries[21]->SetAmount(-66.20);
  entries[21]->SetDate(20260303);
  entries[22]->SetDate(20260305);
  test.Click("importOptions_OK_Button");

  auto* matches = test.Find<QComboBox>("import_Match_PopUp");
  EXPECT_FALSE(matches->isVisible());
  test.ClickHeader("import_Table", 8);
  test.ClickHeader("import_Table", 8);
  EXPECT_TRUE(test.Row("import_Table", 0).endsWith("|May repeat"_q));
  test.Key(Qt::Key_Home);
  ASSERT_TRUE(matches->isVisible());
  EXPECT_EQ(matches->currentText(), "03/05/26, Corner Market"_q);
  emit matches->activated(1);
  EXPECT_EQ(test.TextOf("import_Match_Field"), "Matched with the entry of 03/03/26"_q);
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 5, Match 1"_q);
  test.Click("importEntry_Match_Button");
  EXPECT_EQ(TitleOf("import_OK_Button"), "Import 6 Entries"_q);
}

TEST_F(Exchange, BalancesThatDoNotAgreeSelectTheirRows) {
  test.files.AddFile("/home/user/gap.csv",
                     "Date;Payee;Amount;Balance\n2026-03-12;Quay;-1.00;99.00\n"
                     "2026-03-13;Roof;-2.00;96.00\n2026-03-14;Tea;-3.00;93.00\n");
  Drop(test.program->window(), "/home/user/gap.csv"_q);
  test.Click("importOptions_OK_Button");
  EXPECT_EQ(TitleOf("import_Balances_Button"), "1 balance does not agree"_q);
  test.Click("import_Balances_Button");
  const auto entry = app().sharedQIFImportController().tableDataSource().GetSelectedEntry();
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->GetToFrom(), "Roof");
}

TEST_F(Exchange, OffersToLinkWhatCameInWithItsOtherHalf) {
  const auto half = std::make_shared<LDGRAccountEntry>();
  half->SetNumber(900);
  half->SetIsDeposit(true);
  half->SetAmount(41.5);
  half->SetDate(20260220);
  app().desk().accounts()[1]->AddEntry(half);
  test.files.AddFile("/home/user/half.qif", "!Type:Bank\nD2/21'26\nT-41.50\nPMoved\n^\n");
  const auto import = [this] {
    test.panels.Answer("/home/user/half.qif");
    Order("QIFImport");
    test.Click("importOptions_OK_Button");
    test.alerts.Answer("OK");
    test.Click("import_OK_Button");
  };
  import();
  const QString offer = test.TextOf("notice_Label");
  EXPECT_FALSE(offer.isEmpty());
  EXPECT_EQ(TitleOf("notice_Button"), "Link"_q);
  test.Click("notice_Button");
  EXPECT_TRUE(half->IsTransfer());
  EXPECT_TRUE(app().desk().SelectedAccount()->GetEntries().back()->IsTransfer());
  Order("Undo");
  EXPECT_FALSE(half->IsTransfer());
  EXPECT_EQ(test.Rows("entry_Table"), 24) << "it came in by a step of its own";
  Order("Undo");
  EXPECT_EQ(test.Rows("entry_Table"), 23);
  // It can be turned down.
  import();
  EXPECT_EQ(test.TextOf("notice_Label"), offer);
  test.Click("notice_Close_Button");
  EXPECT_NE(test.TextOf("notice_Label"), offer);
  EXPECT_FALSE(half->IsTransfer());
}

TEST_F(Exchange, RowsOfTheExportPanelChooseWhatIsWritten) {
  constexpr const char* kTarget = "/home/user/out.qif";
  auto& rows = app().exports().sharedQIFExportAccessoryView();
  test.panels.while_up = [this, &rows] {
    LDGRAccount& savings = *app().desk().accounts()[1];
    savings.SetPassword("secret");
    savings.setAuthenticated(false);
    rows.populateExportAccountsButton(&app().desk().accounts());
    const std::unique_ptr<QWidget> panel(MakeQifExportRows(rows, nullptr));
    auto* scope = panel->findChild<QComboBox*>("exportAccounts_PopUp"_q);
    ASSERT_EQ(scope->count(), 7);
    EXPECT_EQ(scope->itemText(3), "Savings (Locked)"_q);
    EXPECT_FALSE(scope->model()->flags(scope->model()->index(3, 0)).testFlag(Qt::ItemIsEnabled));
    scope->setCurrentIndex(4);
    panel->findChild<QComboBox*>("exportDateFormat_PopUp"_q)->setCurrentIndex(11);
    savings.SetPassword("");
  };
  test.panels.Answer(kTarget);
  Order("ExportQIF");
  const std::string written = test.files.Content(kTarget).value_or("");
  EXPECT_NE(written.find("NCash\n"), std::string::npos);
  EXPECT_EQ(written.find("NJoint checking\n"), std::string::npos);
  EXPECT_NE(written.find("D2026/01/"), std::string::npos);
}

// Refuses the first name.
class Refusing final : public FileNameCheck {
 public:
  std::optional<std::string> userEnteredFilename(const std::string&, const std::string& name,
                                                 bool) override {
    return ++asked == 1 ? std::nullopt : std::optional(name);
  }
  int asked = 0;
};

TEST_F(Exchange, APanelStaysOpenUntilItsNameIsTaken) {
  QtFilePanels panels;
  Refusing check;
  QTimer::singleShot(0, [&check] {
    auto* panel = TestWindow::Find<QFileDialog>("file_Panel");
    EXPECT_EQ(panel->windowTitle(), "Export QIF"_q);
    EXPECT_EQ(panel->labelText(QFileDialog::FileName), "Export as:"_q);
    EXPECT_EQ(panel->findChild<QLineEdit*>("fileNameEdit"_q)->text(), "Here - There.qif"_q);
    QMetaObject::invokeMethod(panel, "accept");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(check.asked, 1);
    QMetaObject::invokeMethod(panel, "accept");
  });
  const auto path = panels.Save({.title = "Export QIF",
                                 .name = "Here / There.qif",
                                 .name_label = "Export as:",
                                 .button = "Export",
                                 .check = &check});
  ASSERT_TRUE(path.has_value());
  EXPECT_TRUE(path->ends_with("/Here - There.qif")) << *path;
}

}  // namespace
}  // namespace tallyfold::desktop
