#include <gtest/gtest.h>

#include <functional>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/problem.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/application_lock.h"
#include "app/shell/preferences_sheet.h"
#include "app/test_application.h"
#include "app/views/account_summary_sheet.h"
#include "plist/writer.h"

namespace tallyfold {
namespace {

using Spoil = std::function<void(LDGRController&)>;

// One sheet, with what all sheets have in common.
struct SheetCase {
  const char* name;
  Sheet sheet;
  Area area;
  std::function<void(TestApplication&)> open;
  bool (*is_open)(LDGRController&);
  const std::optional<Problem>& (*problem)(LDGRController&);
  // Brings what OK refuses, in that field, and then another value there. Nothing can be mended of a
  // question whose subject has gone.
  Spoil spoil;
  const char* field;
  Spoil mend;
  bool (*ok)(LDGRController&);
  void (*cancel)(LDGRController&);
};

// Two accounts with a transfer between them, a scheduled entry that is due, and a debit.
void Prepare(TestApplication& test) {
  const auto other = test.AddAccount("B");
  test.AddAccount("A");
  test.AddTransferTo(*other, 5.0);
  test.AddDueSchedule();
  test.AddDebit(1.0, "Lunch");
}

template <typename SheetPart, typename Change>
void Type(SheetPart& sheet, const Change& change) {
  auto typed = sheet.State().typed;
  change(typed);
  sheet.Read(typed);
}

void RemoveSelected(LDGRController& app) {
  const auto account = app.desk().SelectedAccount();
  account->RemoveEntry(app.desk().SelectedEntry().get());
}

void AskForOther(TestApplication& test) {
  const auto other = test.app.desk().accounts().front();
  other->SetPassword("y");
  other->setAuthenticated(false);
  test.app.selection().Account_Select(other);
}

// What every row has, for a part of the application.
#define TALLYFOLD_IS_OPEN(part) [](LDGRController& app) { return app.part.is_open; }
#define TALLYFOLD_PROBLEM(part) \
  [](LDGRController& app) -> const std::optional<Problem>& { return app.part.problem; }
#define TALLYFOLD_OK(call) [](LDGRController& app) { return app.call; }
#define TALLYFOLD_CANCEL(call) [](LDGRController& app) { app.call; }

const SheetCase kSheets[] = {
    {"debit", Sheet::Debit, Area::DebitSheet,
     [](TestApplication& test) { test.app.entries().New(EntryKind::Debit); },
     TALLYFOLD_IS_OPEN(entries().Debit().State()), TALLYFOLD_PROBLEM(entries().Debit().State()),
     [](LDGRController& app) {
       Type(app.entries().Debit(), [](auto& typed) { typed.amount = std::nullopt; });
     },
     "debitSheet_Amount_Field",
     [](LDGRController& app) {
       Type(app.entries().Debit(), [](auto& typed) { typed.amount = 3.0; });
     },
     TALLYFOLD_OK(entries().Debit().OK()), TALLYFOLD_CANCEL(entries().Debit().Cancel())},
    {"debit, written into its entry", Sheet::Debit, Area::DebitSheet,
     [](TestApplication& test) { test.app.entries().Entry_Edit(); },
     TALLYFOLD_IS_OPEN(entries().Debit().State()), TALLYFOLD_PROBLEM(entries().Debit().State()),
     [](LDGRController& app) {
       Type(app.entries().Debit(), [](auto& typed) { typed.description = "Supper"; });
       app.entries().Debit().SaveValuesToEditEntry();
       Type(app.entries().Debit(), [](auto& typed) { typed.date = std::nullopt; });
       app.entries().Debit().SaveValuesToEditEntry();
     },
     "debitSheet_Date_Field",
     [](LDGRController& app) {
       Type(app.entries().Debit(), [](auto& typed) { typed.date = 20040302; });
     },
     TALLYFOLD_OK(entries().Debit().OK()), TALLYFOLD_CANCEL(entries().Debit().Cancel())},
    {"deposit", Sheet::Deposit, Area::DepositSheet,
     [](TestApplication& test) { test.app.entries().New(EntryKind::Deposit); },
     TALLYFOLD_IS_OPEN(entries().Deposit().State()), TALLYFOLD_PROBLEM(entries().Deposit().State()),
     [](LDGRController& app) {
       Type(app.entries().Deposit(), [](auto& typed) { typed.split[4].amount = std::nullopt; });
     },
     "depositSheet_Split_Table",
     [](LDGRController& app) {
       Type(app.entries().Deposit(), [](auto& typed) { typed.split[4].amount = 2.0; });
     },
     TALLYFOLD_OK(entries().Deposit().OK()), TALLYFOLD_CANCEL(entries().Deposit().Cancel())},
    {"transfer, written into its entry", Sheet::Transfer, Area::TransferSheet,
     [](TestApplication& test) {
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
       test.app.entries().Entry_Edit();
     },
     TALLYFOLD_IS_OPEN(entries().Transfer().State()),
     TALLYFOLD_PROBLEM(entries().Transfer().State()),
     [](LDGRController& app) {
       Type(app.entries().Transfer(), [](auto& typed) { typed.amount = 8.0; });
       app.entries().Transfer().SaveValuesToEditEntry();
       Type(app.entries().Transfer(), [](auto& typed) { typed.account = 9; });
     },
     "transferSheet_Account_PopUp",
     [](LDGRController& app) {
       Type(app.entries().Transfer(), [](auto& typed) { typed.account = 0; });
     },
     TALLYFOLD_OK(entries().Transfer().OK()), TALLYFOLD_CANCEL(entries().Transfer().Cancel())},
    {"entry removal", Sheet::EntryRemoveConfirm, Area::EntryRemoveSheet,
     [](TestApplication& test) { test.app.entryRemoval().EntryRemoveConfirm_Begin(); },
     TALLYFOLD_IS_OPEN(entryRemoval().Confirm()), TALLYFOLD_PROBLEM(entryRemoval().Confirm()),
     RemoveSelected, "", nullptr, TALLYFOLD_OK(entryRemoval().EntryRemoveConfirm_OK()),
     TALLYFOLD_CANCEL(entryRemoval().EntryRemoveConfirm_Cancel())},
    {"transfer removal", Sheet::TransferEntryRemoveConfirm, Area::TransferEntryRemoveSheet,
     [](TestApplication& test) {
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
       test.app.entryRemoval().TransferEntryRemoveConfirm_Begin();
     },
     TALLYFOLD_IS_OPEN(entryRemoval().Transfer()), TALLYFOLD_PROBLEM(entryRemoval().Transfer()),
     RemoveSelected, "", nullptr, TALLYFOLD_OK(entryRemoval().TransferEntryRemoveConfirm_No()),
     TALLYFOLD_CANCEL(entryRemoval().TransferEntryRemoveConfirm_Cancel())},
    {"schedule", Sheet::Schedule, Area::ScheduleSheet,
     [](TestApplication& test) { test.app.scheduleSheet().Edit(); },
     TALLYFOLD_IS_OPEN(scheduleSheet().State()), TALLYFOLD_PROBLEM(scheduleSheet().State()),
     [](LDGRController& app) {
       Type(app.scheduleSheet(), [](auto& typed) {
         typed.repeat_interval_type = 20;
         typed.repeat_interval = std::nullopt;
       });
     },
     "scheduleSheet_Every_Field",
     [](LDGRController& app) {
       Type(app.scheduleSheet(), [](auto& typed) { typed.repeat_interval = 3; });
     },
     TALLYFOLD_OK(scheduleSheet().OK()), TALLYFOLD_CANCEL(scheduleSheet().Cancel())},
    {"schedule removal", Sheet::ScheduleRemoveConfirm, Area::ScheduleRemoveSheet,
     [](TestApplication& test) { test.app.schedules().ScheduleRemoveConfirm_Begin(); },
     TALLYFOLD_IS_OPEN(schedules().Confirm()), TALLYFOLD_PROBLEM(schedules().Confirm()),
     [](LDGRController& app) {
       app.desk().SelectedAccount()->RemoveSchedule(app.desk().SelectedSchedule().get());
     },
     "", nullptr, TALLYFOLD_OK(schedules().ScheduleRemoveConfirm_OK()),
     TALLYFOLD_CANCEL(schedules().ScheduleRemoveConfirm_Cancel())},
    {"reminder", Sheet::ScheduleReminder, Area::ScheduleReminderSheet,
     [](TestApplication& test) { test.app.reminder().Open(); },
     TALLYFOLD_IS_OPEN(reminder().State()), TALLYFOLD_PROBLEM(reminder().State()),
     [](LDGRController& app) {
       app.reminder().Read({{true, 20040301, std::nullopt}});
     },
     "scheduleReminderSheet_Amount_Field",
     [](LDGRController& app) {
       app.reminder().Read({{true, 20040301, 7.0}});
     },
     TALLYFOLD_OK(reminder().CommitMarked()), TALLYFOLD_CANCEL(reminder().Later())},
    {"account", Sheet::AccountEdit, Area::AccountEditSheet,
     [](TestApplication& test) { test.app.accountSheet().Account_Edit(); },
     TALLYFOLD_IS_OPEN(accountSheet().State()), TALLYFOLD_PROBLEM(accountSheet().State()),
     [](LDGRController& app) {
       Type(app.accountSheet(), [](auto& typed) { typed.types[1].name = " "; });
     },
     "accountEditSheet_Types_Table",
     [](LDGRController& app) {
       Type(app.accountSheet(), [](auto& typed) { typed.types[1].name = "Card"; });
     },
     TALLYFOLD_OK(accountSheet().AccountEditSheet_OK()),
     TALLYFOLD_CANCEL(accountSheet().AccountEditSheet_Cancel())},
    {"summary options", Sheet::AccountSummary, Area::AccountSummarySheet,
     [](TestApplication& test) { test.app.summarySheet().Open(); },
     TALLYFOLD_IS_OPEN(summarySheet().State()), TALLYFOLD_PROBLEM(summarySheet().State()),
     [](LDGRController& app) {
       Type(app.summarySheet(), [](auto& typed) {
         typed.date_range = 20;
         typed.end = std::nullopt;
       });
     },
     "accountSummarySheet_End_Field",
     [](LDGRController& app) {
       Type(app.summarySheet(), [](auto& typed) { typed.end = 20040310; });
     },
     TALLYFOLD_OK(summarySheet().OK()), TALLYFOLD_CANCEL(summarySheet().Cancel())},
    {"password", Sheet::Authentication, Area::AuthenticationSheet,
     [](TestApplication& test) {
       test.app.applicationLock().setPassword("x");
       test.app.applicationLock().lock();
     },
     TALLYFOLD_IS_OPEN(applicationLock().State()), TALLYFOLD_PROBLEM(applicationLock().State()),
     [](LDGRController& app) { app.applicationLock().authenticationSheet_ValidatePassword("X"); },
     "authenticationSheet_Password_Field",
     [](LDGRController& app) { app.applicationLock().authenticationSheet_ValidatePassword("x"); },
     TALLYFOLD_OK(applicationLock().OK()), TALLYFOLD_CANCEL(applicationLock().Cancel())},
    {"password of an account", Sheet::AccountAuthentication, Area::AccountAuthenticationSheet,
     AskForOther, TALLYFOLD_IS_OPEN(accountPasswords().State()),
     TALLYFOLD_PROBLEM(accountPasswords().State()),
     [](LDGRController& app) {
       app.accountPasswords().accountAuthenticationSheet_ValidatePassword("");
     },
     "accountAuthenticationSheet_Password_Field",
     [](LDGRController& app) {
       app.accountPasswords().accountAuthenticationSheet_ValidatePassword("y");
     },
     TALLYFOLD_OK(accountPasswords().AccountAuthenticationSheet_OK()),
     TALLYFOLD_CANCEL(accountPasswords().AccountAuthenticationSheet_Cancel())},
    {"preferences", Sheet::Preferences, Area::PreferencesSheet,
     [](TestApplication& test) { test.app.preferencesSheet().Open(); },
     TALLYFOLD_IS_OPEN(preferencesSheet().State()), TALLYFOLD_PROBLEM(preferencesSheet().State()),
     [](LDGRController& app) {
       EXPECT_FALSE(app.preferencesSheet().Read("backupInterval", plist::Value()));
     },
     "preferencesSheet_backupInterval",
     [](LDGRController& app) { EXPECT_TRUE(app.preferencesSheet().Read("backupInterval", 3650)); },
     TALLYFOLD_OK(preferencesSheet().OK()), TALLYFOLD_CANCEL(preferencesSheet().Cancel())},
    {"application password", Sheet::Preferences, Area::PreferencesSheet,
     [](TestApplication& test) { test.app.preferencesSheet().Open(); },
     TALLYFOLD_IS_OPEN(preferencesSheet().State()), TALLYFOLD_PROBLEM(preferencesSheet().State()),
     [](LDGRController& app) { app.preferencesSheet().preferencesSheet_PasswordValidate("x", ""); },
     "preferencesSheet_PasswordAgain_Field",
     [](LDGRController& app) {
       app.preferencesSheet().preferencesSheet_PasswordValidate("x", "x");
     },
     TALLYFOLD_OK(preferencesSheet().OK()), TALLYFOLD_CANCEL(preferencesSheet().Cancel())},
    {"import options", Sheet::ImportOptions, Area::ImportOptionsSheet,
     [](TestApplication& test) {
       test.files.AddFile("/home/user/bank.qif", "!Type:Bank\nD3/1/04\nT-5.00\n^\n");
       test.panels.Answer("/home/user/bank.qif");
       test.app.importCommand().QIFImport();
     },
     TALLYFOLD_IS_OPEN(sharedQIFImportController().Options()),
     TALLYFOLD_PROBLEM(sharedQIFImportController().Options()),
     [](LDGRController& app) {
       auto typed = app.sharedQIFImportController().Options().typed;
       typed.date_format = kNoItem;
       app.sharedQIFImportController().ImportOptions_Read(typed);
     },
     "importOptions_DateFormat_PopUp",
     [](LDGRController& app) {
       auto typed = app.sharedQIFImportController().Options().typed;
       typed.date_format = 2;
       app.sharedQIFImportController().ImportOptions_Read(typed);
     },
     TALLYFOLD_OK(sharedQIFImportController().ImportOptions_OK()),
     TALLYFOLD_CANCEL(sharedQIFImportController().ImportOptions_Cancel())},
};

#undef TALLYFOLD_IS_OPEN
#undef TALLYFOLD_PROBLEM
#undef TALLYFOLD_OK
#undef TALLYFOLD_CANCEL

// All that a save would write.
std::string Stored(TestApplication& test) {
  std::string stored = test.app.applicationLock().password() + '\n';
  for (const auto& account : test.app.desk().accounts()) {
    stored += plist::ToXml(account->asDictionary());
  }
  return stored;
}

// What a sheet showed when it was first announced.
class Onlooker final : public FrontEnd {
 public:
  Onlooker(LDGRController& app, const SheetCase& sheet) : app_(app), sheet_(sheet) {}

  void Changed(Area area) override {
    if (area != Area::Sheet && area != sheet_.area) return;
    is_complete = is_complete && sheet_.is_open(app_) && app_.sheets().Current() == sheet_.sheet;
    ++times;
  }

  bool is_complete = true;
  int times = 0;

 private:
  LDGRController& app_;
  const SheetCase& sheet_;
};

class Sheets : public testing::TestWithParam<SheetCase> {
 protected:
  Sheets() { Prepare(test_); }

  LDGRController& app() { return test_.app; }

  TestApplication test_;
};

TEST_P(Sheets, AreCompleteWhenTheyAreAnnounced) {
  const SheetCase& sheet = GetParam();
  Onlooker onlooker(app(), sheet);
  app().SetFrontEnd(&onlooker);
  sheet.open(test_);
  EXPECT_TRUE(onlooker.is_complete);
  EXPECT_EQ(onlooker.times, 2) << "the sheet, and that one is open";
  app().SetFrontEnd(nullptr);
}

TEST_P(Sheets, NameTheFieldThatKeepsThemOpen) {
  const SheetCase& sheet = GetParam();
  sheet.open(test_);
  EXPECT_FALSE(sheet.problem(app()));
  sheet.spoil(app());
  const std::string before = Stored(test_);
  EXPECT_FALSE(sheet.ok(app()));
  EXPECT_FALSE(sheet.ok(app()));
  ASSERT_TRUE(sheet.problem(app()));
  EXPECT_EQ(sheet.problem(app())->field, sheet.field);
  EXPECT_TRUE(sheet.is_open(app()));
  EXPECT_EQ(Stored(test_), before);
  if (sheet.mend == nullptr) return sheet.cancel(app());
  sheet.mend(app());
  EXPECT_FALSE(sheet.problem(app()));
  EXPECT_TRUE(sheet.ok(app()));
}

TEST_P(Sheets, LeaveNothingWhenTheyAreCancelled) {
  const SheetCase& sheet = GetParam();
  sheet.open(test_);
  const std::string before = Stored(test_);
  if (sheet.mend != nullptr) {
    sheet.mend(app());
    sheet.spoil(app());
    EXPECT_FALSE(sheet.ok(app()));
  }
  sheet.cancel(app());
  EXPECT_FALSE(sheet.is_open(app()));
  EXPECT_EQ(app().sheets().Current(), Sheet::None);
  EXPECT_EQ(Stored(test_), before);
  sheet.cancel(app());
  EXPECT_EQ(Stored(test_), before);
  // It opens anew as if nothing had been typed.
  sheet.open(test_);
  EXPECT_FALSE(sheet.problem(app()));
}

TEST_P(Sheets, TakeASecondOKForNothing) {
  const SheetCase& sheet = GetParam();
  sheet.open(test_);
  if (sheet.mend != nullptr) sheet.mend(app());
  EXPECT_TRUE(sheet.ok(app()));
  EXPECT_FALSE(sheet.is_open(app()));
  const std::string after = Stored(test_);
  EXPECT_FALSE(sheet.ok(app()));
  sheet.cancel(app());
  EXPECT_EQ(Stored(test_), after);
}

std::string NameOf(const testing::TestParamInfo<SheetCase>& sheet) {
  std::string name = sheet.param.name;
  std::erase_if(name, [](char c) { return c == ' ' || c == ','; });
  return name;
}

INSTANTIATE_TEST_SUITE_P(Every, Sheets, testing::ValuesIn(kSheets), NameOf);

}  // namespace
}  // namespace tallyfold
