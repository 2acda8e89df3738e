#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QScrollArea>
#include <QTableView>
#include <algorithm>

#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/face/sheet_slot.h"
#include "desktop/test_window.h"
#include "model/account.h"

namespace tallyfold::desktop {
namespace {

class EntrySheets : public testing::Test {
 protected:
  EntrySheets() : test(ExampleAccounts()) {
    EXPECT_TRUE(test.Launch());
    test.Key(Qt::Key_Down);
  }

  [[nodiscard]] LDGRController& app() { return test.program->app(); }
  [[nodiscard]] std::size_t Count() { return app().desk().SelectedAccount()->GetEntries().size(); }
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> Last() {
    return app().desk().SelectedAccount()->GetEntries().back();
  }
  // By Tab from where the focus is to that field.
  static void TabTo(const char* name) {
    for (int i = 0; i < 30 && TestWindow::FocusName() != QLatin1String(name); ++i) {
      TestWindow::Key(Qt::Key_Tab);
    }
    ASSERT_EQ(TestWindow::FocusName(), QLatin1String(name));
  }
  static void TypeInto(const char* name, const char* text) {
    TabTo(name);
    TestWindow::Type(text);
  }

  TestWindow test;
};

TEST_F(EntrySheets, DebitWithASplitThenADepositThenATransferAreEnteredByKeys) {
  const std::size_t count = Count();
  test.Key(Qt::Key_D, Qt::ControlModifier);
  ASSERT_EQ(app().sheets().Current(), Sheet::Debit);
  // In the order in which they are read.
  for (const char* stop : {"Date_Field", "CheckNumber_Button", "Type_PopUp", "Amount_Field",
                           "Split_Button", "Description_Field", "ToFrom_Field", "Cleared_Button"}) {
    EXPECT_EQ(test.FocusName(), QLatin1String("debitSheet_") + QLatin1String(stop));
    test.Key(Qt::Key_Tab);
  }
  TypeInto("debitSheet_Amount_Field", "50");
  TabTo("debitSheet_Split_Button");
  test.Key(Qt::Key_Space);
  ASSERT_EQ(test.FocusName(), QLatin1String("debitSheet_Split_Table"));
  for (const char* text : {"Lunch", "Inn", "18.60"}) {
    test.Type(text);
    test.Key(Qt::Key_Tab);
  }
  EXPECT_EQ(test.Find<QLineEdit>("debitSheet_Amount_Field")->text(), QLatin1String("18.60"));
  EXPECT_FALSE(test.FindWidget("debitSheet_ToFrom_Field")->isEnabled());
  EXPECT_EQ(test.TextOf("debitSheet_Split_Target_Label"), QLatin1String("$31.40 of $50.00 left"));
  // With its cell still open, and on to the next.
  test.Type("Tip");
  test.Key(Qt::Key_Plus, Qt::ControlModifier);
  ASSERT_EQ(app().sheets().Current(), Sheet::Deposit);
  ASSERT_EQ(Count(), count + 1);
  EXPECT_TRUE(Last()->IsDebit());
  EXPECT_EQ(Last()->GetAmount(), -18.60);
  ASSERT_NE(Last()->GetSplit(), nullptr);
  EXPECT_EQ(Last()->GetSplit()->GetToFrom(0), "Inn");
  EXPECT_EQ(Last()->GetSplit()->GetDescription(1), "Tip");

  TypeInto("depositSheet_Amount_Field", "10+2.5");
  TypeInto("depositSheet_Description_Field", "Found money");
  test.Key(Qt::Key_T, Qt::ControlModifier);
  ASSERT_EQ(app().sheets().Current(), Sheet::Transfer);
  ASSERT_EQ(Count(), count + 2);
  EXPECT_EQ(Last()->GetAmount(), 12.5);
  EXPECT_EQ(Last()->GetDescription(), "Found money");

  EXPECT_EQ(test.TextOf("transferSheet_Sentence_Label").left(13), QLatin1String("Nothing goes "));
  TypeInto("transferSheet_Amount_Field", "300");
  EXPECT_EQ(test.TextOf("transferSheet_Sentence_Label").left(13), QLatin1String("$300.00 goes "));
  const auto& state = app().entries().Transfer().State();
  ASSERT_EQ(state.balances.size(), 2U);
  EXPECT_EQ(std::abs(state.balances[0].after - state.balances[0].now), 300.0);
  EXPECT_EQ(state.balances[0].after + state.balances[1].after,
            state.balances[0].now + state.balances[1].now);
  test.Key(Qt::Key_Return);
  test.Key(Qt::Key_Return);
  EXPECT_EQ(Count(), count + 3);
  EXPECT_TRUE(Last()->IsTransfer());
  EXPECT_EQ(std::abs(Last()->GetAmount()), 300.0);
}

TEST_F(EntrySheets, SplitGoesByEitherButtonAndLeavesWhatWasTypedOrNothing) {
  const struct {
    const char* amount;
    const char* button;
    const char* left;
    const char* focus;
  } cases[] = {
      {"50", "debitSheet_Split_Clear_Button", "50.00", "debitSheet_Split_Clear_Button"},
      {"12x", "debitSheet_Split_Clear_Button", "12x", "debitSheet_Split_Clear_Button"},
      {"12x", "debitSheet_ClearSplit_Button", "", "debitSheet_Amount_Field"},
  };
  for (const auto& each : cases) {
    test.Key(Qt::Key_D, Qt::ControlModifier);
    TypeInto("debitSheet_Amount_Field", each.amount);
    TabTo("debitSheet_Split_Button");
    test.Key(Qt::Key_Space);
    for (const char* text : {"Lunch", "Inn", "18.60"}) {
      test.Type(text);
      test.Key(Qt::Key_Tab);
    }
    test.Key(Qt::Key_Escape);
    EXPECT_EQ(test.Find<QLineEdit>("debitSheet_Amount_Field")->text(), QLatin1String("18.60"));
    test.Click(each.button);
    EXPECT_EQ(test.Find<QLineEdit>("debitSheet_Amount_Field")->text(), QLatin1String(each.left));
    EXPECT_EQ(test.Row("debitSheet_Split_Table", 0), QLatin1String("1|||"));
    EXPECT_EQ(test.Find<QTableView>("debitSheet_Split_Table")->currentIndex().row(), 0);
    EXPECT_EQ(test.FocusName(), QLatin1String(each.focus));
    test.Key(Qt::Key_Escape);
  }
}

TEST_F(EntrySheets, EscapeClosesWhatIsOpenInTheSheetFirst) {
  test.Key(Qt::Key_D, Qt::ControlModifier);
  TabTo("debitSheet_Date_Field");
  test.Key(Qt::Key_Down, Qt::AltModifier);
  const struct {
    const char* field;
    Qt::Key opens;
  } cases[] = {{"debitSheet_Type_PopUp", Qt::Key_Space},
               {"debitSheet_Description_Field", Qt::Key_Down}};
  for (const auto& each : cases) {
    EXPECT_NE(QApplication::activePopupWidget(), nullptr) << "before " << each.field;
    test.Key(Qt::Key_Escape);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "before " << each.field;
    TabTo(each.field);
    test.Key(each.opens);
  }
  test.Key(Qt::Key_Return);
  EXPECT_EQ(app().sheets().Current(), Sheet::Debit) << "of the list alone";
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
}

TEST_F(EntrySheets, KeysGoOnFromAnOpenListAndFromTheLastCellOfASplit) {
  test.Key(Qt::Key_D, Qt::ControlModifier);
  TabTo("debitSheet_Split_Button");
  test.Key(Qt::Key_Space);
  test.Type("w");
  test.Key(Qt::Key_Down);
  test.Key(Qt::Key_Tab);
  test.Type("Inn");
  test.Key(Qt::Key_Return);
  EXPECT_EQ(test.Row("debitSheet_Split_Table", 0), QLatin1String("1|Week 8|Inn|"));
  auto* table = test.Find<QTableView>("debitSheet_Split_Table");
  table->setCurrentIndex(table->model()->index(9, 3));
  for (const char* text : {"5", "7"}) {
    test.Type(text);
    test.Key(Qt::Key_Tab);
  }
  EXPECT_EQ(test.Row("debitSheet_Split_Table", 9), QLatin1String("10|||5.00"));
  // As it is spelled in the list, also by a key that does not leave the field.
  TypeInto("debitSheet_Description_Field", "we");
  test.Key(Qt::Key_D, Qt::ControlModifier);
  EXPECT_EQ(Last()->GetDescription(), "Week 8");
}

TEST_F(EntrySheets, WhatCannotBeStoredIsMarkedAndKeptAsTyped) {
  const std::size_t count = Count();
  test.Key(Qt::Key_D, Qt::ControlModifier);
  TabTo("debitSheet_Date_Field");
  const struct {
    const char* field;
    const char* bad;
    const char* good;
  } cases[] = {
      {"debitSheet_Date_Field", "31/31/31", "02/20/26"},
      {"debitSheet_Amount_Field", "\xd9\xa1 abc", "7"},
      {"debitSheet_Amount_Field", "-7", "7.25"},
  };
  for (const auto& each : cases) {
    auto* field = test.Find<QLineEdit>(each.field);
    field->setFocus();
    field->selectAll();
    test.Type(each.bad);
    const QString typed = field->text();
    test.Key(Qt::Key_Return);
    ASSERT_EQ(app().sheets().Current(), Sheet::Debit) << each.bad;
    EXPECT_EQ(app().entries().Debit().State().problem->field, each.field);
    EXPECT_EQ(field->text(), typed);
    EXPECT_EQ(test.FocusName(), QLatin1String(each.field));
    EXPECT_FALSE(field->accessibleDescription().isEmpty());
    field->selectAll();
    test.Type(each.good);
    EXPECT_TRUE(field->accessibleDescription().isEmpty());
  }
  test.Key(Qt::Key_Return);
  ASSERT_EQ(Count(), count + 1);
  EXPECT_EQ(Last()->GetAmount(), -7.25);

  // The new entry is selected: it is changed, and what it is changed to is dropped by Escape.
  test.Key(Qt::Key_Down);
  ASSERT_TRUE(app().entries().Entry_Edit());
  test.Settle();
  TypeInto("debitSheet_Description_Field", "Paper");
  test.Key(Qt::Key_Escape);
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
  EXPECT_NE(Last()->GetDescription(), "Paper");
}

TEST_F(EntrySheets, EarlierEntryIsOfferedForADescriptionAndTakenByItsKey) {
  test.Key(Qt::Key_D, Qt::ControlModifier);
  TypeInto("debitSheet_Description_Field", "Week 8");
  test.Key(Qt::Key_Return, Qt::ControlModifier);
  EXPECT_EQ(test.Find<QLineEdit>("debitSheet_Amount_Field")->text(), QLatin1String("66.20"));
  EXPECT_EQ(test.Find<QLineEdit>("debitSheet_ToFrom_Field")->text(),
            QLatin1String("Corner Market"));
  EXPECT_EQ(test.Find<QComboBox>("debitSheet_Type_PopUp")->currentText(),
            QLatin1String("Groceries"));
}

TEST(EntrySheet, KeepsItsButtonsInSightWhereItIsTallerThanItsScreen) {
  const struct LargeFont {
    LargeFont() {
      QFont large = font;
      large.setPointSize(36);
      QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(font); }
    const QFont font = QApplication::font();
  } large_font;
  TestWindow test(ExampleAccounts());
  ASSERT_TRUE(test.Launch());
  test.Key(Qt::Key_D, Qt::ControlModifier);
  const QWidget* ok = test.FindWidget("debitSheet_OK_Button");
  const QWidget* sheet = ok->window();
  const auto* area = sheet->findChild<QScrollArea*>();
  ASSERT_NE(area, nullptr);
  EXPECT_GT(area->widget()->height(), area->height());
  EXPECT_LT(sheet->height(), sheet->screen()->availableGeometry().height());
  EXPECT_TRUE(sheet->rect().contains(ok->geometry().translated(ok->parentWidget()->pos())));
  EXPECT_EQ(test.FocusName(), QLatin1String("debitSheet_Date_Field"));
  for (int i = 0; i < 30 && test.FocusName() != QLatin1String("debitSheet_Notes_Field"); ++i) {
    test.Key(Qt::Key_Tab);
  }
  EXPECT_FALSE(test.Focus()->visibleRegion().isEmpty());
}

TEST(AccountSheet, MakesTheFirstAccountAndRefusesWhatIsNoAccount) {
  TestWindow test("");
  ASSERT_TRUE(test.Launch());
  LDGRController& app = test.program->app();
  ASSERT_EQ(app.sheets().Current(), Sheet::AccountEdit);
  ASSERT_EQ(test.FocusName(), QLatin1String("accountEditSheet_Name_Field"));
  test.Type("House");
  test.Key(Qt::Key_Tab);
  test.Type("12,x");
  test.Key(Qt::Key_Return);
  ASSERT_EQ(app.sheets().Current(), Sheet::AccountEdit);
  EXPECT_EQ(test.FocusName(), QLatin1String("accountEditSheet_StartingBalance_Field"));
  auto* balance = test.Find<QLineEdit>("accountEditSheet_StartingBalance_Field");
  EXPECT_EQ(balance->text(), QLatin1String("12,x"));
  balance->selectAll();
  test.Type("100+25.5");
  test.Key(Qt::Key_Return);
  ASSERT_EQ(app.sheets().Current(), Sheet::None);
  ASSERT_NE(app.desk().SelectedAccount(), nullptr);
  EXPECT_EQ(app.desk().SelectedAccount()->GetName(), "House");
  EXPECT_EQ(app.desk().SelectedAccount()->GetStartingBalance(), 125.5);
}

}  // namespace
}  // namespace tallyfold::desktop
