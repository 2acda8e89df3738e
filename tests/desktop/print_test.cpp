#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QLabel>
#include <QPrinter>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <utility>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/shell/print_sheet.h"
#include "app/shell/tabs.h"
#include "desktop/print/printers.h"
#include "desktop/test_window.h"
#include "desktop/texts.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

constexpr const char* kFile = "/home/user/pages.pdf";

// A printer that writes a file, once it has been chosen as a test wants it.
class FakePrinters final : public Printers {
 public:
  [[nodiscard]] bool HasAny() override { return true; }
  void Choose(const PrintJob& job, QWidget*, std::function<void(QPrinter&)> print) override {
    QPrinter printer;
    printer.setOutputFileName(path);
    printer.setDocName(job.title);
    if (last > 0) {
      printer.setPrintRange(QPrinter::PageRange);
      printer.setFromTo(first, last);
    }
    print(printer);
  }

  QString path;
  int first = 0;
  int last = 0;
};

// As it is read out of a file, with a line for each line of the pages.
std::optional<QString> TextOf([[maybe_unused]] const QByteArray& pdf) {
#ifdef TALLYFOLD_PDFTOTEXT
  QProcess reader;
  reader.start(QStringLiteral(TALLYFOLD_PDFTOTEXT),
               {QStringLiteral("-layout"), QStringLiteral("-"), QStringLiteral("-")});
  reader.write(pdf);
  reader.closeWriteChannel();
  if (!reader.waitForFinished()) return std::nullopt;
  return QString::fromUtf8(reader.readAllStandardOutput());
#else
  return std::nullopt;
#endif
}

struct PrintedWindow : TestWindow {
  PrintedWindow() : TestWindow(ExampleAccounts()) {
    EXPECT_TRUE(Launch());
    auto own = std::make_unique<FakePrinters>();
    printers = own.get();
    program->window().SetPrinters(std::move(own));
  }

  [[nodiscard]] PrintSheet& sheet() { return program->app().printSheet(); }
  void Open(Tab tab = Tab::Entry) {
    program->app().tabs().Select(tab);
    Settle();
    Key(Qt::Key_P, Qt::ControlModifier);
    Settle();
  }
  void Choose(const char* pop_up, const char* title) {
    auto* choices = Find<QComboBox>(pop_up);
    choices->setCurrentIndex(choices->findText(QLatin1String(title)));
    Settle();
  }
  [[nodiscard]] QByteArray Saved() {
    panels.Answer(kFile);
    Click("printSheet_SaveAsPDF_Button");
    files.StopFailing();
    const auto file = files.Read(kFile);
    return file ? QByteArray(file->view().data(), static_cast<qsizetype>(file->view().size()))
                : QByteArray();
  }

  FakePrinters* printers = nullptr;
};

TEST(PrintedPdf, HasTheTextOfWhatTheTabShows) {
  const struct {
    Tab tab;
    const char* table;  // whose rows are all on the pages, each cell whole; null for none
    std::vector<QString> more;
    const char* title;
  } cases[] = {
      {Tab::Entry,
       "entry_Table",
       {"Closing balance, 23 entries"_q, "Light bulbs"_q, "−$61.35"_q, "Second visit in April."_q},
       "Register of Joint checking"},
      {Tab::Reconcile,
       nullptr,
       {"Unresolved Entries"_q, "−$132.55"_q, "02/24/26"_q},
       "Reconcile report of Joint checking"},
      {Tab::Schedule,
       "schedule_Table",
       {"4 scheduled entries"_q},
       "Scheduled entries of Joint checking"},
      {Tab::Summary,
       nullptr,
       {"By Type"_q, "58.2%"_q, "01/02/26 – 02/24/26"_q},
       "Summary of Joint checking"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.title);
    PrintedWindow test;
    test.program->app().tabs().Select(c.tab);
    test.Settle();
    std::vector<QStringList> rows;
    for (int row = 0; c.table != nullptr && row < test.Rows(c.table); ++row) {
      rows.push_back(test.Row(c.table, row).split(QLatin1Char('|'), Qt::SkipEmptyParts));
    }
    test.Open(c.tab);
    ASSERT_EQ(test.program->app().sheets().Current(), Sheet::Print);
    EXPECT_EQ(test.TextOf("printSheet_Heading"), QLatin1String(c.title));
    for (const char* mark : {"printSheet_Splits_CheckBox", "printSheet_Notes_CheckBox"}) {
      if (c.tab == Tab::Entry) test.Click(mark);
    }
    const QByteArray pdf = test.Saved();
    EXPECT_EQ(test.program->app().sheets().Current(), Sheet::None);
    EXPECT_TRUE(pdf.startsWith("%PDF-") && pdf.trimmed().endsWith("%%EOF"));
    QByteArray title = "/Title (\xFE\xFF";
    for (const char* c8 = c.title; *c8 != '\0'; ++c8) title.append('\0').append(*c8);
    EXPECT_TRUE(pdf.contains(title));
    const auto text = TextOf(pdf);
    if (!text) GTEST_SKIP() << "nothing here reads PDF";
    // Letters that no font has leave no text behind.
    const QRegularExpression letters(QFontDatabase::families(QFontDatabase::Japanese).isEmpty()
                                         ? "[\\p{Han}\\p{Hiragana}]"_q
                                         : QString());
    qsizetype at = 0;
    for (const QStringList& row : rows) {
      // In the order of the table, and of its columns.
      for (QString cell : row) {
        if (cell.startsWith(QLatin1Char('-'))) cell[0] = QChar(0x2212);
        if (!letters.pattern().isEmpty()) cell = cell.remove(letters).trimmed();
        at = text->indexOf(cell, at);
        ASSERT_GE(at, 0) << cell.toStdString() << " in\n" << text->toStdString();
        at += cell.size();
      }
    }
    for (const QString& words : c.more) {
      EXPECT_TRUE(text->contains(words)) << words.toStdString() << "\n" << text->toStdString();
    }
  }
}

TEST(PrintSheet, PrintsTheSelectedRowsAndKeepsWhatWasChosen) {
  PrintedWindow test;
  test.ClickRow("entry_Table", 6);
  test.Open();
  EXPECT_EQ(test.TextOf("printSheet_Facts"), "23 entries"_q);
  EXPECT_TRUE(test.Find<QRadioButton>("printSheet_All_Button")->isChecked());
  EXPECT_EQ(test.Find<QRadioButton>("printSheet_Selected_Button")->text(), "The selected one"_q);
  test.Choose("printSheet_Paper_PopUp", "A5");
  test.Choose("printSheet_Orientation_PopUp", "Landscape");
  test.Click("printSheet_Notes_CheckBox");
  auto* preview = test.FindWidget("printSheet_Preview");
  ASSERT_EQ(preview->accessibleName(), "Page 1 of 2"_q);
  test.Key(Qt::Key_Escape);

  test.ClickRow("entry_Table", 6);
  for (int i = 0; i < 2; ++i) test.Key(Qt::Key_Down, Qt::ShiftModifier);
  test.Open();
  EXPECT_TRUE(test.Find<QRadioButton>("printSheet_Selected_Button")->isChecked());
  EXPECT_EQ(test.Find<QComboBox>("printSheet_Paper_PopUp")->currentText(), "A5"_q);
  preview = test.FindWidget("printSheet_Preview");
  EXPECT_TRUE(preview->accessibleDescription().contains("Register: 3 selected entries"_q));
  EXPECT_TRUE(preview->accessibleDescription().contains("Total of 3 entries"_q));
  EXPECT_FALSE(preview->accessibleDescription().contains("January rent"_q));
  test.Click("printSheet_All_Button");
  EXPECT_TRUE(preview->accessibleDescription().contains("January rent"_q));
  test.Key(Qt::Key_Escape);

  // The next start of the program knows them too.
  test.program->FlushSettings();
  test.sheet().SetChoices({});
  test.program->window().SetPrinters(std::make_unique<FakePrinters>());
  EXPECT_EQ(test.sheet().Choices(), (PrintChoices{"a5", Orientation::Landscape, false, true}));
}

TEST(PrintSheet, TurnsPagesAndStaysWithTheRowsWhereTheyAreCutAnew) {
  PrintedWindow test;
  test.sheet().SetChoices({"a5", Orientation::Landscape, true, true});
  test.Open();
  auto* preview = test.FindWidget("printSheet_Preview");
  auto* field = test.Find<QSpinBox>("printSheet_Page_Field");
  const auto page = [preview] { return preview->accessibleName().toStdString(); };
  EXPECT_EQ(test.FocusName(), "printSheet_Preview"_q);
  EXPECT_EQ(page(), "Page 1 of 2");
  EXPECT_FALSE(test.FindWidget("printSheet_Previous_Button")->isEnabled());
  test.Key(Qt::Key_PageDown);
  EXPECT_EQ(page(), "Page 2 of 2");
  EXPECT_EQ(field->text(), "Page 2 of 2"_q);
  test.Key(Qt::Key_PageDown);
  test.Key(Qt::Key_Home);
  EXPECT_EQ(page(), "Page 1 of 2");
  field->setValue(2);
  EXPECT_EQ(page(), "Page 2 of 2");
  // The balance of the first entry of the page.
  const QString first = preview->accessibleDescription().split(QLatin1Char('\n')).at(4);
  const QString balance = first.section(QLatin1String("  "), -1);
  ASSERT_TRUE(balance.startsWith(QLatin1Char('$'))) << first.toStdString();
  for (const char* mark : {"printSheet_Splits_CheckBox", "printSheet_Notes_CheckBox"}) {
    test.Click(mark);
    EXPECT_TRUE(preview->accessibleDescription().contains(balance)) << mark;
  }
  test.Choose("printSheet_Paper_PopUp", "A3");
  EXPECT_EQ(page(), "Page 1 of 1");
  EXPECT_FALSE(field->isEnabled());

  // Where days and amounts would be cut there is a sentence in place of the pages.
  test.Key(Qt::Key_Escape);
  test.ambient.locale.short_date_format = "%A, the %d of %B in the year of %Y %A %A %A";
  test.sheet().SetChoices({"a5", Orientation::Portrait, false, false});
  test.Open();
  preview = test.FindWidget("printSheet_Preview");
  EXPECT_EQ(preview->accessibleName(), "Preview"_q);
  EXPECT_TRUE(preview->accessibleDescription().startsWith("This paper is too narrow"_q));
  for (const char* button : {"printSheet_SaveAsPDF_Button", "printSheet_Print_Button"}) {
    EXPECT_FALSE(test.FindWidget(button)->isEnabled()) << button;
  }
}

TEST(PrintSheet, TellsWhyNothingWasWrittenAndHarmsNoFile) {
  PrintedWindow test;
  test.Open();
  test.files.AddFile(kFile, "good");
  test.alerts.Answer("Overwrite");
  test.files.FailAtStep(1, FakeFileSystem::Failing::ForEverAfter);
  EXPECT_EQ(test.Saved(), "good");
  EXPECT_EQ(test.alerts.Requests().back().title, "The PDF Was Not Saved");
  EXPECT_NE(test.alerts.Requests().back().message.find(kFile), std::string::npos);
  EXPECT_EQ(test.program->app().sheets().Current(), Sheet::Print);

  test.printers->path = QStringLiteral("/nowhere/at/all.pdf");
  test.Click("printSheet_Print_Button");
  EXPECT_EQ(test.TextOf("sheet_Problem"), "The printer did not take the pages."_q);

  test.sheet().SetChoices({"a5", Orientation::Landscape, false, false});
  test.Key(Qt::Key_Escape);
  test.Open();
  test.printers->path = ToQString(test.settings / "printed.pdf");
  test.printers->first = test.printers->last = 2;
  test.Click("printSheet_Print_Button");
  EXPECT_EQ(test.program->app().sheets().Current(), Sheet::None);
  QFile file(test.printers->path);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  if (const auto text = TextOf(file.readAll())) {
    EXPECT_TRUE(text->contains("Page 2 of 2"_q) && !text->contains("Page 1 of 2"_q));
  }

  // What cannot be printed cannot be ordered.
  const auto account = test.program->app().desk().SelectedAccount();
  account->SetPassword("open");
  test.program->app().selection().Account_Select(account);
  auto* command = test.program->window().findChild<QAction*>(QLatin1String("Print_Open"));
  EXPECT_TRUE(command->isEnabled());
  test.program->window().findChild<QAction*>(QLatin1String("Account_Lock"))->trigger();
  test.Settle();
  EXPECT_FALSE(command->isEnabled());
}

}  // namespace
}  // namespace tallyfold::desktop
