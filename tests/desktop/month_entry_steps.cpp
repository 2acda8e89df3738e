#include <gtest/gtest.h>

#include <utility>

#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "desktop/month_steps.h"

namespace tallyfold::desktop {
namespace {

const Step kEntrySteps[] = {
    {R"(debit date=2026-03-02 amount=31.40 to="Corner Market" type=Groceries description="Week 9")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "03/02/26");
       hand.Tick("debitSheet_CheckNumber_Button", false);
       hand.Choose("debitSheet_Type_PopUp", "Groceries");
       hand.Type("debitSheet_Amount_Field", "31.40");
       hand.Type("debitSheet_Description_Field", "Week 9");
       hand.Type("debitSheet_ToFrom_Field", "Corner Market");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(deposit date=2026-03-03 amount=25.00 from=Grandma type=Gift notes="for the school trip")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_Plus, Qt::ControlModifier);
       hand.Type("depositSheet_Date_Field", "03/03/26");
       hand.Choose("depositSheet_Type_PopUp", "Gift");
       hand.Type("depositSheet_Amount_Field", "25");
       hand.Type("depositSheet_ToFrom_Field", "Grandma");
       hand.Type("depositSheet_Notes_Field", "for the school trip");
       hand.Press("depositSheet_OK_Button");
     }},
    // A check with the next number, and from its sheet on to a split.
    {R"(debit date=2026-03-04 amount=12.00 to="Flea market" type=Check check=next
debit date=2026-03-05 type="Debit Card" description=Saturday amount=42.60 split="Meal|Inn|18.60" split="Two books|Harbour Books|rest")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "3/4");
       hand.Tick("debitSheet_CheckNumber_Button", true);
       hand.Choose("debitSheet_Type_PopUp", "Check");
       hand.Type("debitSheet_Amount_Field", "10+2");
       hand.Type("debitSheet_ToFrom_Field", "Flea market");
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier);
       hand.Type("debitSheet_Date_Field", "03/05/26");
       hand.Tick("debitSheet_CheckNumber_Button", false);
       hand.Choose("debitSheet_Type_PopUp", "Debit Card");
       hand.Type("debitSheet_Amount_Field", "42.60");
       hand.Press("debitSheet_Split_Button");
       for (const char* text : {"Meal", "Inn", "18.60", "Two books", "Harbour Books"}) {
         TestWindow::Type(text);
         TestWindow::Key(Qt::Key_Tab);
       }
       TestWindow::Key(Qt::Key_Return);
       hand.Press("debitSheet_Split_Rest_Button");
       hand.Type("debitSheet_Description_Field", "Saturday");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(transfer date=2026-03-06 amount=40.00 to=Cash description="Pocket money")",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_T, Qt::ControlModifier);
       hand.Type("transferSheet_Date_Field", "03/06/26");
       hand.Choose("transferSheet_Direction_PopUp", "Transfer To");
       hand.Choose("transferSheet_Account_PopUp", "Cash");
       hand.Type("transferSheet_Amount_Field", "40");
       hand.Type("transferSheet_Description_Field", "Pocket money");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(edit 26 amount=15.00 description="A lamp")",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 2);
       TestWindow::Key(Qt::Key_Return);
       hand.Type("debitSheet_Amount_Field", "15");
       hand.Type("debitSheet_Description_Field", "A lamp");
       TestWindow::Key(Qt::Key_Return);
     }},
    {"answer OK\nremove 26",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 2);
       TestWindow::Key(Qt::Key_Delete);
       hand.Press("entryRemoveConfirm_OK_Button");
     }},
    {"clear 23",
     [](Hand& hand) {
       hand.RowFromEnd("entry_Table", 4);
       TestWindow::Key(Qt::Key_Space);
     }},
    // What the bank has is not changed unasked.
    {"answer Change\nedit 23 amount=66.30",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_Return);
       hand.Type("debitSheet_Amount_Field", "66.30");
       TestWindow::Key(Qt::Key_Return);
       EXPECT_EQ(hand.test.program->app().sheets().Current(), Sheet::Debit);
       hand.test.alerts.Answer("Change");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(schedule add debit start=2026-03-07 repeat=weekly until="20 times" amount=25.00 to=Lena description="Pocket money" type=none check=no)",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_D, Qt::ControlModifier | Qt::AltModifier);
       hand.Type("scheduleSheet_Start_Field", "03/07/26");
       hand.Choose("scheduleSheet_Type_PopUp", "None");
       hand.Tick("scheduleSheet_Check_Button", false);
       hand.Type("scheduleSheet_Amount_Field", "25");
       hand.Type("scheduleSheet_Description_Field", "Pocket money");
       hand.Type("scheduleSheet_ToFrom_Field", "Lena");
       hand.Choose("scheduleSheet_Interval_PopUp", "Every Week");
       hand.Choose("scheduleSheet_UntilType_PopUp", "A Number of Times");
       hand.Type("scheduleSheet_Until_Field", "20");
       TestWindow::Key(Qt::Key_Return);
     }},
    {"remind ahead 14 days\nremind mark 1\nremind mark 2\nremind edit 2 amount=2450.50 "
     "date=2026-03-03\nremind commit",
     [](Hand& hand) {
       hand.Order("ScheduleReminderSheet_Open");
       hand.Type("scheduleReminderSheet_LookAhead", "14");
       hand.To("scheduleReminderSheet_Table");
       TestWindow::Key(Qt::Key_Home);
       TestWindow::Key(Qt::Key_Space);
       TestWindow::Key(Qt::Key_Down);
       TestWindow::Key(Qt::Key_Space);
       TestWindow::Type("2450.50");
       // To the day of the same row.
       TestWindow::Key(Qt::Key_Backtab, Qt::ShiftModifier);
       TestWindow::Type("03/03/26");
       TestWindow::Key(Qt::Key_Return);
       EXPECT_EQ(hand.test.program->app().reminder().State().marked, 2U);
       TestWindow::Key(Qt::Key_Return);
     }},
    {"answer OK\nschedule remove 4",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_3, Qt::AltModifier);
       hand.Order("ScheduleRemoveConfirm_Begin");
       hand.Press("scheduleRemoveConfirm_OK_Button");
       TestWindow::Key(Qt::Key_1, Qt::AltModifier);
     }},
    {"import /home/user/household.qif\nunmark 2\ncommit",
     [](Hand& hand) {
       hand.test.panels.Answer(kMonthImport);
       TestWindow::Key(Qt::Key_I, Qt::ControlModifier);
       TestWindow::Key(Qt::Key_Return);
       hand.To("import_Table");
       TestWindow::Key(Qt::Key_Home);
       TestWindow::Key(Qt::Key_Down);
       TestWindow::Key(Qt::Key_Space);
       hand.test.alerts.Answer("OK");
       hand.Press("import_OK_Button");
     }},
    {"transfer date=2026-04-01 amount=5 to=Savings description=Back\n"
     "transfer date=2026-04-02 amount=6 to=Savings description=Back\n"
     "answer OK\nanswer No\nremove 36\nanswer OK\nanswer Yes\nremove 37",
     [](Hand& hand) {
       for (const auto& [day, amount] : {std::pair("04/01/26", "5"), std::pair("04/02/26", "6")}) {
         TestWindow::Key(Qt::Key_T, Qt::ControlModifier);
         hand.Type("transferSheet_Date_Field", day);
         hand.Choose("transferSheet_Account_PopUp", "Savings");
         hand.Type("transferSheet_Amount_Field", amount);
         hand.Type("transferSheet_Description_Field", "Back");
         TestWindow::Key(Qt::Key_Return);
       }
       // The other half goes too, after second thoughts.
       hand.RowFromEnd("entry_Table", 1);
       TestWindow::Key(Qt::Key_Delete);
       TestWindow::Key(Qt::Key_Return);
       hand.Press("transferEntryRemoveConfirm_Cancel_Button");
       TestWindow::Key(Qt::Key_Delete);
       TestWindow::Key(Qt::Key_Return);
       hand.Press("transferEntryRemoveConfirm_No_Button");
       // The other half stays.
       hand.RowFromEnd("entry_Table", 0);
       TestWindow::Key(Qt::Key_Delete);
       TestWindow::Key(Qt::Key_Return);
       hand.Press("transferEntryRemoveConfirm_Yes_Button");
     }},
    {"statement 2500.00\nclear 35",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_2, Qt::AltModifier);
       hand.Type("statementBalance_Field", "2500");
       hand.RowFromEnd("reconcile_Table", 0);
       TestWindow::Key(Qt::Key_Space);
       TestWindow::Key(Qt::Key_1, Qt::AltModifier);
     }},
};

}  // namespace

std::span<const Step> EntrySteps() {
  return kEntrySteps;
}

}  // namespace tallyfold::desktop
