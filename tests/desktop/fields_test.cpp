#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <chrono>
#include <string>
#include <vector>

#include "desktop/fields/amount_field.h"
#include "desktop/fields/calendar_pop_up.h"
#include "desktop/fields/combo_box_cell.h"
#include "desktop/fields/date_field.h"
#include "desktop/fields/key_button.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "registers/speaking_text_field.h"

namespace tallyfold::desktop {
namespace {

class FieldsTest : public testing::Test {
 protected:
  FieldsTest() {
    ambient_.clock.SetLocal({2026, 3, 2, 12, 0, 0});
    auto* column = new QVBoxLayout(&window_);
    amount_ = new AmountField;
    date_ = new DateField;
    cell_ = new LDGRComboBoxCell;
    button_ = new LDGRButton;
    for (QWidget* each : std::initializer_list<QWidget*>{amount_, date_, cell_, button_}) {
      column->addWidget(each);
    }
    window_.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window_));
  }

  static void Type(QWidget* field, const char* text) {
    QTest::keyClicks(field, QString::fromUtf8(text));
  }

  FakeAmbient ambient_;
  QWidget window_;
  AmountField* amount_;
  DateField* date_;
  LDGRComboBoxCell* cell_;
  LDGRButton* button_;
};

TEST_F(FieldsTest, AddUpASumWhenTheAmountIsLeft) {
  struct Case {
    const char* typed;
    const char* left;
  };
  for (const Case& each : {Case{"12.50+3", "15.50"},
                           {"100-0.10-0.20", "99.70"},
                           {"12.5", "12.5"},
                           {"12b5", "12b5"},
                           {"1+", "1+"},
                           {"-5", "-5"}}) {
    amount_->setFocus();
    amount_->clear();
    Type(amount_, each.typed);
    EXPECT_EQ(amount_->text().toStdString(), each.typed);
    cell_->setFocus();
    EXPECT_EQ(amount_->text().toStdString(), each.left);
  }
}

TEST_F(FieldsTest, EchoTypedDigitsThroughTheSpeakingField) {
  FakeRunLoop loop;
  FakeSpeech speech;
  LDGRSpeakingTextField speaking(loop, speech);
  speaking.setSpeakableCharacters(kSpeakableAmountCharacters);
  speaking.setSpeaks(true);
  amount_->SetSpeaking(&speaking);
  amount_->setFocus();
  Type(amount_, "1x2");
  QTest::keyClick(amount_, Qt::Key_Home);
  Type(amount_, "7");
  QTest::keyClick(amount_, Qt::Key_Delete);
  EXPECT_EQ(amount_->text(), QStringLiteral("7x2"));
  for (int i = 0; i < 5; ++i) {
    loop.AdvanceBy(std::chrono::seconds(5));
    speech.Finish();
  }
  EXPECT_EQ(speech.Heard(), (std::vector<std::string>{"1", "2", "7"}));
}

TEST_F(FieldsTest, StepAndReadDays) {
  date_->setFocus();
  EXPECT_EQ(date_->Day(), 20260302);
  QTest::keyClick(date_, Qt::Key_Up);
  EXPECT_EQ(date_->Day(), 20260303);
  Type(date_, "-");
  EXPECT_EQ(date_->Day(), 20260302);
  QTest::keyClick(date_, Qt::Key_Down);
  QTest::keyClick(date_, Qt::Key_Down);
  EXPECT_EQ(date_->text(), QStringLiteral("02/28/26"));
  date_->deselect();
  Type(date_, "+");
  EXPECT_EQ(date_->Day(), std::nullopt) << "+ is a character while the field is not selected";
  Type(date_, "t");
  EXPECT_EQ(date_->Day(), 20260302);
  date_->clear();
  Type(date_, "yesterday");
  EXPECT_EQ(date_->Day(), 20260301) << "in a word a t is a letter";
  date_->clear();
  Type(date_, "17");
  amount_->setFocus();
  EXPECT_EQ(date_->text(), QStringLiteral("03/17/26"));
  date_->setText(QStringLiteral("soon"));
  date_->setFocus();
  amount_->setFocus();
  EXPECT_EQ(date_->text(), QStringLiteral("soon"));
  EXPECT_EQ(date_->Day(), std::nullopt);
  date_->SetDay(19240307);
  EXPECT_EQ(date_->Day(), 19240307) << "a year of two digits keeps its century";
  date_->OpenCalendar();
  auto* calendar = date_->findChild<CalendarPopUp*>();
  ASSERT_NE(calendar, nullptr);
  emit calendar->Chosen(QDate(2026, 3, 5));
  EXPECT_EQ(date_->Day(), 20260305);
  calendar->close();
}

TEST_F(FieldsTest, CompleteWhatIsTyped) {
  cell_->SetTexts(FormerTexts({"Local Bakery", "Cafe by the Quay", "Caf\u00e9 Zo\u00eb", "Cash"}));
  cell_->setFocus();
  Type(cell_, "ca");
  EXPECT_EQ(cell_->text(), QStringLiteral("cafe by the Quay"));
  EXPECT_EQ(cell_->selectedText(), QStringLiteral("fe by the Quay"));
  Type(cell_, "s");
  EXPECT_EQ(cell_->text(), QStringLiteral("cash"));
  QTest::keyClick(cell_, Qt::Key_Backspace);
  EXPECT_EQ(cell_->text(), QStringLiteral("cas")) << "deleting completes nothing";
  Type(cell_, "h");
  EXPECT_EQ(cell_->text(), QStringLiteral("cash"));
  cell_->clear();
  Type(cell_, "l");
  EXPECT_EQ(cell_->text(), QStringLiteral("local Bakery"));
  QTest::keyClick(cell_, Qt::Key_Return);
  EXPECT_EQ(cell_->text(), QStringLiteral("Local Bakery"));
  cell_->clear();
  Type(cell_, "loc");
  QTest::keyClick(cell_, Qt::Key_Tab);
  EXPECT_EQ(cell_->text(), QStringLiteral("Local Bakery"));
  EXPECT_FALSE(cell_->hasFocus());
  cell_->setFocus();
  cell_->clear();
  Type(cell_, "ca");
  QTest::keyClick(cell_, Qt::Key_Down);
  EXPECT_TRUE(cell_->IsListOpen());
  QTest::keyClick(cell_, Qt::Key_Up);
  QTest::keyClick(cell_, Qt::Key_Return);
  EXPECT_EQ(cell_->text(), QStringLiteral("Local Bakery")) << "the last that holds it";
  EXPECT_FALSE(cell_->IsListOpen());
  Type(cell_, "zzz");
  QTest::keyClick(cell_, Qt::Key_Tab);
  EXPECT_EQ(cell_->text(), QStringLiteral("Local Bakeryzzz"));
}

TEST_F(FieldsTest, PressAButtonByItsKeysWhereverTheFocusIs) {
  const QSignalSpy clicked(button_, &QPushButton::clicked);
  button_->SetKeyEquivalents({QKeySequence(Qt::CTRL | Qt::Key_Return)});
  amount_->setFocus();
  QTest::keyClick(window_.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(clicked.count(), 1);
  button_->setEnabled(false);
  QTest::keyClick(window_.windowHandle(), Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(clicked.count(), 1);
}

}  // namespace
}  // namespace tallyfold::desktop
