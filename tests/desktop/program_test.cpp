#include "desktop/program.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPointer>
#include <QTextBrowser>
#include <string>
#include <vector>

#include "app/commands/command.h"
#include "app/help/guide.h"
#include "app/help/manual_page.h"
#include "desktop/arguments.h"
#include "desktop/test_window.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

TEST(CommandLine, TakesOneFileAndRefusesWhatItDoesNotKnow) {
  const struct {
    std::vector<std::string> words;
    std::string file;
    std::string unknown;
  } cases[] = {
      {{}, "", ""},
      {{"bank.ofx"}, "bank.ofx", ""},
      {{"--", "-odd.qif"}, "-odd.qif", ""},
      {{"one.qif", "two.qif"}, "one.qif", "two.qif"},
      {{"--exmaple", "a.qif"}, "a.qif", "--exmaple"},
      {{"-h"}, "", "-h"},
      {{""}, "", "\"\""},
  };
  for (const auto& each : cases) {
    const Arguments read = ReadArguments(each.words);
    EXPECT_EQ(read.file, each.file);
    EXPECT_EQ(read.unknown, each.unknown);
  }
  EXPECT_TRUE(ReadArguments({"--example"}).is_example);
  EXPECT_TRUE(ReadArguments({"--help"}).wants_help);
  EXPECT_TRUE(ReadArguments({"a.qif", "--version"}).wants_version);
}

TEST(FileToOpen, WaitsForAnOpenAccountAndIsImportedOnce) {
  TestWindow test("");
  test.files.AddFile("/home/user/bank.qif", "!Type:Bank\nD1/2/26\nT-5.00\nPBaker\n^\n");
  ASSERT_TRUE(test.Launch());
  test.program->OpenFile("/home/user/bank.qif");
  TestWindow::Settle();
  // The sheet for the first account is up.
  EXPECT_EQ(QApplication::activeWindow()->objectName(), "accountEditSheet"_q);
  TestWindow::Type("Cheque");
  TestWindow::Key(Qt::Key_Return);
  EXPECT_EQ(test.TextOf("importOptions_Title"), "Importing From:  bank.qif"_q);
  TestWindow::Key(Qt::Key_Escape);
  TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
  TestWindow::Key(Qt::Key_Escape);
  EXPECT_EQ(QApplication::activeWindow(), &test.program->window());
}

TEST(Help, OpensByItsKeyInFrontOfASheetAndTellsEveryKey) {
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
  TestWindow::Key(Qt::Key_F1);
  const QPointer<QWidget> help = TestWindow::FindWidget("help_Window");
  ASSERT_EQ(QApplication::activeWindow(), help);
  QString told;
  for (const auto* text : help->findChildren<QTextBrowser*>()) told += text->toPlainText();
  const QString page = ToQString(WindowManualPage("1.2"));
  for (const Command* command : Commands()) {
    if (command->title.empty() || command->shortcut.empty()) continue;
    const QString effect = Text(command->title).remove("..."_q);
    EXPECT_TRUE(told.contains(effect)) << command->name;
    EXPECT_TRUE(page.contains(effect)) << command->name;
  }
  EXPECT_TRUE(page.startsWith(".TH TALLYFOLD 1 \"\" \"Tallyfold 1.2\" \"User Commands\"\n"_q));
  EXPECT_EQ(RoffText(".it's \"-\\~"), "\\&.it\\(aqs \\(dq\\-\\e\\(ti");
  TestWindow::Key(Qt::Key_Escape);
  EXPECT_TRUE(help.isNull() || !help->isVisible());
  EXPECT_TRUE(TestWindow::FindWidget("debitSheet_OK_Button")->isVisible());
}

}  // namespace
}  // namespace tallyfold::desktop
