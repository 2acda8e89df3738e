#include <gtest/gtest.h>

#include <QTimer>

#include "app/controller.h"
#include "app/face/sheet_slot.h"
#include "desktop/month_steps.h"
#include "desktop/services/qt_file_panels.h"
#include "desktop/window_panels.h"

namespace tallyfold::desktop {
namespace {

constexpr const char* kAccountPages = "accountEditSheet_TabView";
constexpr const char* kPreferencePages = "preferencesSheet_TabView";

const Step kSettingSteps[] = {
    {R"(type add Prize kind=deposit default=yes
account edit name="Joint account" balance=1300.00 check=900 descriptions=40 payees=own add="to|Bakery" add="from|Harbour Books")",
     [](Hand& hand) {
       hand.Order("Account_Edit");
       Hand::Type("accountEditSheet_Name_Field", "Joint account");
       Hand::Type("accountEditSheet_StartingBalance_Field", "1300");
       Hand::Type("accountEditSheet_StartingCheckNumber_Field", "900");
       Hand::Page(kAccountPages, "Types");
       Hand::RowFromEnd("accountEditSheet_Types_Table", 0);
       Hand::Press("accountEditSheet_Types_Add_Button");
       TestWindow::Type("Prize");
       TestWindow::Key(Qt::Key_Return);
       Hand::Choose("accountEditSheet_DefaultDepositType_PopUp", "Prize");
       Hand::Page(kAccountPages, "Descriptions");
       Hand::Type("accountEditSheet_DescriptionsCount_Field", "40");
       Hand::Page(kAccountPages, "To and From");
       Hand::To("accountEditSheet_ToFroms_Style_1_Button");
       TestWindow::Key(Qt::Key_Down);
       Hand::To("accountEditSheet_Tos_Table");
       Hand::Press("accountEditSheet_ToFroms_Add_Button");
       TestWindow::Type("Bakery");
       TestWindow::Key(Qt::Key_Return);
       TestWindow::Key(Qt::Key_Right);
       Hand::Press("accountEditSheet_ToFroms_Add_Button");
       TestWindow::Type("Harbour Books");
       TestWindow::Key(Qt::Key_Return);
       TestWindow::Key(Qt::Key_Return);
     }},
    {"account password mine\nlock account=1\nunlock mine account=1",
     [](Hand& hand) {
       hand.Order("Account_Edit");
       Hand::Page(kAccountPages, "Password");
       Hand::Type("accountEditSheet_Password_Field", "mine");
       // Typed once only it is refused.
       TestWindow::Key(Qt::Key_Return);
       EXPECT_EQ(TestWindow::FocusName(), QLatin1String("accountEditSheet_PasswordAgain_Field"));
       TestWindow::Type("mine");
       TestWindow::Key(Qt::Key_Return);
       hand.Order("Account_Lock");
       TestWindow::Key(Qt::Key_1, Qt::ControlModifier);
       EXPECT_EQ(hand.test.program->app().sheets().Current(), Sheet::AccountAuthentication);
       Hand::Type("accountAuthenticationSheet_Password_Field", "mine");
       TestWindow::Key(Qt::Key_Return);
     }},
    {R"(preference selectWhichFieldFirstWhenAddingEntries amount
preference entryRemoveConfirm no
preference entryFontSize 12
preference dateFormat yyyy-mm-dd
preference scheduleLookAhead 3
preference scheduleLookAheadType weeks
preference pauseBetweenSpokenEntries 2.25
preference backupInterval 30
preference QIFExportDateFormat %d/%m/%Y
password open
lock
unlock open)",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_Comma, Qt::ControlModifier);
       Hand::Choose("preferencesSheet_selectWhichFieldFirstWhenAddingEntries", "Amount");
       Hand::Tick("preferencesSheet_entryRemoveConfirm", false);
       Hand::Page(kPreferencePages, "Registers");
       Hand::Type("preferencesSheet_entryFontSize", "12");
       Hand::Page(kPreferencePages, "Dates and Amounts");
       Hand::Choose("preferencesSheet_dateFormat", "Year-month-day");
       Hand::Page(kPreferencePages, "Schedules");
       Hand::Type("preferencesSheet_scheduleLookAhead", "3");
       Hand::Choose("preferencesSheet_scheduleLookAheadType", "Weeks");
       Hand::Page(kPreferencePages, "Speech");
       Hand::Type("preferencesSheet_pauseBetweenSpokenEntries", "2.25");
       Hand::Page(kPreferencePages, "Backups and Files");
       Hand::Type("preferencesSheet_backupInterval", "30");
       Hand::Choose("preferencesSheet_QIFExportDateFormat", "DD/MM/YYYY");
       Hand::Page(kPreferencePages, "Security");
       Hand::Type("preferencesSheet_Password_Field", "open");
       Hand::Type("preferencesSheet_PasswordAgain_Field", "open");
       TestWindow::Key(Qt::Key_Return);
       TestWindow::Key(Qt::Key_L, Qt::ControlModifier);
       EXPECT_EQ(hand.test.program->app().sheets().Current(), Sheet::Authentication);
       TestWindow::Type("Open");
       TestWindow::Key(Qt::Key_Return);
       Hand::Type("authenticationSheet_Password_Field", "open");
       TestWindow::Key(Qt::Key_Return);
       // The account is shown after that key.
       hand.test.Wait({});
     }},
    {R"(summary 1
summary 2
summary options 3
summary rename Weeks
summary set range="Last Quarter" periods=weeks show="tables and bars" deposits=no payees=no checks=no filter=description text=Week)",
     [](Hand& hand) {
       TestWindow::Key(Qt::Key_4, Qt::AltModifier);
       Hand::To("summary_Table");
       TestWindow::Key(Qt::Key_Home);
       TestWindow::Key(Qt::Key_Down);
       TestWindow::Key(Qt::Key_Down);
       hand.Order("AccountSummarySheet_Open");
       Hand::Type("accountSummarySheet_Name_Field", "Weeks");
       Hand::Choose("accountSummarySheet_DateRange_PopUp", "Last Quarter");
       Hand::Choose("accountSummarySheet_PeriodStyle_PopUp", "Weeks");
       Hand::Choose("accountSummarySheet_ShowStyle_PopUp", "Tables and Bars");
       Hand::Tick("accountSummarySheet_Deposits_CheckBox", false);
       Hand::Choose("accountSummarySheet_Checks_PopUp", "Non-Checks");
       Hand::Tick("accountSummarySheet_Filter_CheckBox");
       Hand::Choose("accountSummarySheet_FilterType_PopUp", "Description");
       Hand::Type("accountSummarySheet_FilterText_Field", "Week");
       Hand::Tick("accountSummarySheet_SubtotalToFroms_CheckBox", false);
       TestWindow::Key(Qt::Key_Return);
       TestWindow::Key(Qt::Key_1, Qt::AltModifier);
     }},
    {"export qif /home/user/march.qif scope=Cash format=MM/DD/YYYY",
     [](Hand& hand) {
       hand.test.panels.while_up = [&hand] {
         QtFilePanels panels;
         SetUpPanels(panels, hand.test.program->app());
         QTimer::singleShot(0, [] {
           Hand::Choose("exportAccounts_PopUp", "Cash");
           Hand::Choose("exportDateFormat_PopUp", "MM/DD/YYYY");
           Hand::Type("fileNameEdit", kMonthExport);
           TestWindow::Key(Qt::Key_Return);
         });
         const FilePanelRequest& request = hand.test.panels.SaveRequests().back();
         hand.test.panels.Answer(panels.Save(request));
       };
       hand.Order("ExportQIF");
       hand.test.panels.while_up = nullptr;
     }},
    // Back to where the month began.
    {"answer Restore\nbackup restore Accounts_2_22_2026_Before_2.0",
     [](Hand& hand) {
       hand.Order("About_Open");
       Hand::Press("aboutSheet_License_Button");
       TestWindow::Key(Qt::Key_Return);
       hand.Order("Backups_Open");
       Hand::Press("backupsSheet_BackUpNow_Button");
       // The copy is the last of the two.
       Hand::RowFromEnd("backupsSheet_Backups_Table", 1);
       hand.test.alerts.Answer("Restore");
       Hand::Press("backupsSheet_Restore_Button");
     }},
};

}  // namespace

std::span<const Step> SettingSteps() {
  return kSettingSteps;
}

}  // namespace tallyfold::desktop
