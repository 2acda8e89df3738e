#include "app/states.h"

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/accounts/accounts_drawer.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/transfer_linking.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/about_sheet.h"
#include "app/shell/application_lock.h"
#include "app/shell/backups_list.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "app/shell/print_sheet.h"
#include "app/shell/tabs.h"
#include "app/shell/update_check.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/date_jump.h"
#include "app/views/entry_find.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "model/account.h"

namespace tallyfold {
namespace {

constexpr std::int32_t kResolved = 80;  // type of the filter

void AddTwoAccounts(TestApplication& test) {
  test.AddAccount("B")->SetPassword("");
  test.AddAccount("A");
  test.app.applicationLock().setPassword("x");
}

void AddEntries(TestApplication& test) {
  AddTwoAccounts(test);
  test.AddTransferTo(*test.app.desk().accounts().front(), 5.0);
  test.AddDebit(1.0, "Lunch");
}

void AddSchedule(TestApplication& test) {
  AddTwoAccounts(test);
  test.AddDueSchedule();
}

void BeginImport(TestApplication& test) {
  test.files.AddFile("/home/user/bank.qif", "!Type:Bank\nD3/1/04\nT-5.00\n^\n");
  test.panels.Answer("/home/user/bank.qif");
  test.app.importCommand().QIFImport();
}

void BeginStatement(TestApplication& test) {
  test.files.AddFile("/home/user/bank.csv",
                     "Date,Payee,Amount,Balance\n2004-03-01,Shop,-5.00,9.00\n"
                     "2004-03-02,Shop,-2.00,7.00\n2004-03-03,Shop,-3.00,4.00\n");
  test.panels.Answer("/home/user/bank.csv");
  test.app.importCommand().QIFImport();
}

void Import(TestApplication& test) {
  AddTwoAccounts(test);
  BeginImport(test);
}

// In the account that is not selected, a deposit of what a file holds as a debit.
void AddDepositElsewhere(TestApplication& test) {
  const auto selected = test.app.desk().SelectedAccount();
  test.app.selection().Account_Select(test.app.desk().accounts().front());
  test.AddDebit(5.0)->SetDate(20040303);
  test.app.entryOrders().Entry_ChangeKind();
  test.app.selection().Account_Select(selected);
}

constexpr State kStates[] = {
    {"no account", [](TestApplication&) {}},
    {"one account", [](TestApplication& test) { test.AddAccount("A"); }},
    {"an account without entries", AddTwoAccounts},
    {"an entry is selected", AddEntries},
    {"half of a transfer is selected",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
     }},
    {"the account has a password",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectedAccount()->SetPassword("y");
       test.app.desk().SelectedAccount()->setAuthenticated(true);
     }},
    {"a scheduled entry is selected", AddSchedule},
    {"the schedule tab shows",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.tabs().Select(Tab::Schedule);
     }},
    {"the summary tab shows",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.tabs().Select(Tab::Summary);
     }},
    {"the debit sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().Entry_Edit();
     }},
    {"a suggestion stands in the debit sheet",
     [](TestApplication& test) {
       AddEntries(test);
       auto& sheet = test.app.entries().Debit();
       test.app.entries().New(EntryKind::Debit);
       auto typed = sheet.State().typed;
       typed.description = "Lunch";
       sheet.Read(typed);
       test.app.entries().SuggestForDescription();
     }},
    {"the deposit sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().New(EntryKind::Deposit);
     }},
    {"the transfer sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entries().New(EntryKind::Transfer);
     }},
    {"it asks before removing",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entryRemoval().EntryRemoveConfirm_Begin();
     }},
    {"it asks for the other half",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.desk().SelectEntry(test.app.desk().SelectedAccount()->GetEntries().front());
       test.app.entryRemoval().TransferEntryRemoveConfirm_Begin();
     }},
    {"the schedule sheet is open",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.scheduleSheet().Edit();
     }},
    {"it asks before removing a schedule",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.schedules().ScheduleRemoveConfirm_Begin();
     }},
    {"the reminder is open",
     [](TestApplication& test) {
       AddSchedule(test);
       test.app.reminder().Open();
     }},
    {"the reminder is open and empty",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.reminder().Open();
     }},
    {"the account sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.accountSheet().Account_Edit();
     }},
    {"the account sheet has no name",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.accountSheet().Account_Edit();
       auto typed = test.app.accountSheet().State().typed;
       typed.name = "";
       test.app.accountSheet().Read(typed);
     }},
    {"the summary sheet is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.summarySheet().Open();
     }},
    {"the preferences are open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.preferencesSheet().Open();
     }},
    {"the backups show",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.backups().BackUpNow();
       test.app.backupsSheet().Open();
       test.app.backupsSheet().Compare();
     }},
    {"it tells about itself, and an entry of another account may be the other half",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       AddDepositElsewhere(test);
       test.AddDebit(5.0);
       test.app.about().Open();
     }},
    {"pages are about to be printed",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.printSheet().Open();
     }},
    {"the passwords in the preferences differ",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.preferencesSheet().Open();
       test.app.preferencesSheet().preferencesSheet_PasswordValidate("a", "b");
     }},
    {"the options of an import are open", Import},
    {"the options of a bank's file are open",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       BeginStatement(test);
     }},
    {"a row of a bank's file is matched",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       test.AddDebit(5.0)->SetDate(20040303);
       BeginStatement(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
       test.app.sharedQIFImportController().ImportEntry_Match();
       test.app.sharedQIFImportController().Import_TakeBalance(true);
     }},
    {"an import is under review",
     [](TestApplication& test) {
       Import(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
     }},
    {"it is locked",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.applicationLock().lock();
     }},
    {"it is locked, and the password is typed",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.applicationLock().lock();
       test.app.applicationLock().authenticationSheet_ValidatePassword("x");
     }},
    {"an account asks for its password",
     [](TestApplication& test) {
       AddEntries(test);
       const auto other = test.app.desk().accounts().front();
       other->SetPassword("y");
       other->setAuthenticated(false);
       test.app.selection().Account_Select(other);
     }},
    {"a filter hides all entries",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.search().Filter_Select(kResolved);
     }},
    {"an entry of another account may be the other half",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       AddDepositElsewhere(test);
       test.AddDebit(5.0);
     }},
    {"an import has brought half of a transfer",
     [](TestApplication& test) {
       AddTwoAccounts(test);
       AddDepositElsewhere(test);
       BeginImport(test);
       test.app.sharedQIFImportController().ImportOptions_OK();
       test.app.sharedQIFImportController().Import_OK();
     }},
    {"what was found and the field for a day show",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.entryFind().Open();
       test.app.dateJump().Open();
     }},
    {"the update window is open",
     [](TestApplication& test) {
       AddEntries(test);
       test.app.updates().CheckForUpdates();
     }},
};

// --- Orders -------------------------------------------------------------------------------------

// All entries of the selected account; none without one.
EntryList AllEntries(LDGRController& app) {
  const auto account = app.desk().SelectedAccount();
  return account != nullptr ? account->GetEntries() : EntryList();
}

// An account that is not selected; null for none.
std::shared_ptr<LDGRAccount> Another(LDGRController& app) {
  for (const auto& account : app.desk().accounts()) {
    if (account != app.desk().SelectedAccount()) return account;
  }
  return nullptr;
}

LDGRQIFImportController& ImportOf(LDGRController& app) {
  return app.sharedQIFImportController();
}

constexpr TypedOrder kTypedOrders[] = {
    {"locks another account",
     [](LDGRController& app) { app.accountPasswords().Account_Lock(Another(app)); }},
    {"locks the selected account",
     [](LDGRController& app) {
       app.accountPasswords().Account_Lock(app.desk().SelectedAccount());
     }},
    {"selects another account",
     [](LDGRController& app) { app.selection().Account_Select(Another(app)); }},
    {"clicks the first row of the accounts",
     [](LDGRController& app) { app.accountsDrawer().accountsDrawer_Accounts_Table_Action(0); }},
    {"opens the first row of the accounts",
     [](LDGRController& app) {
       app.accountsDrawer().accountsDrawer_Accounts_Table_DoubleClick(0);
     }},
    {"sorts the accounts",
     [](LDGRController& app) { app.accountsDrawer().ClickedTableColumn("accounts"); }},
    {"closes the drawer", [](LDGRController& app) { app.accountsDrawer().drawerDidClose(); }},
    {"selects the first entry",
     [](LDGRController& app) {
       if (!AllEntries(app).empty()) app.desk().SelectEntry(AllEntries(app).front());
     }},
    {"sorts the register",
     [](LDGRController& app) {
       app.registers().currentTableDataSource().ClickedTableColumn("amount");
     }},
    {"hides a column",
     [](LDGRController& app) {
       app.registers().currentTableDataSource().HideTableColumnWithIdentifier("description");
     }},
    {"chooses a filter", [](LDGRController& app) { app.search().Filter_Select(kResolved); }},
    {"chooses another balance",
     [](LDGRController& app) { app.balanceField().AccountBalance_PopUp(2); }},
    {"types the statement balance",
     [](LDGRController& app) { app.reconcileTab().StatementBalance_EndEditing(12.5); }},
    {"goes to a day", [](LDGRController& app) { app.dateJump().Go(20040301); }},
    {"finds in all accounts", [](LDGRController& app) { app.entryFind().Find("Lunch"); }},
    {"shows what was found",
     [](LDGRController& app) {
       app.entryFind().Find("5.00");
       app.entryFind().Show(0);
     }},
    {"clears all",
     [](LDGRController& app) { app.entryOrders().SetCleared(AllEntries(app), true); }},
    {"gives all a type",
     [](LDGRController& app) { app.entryOrders().SetType(AllEntries(app), 1); }},
    {"moves the last entry",
     [](LDGRController& app) {
       const auto other = Another(app);
       if (other == nullptr || AllEntries(app).empty()) return;
       app.entryOrders().MoveTo({AllEntries(app).back()}, other->GetNumber());
     }},
    {"links the selected entry",
     [](LDGRController& app) {
       const auto other = Another(app);
       if (other == nullptr || other->GetEntries().empty()) return;
       app.transferLinking().Link(other, other->GetEntries().back());
     }},
    {"asks before removing all",
     [](LDGRController& app) { app.entryRemoval().EntriesRemoveConfirm_Begin(AllEntries(app)); }},
    {"removes the scheduled entry", [](LDGRController& app) { app.schedules().Schedule_Delete(); }},
    {"sorts the scheduled entries",
     [](LDGRController& app) { app.schedules().Rows().ClickedTableColumn("amount"); }},
    {"marks all that is due", [](LDGRController& app) { app.reminder().MarkAll(false); }},
    {"looks further ahead",
     [](LDGRController& app) { app.reminder().scheduleReminderSheet_LookAhead("40"); }},
    {"looks ahead by weeks", [](LDGRController& app) { app.reminder().LookAheadType(1); }},
    {"chooses a balance of what is due",
     [](LDGRController& app) { app.reminder().BalanceModeChosen(1); }},
    {"renames the summary", [](LDGRController& app) { app.summaries().Rename("By week"); }},
    {"shows the entries of a line", [](LDGRController& app) { app.summaries().ShowEntries({}); }},
    {"chooses a tab of the preferences",
     [](LDGRController& app) { app.preferencesSheet().SelectTab("security"); }},
    {"sets a preference",
     [](LDGRController& app) { app.preferencesSheet().Read("dateFormat", 1); }},
    {"takes the usual appearance",
     [](LDGRController& app) { app.preferencesSheet().DefaultAppearanceSettings(); }},
    {"selects no backup", [](LDGRController& app) { app.backupsSheet().SelectBackup(-1); }},
    {"selects an account of a backup",
     [](LDGRController& app) { app.backupsSheet().SelectAccount(1); }},
    {"swaps what is imported",
     [](LDGRController& app) {
       ImportOf(app).ImportOptions_SwapOptions(LDGRQIFImportController::SwapPopUp::Memos,
                                               QifOptions::kType);
     }},
    {"chooses how a bank's file is read",
     [](LDGRController& app) {
       auto typed = ImportOf(app).StatementOptions().typed;
       typed.choices.csv.encoding = TextEncoding::Latin1;
       typed.choices.csv.has_heading = false;
       ImportOf(app).StatementOptions_Read(typed);
     }},
    {"takes all out of the import",
     [](LDGRController& app) { ImportOf(app).ImportEntry_ImportAll(); }},
    {"takes rows out of the import",
     [](LDGRController& app) { ImportOf(app).MarkEntries(ImportOf(app).entries(), false); }},
    {"clears rows of the import",
     [](LDGRController& app) { ImportOf(app).TurnClearedOver(ImportOf(app).entries()); }},
    {"matches rows of the import no more",
     [](LDGRController& app) { ImportOf(app).MatchEntries(ImportOf(app).entries(), false); }},
    {"removes rows of the import",
     [](LDGRController& app) { ImportOf(app).RemoveEntries(ImportOf(app).entries()); }},
    {"selects a row of the import",
     [](LDGRController& app) {
       if (ImportOf(app).IsReviewing()) ImportOf(app).SelectEntry(ImportOf(app).entries().front());
     }},
    {"sorts the import", [](LDGRController& app) { ImportOf(app).ClickedTableColumn("amount"); }},
    {"takes no balance", [](LDGRController& app) { ImportOf(app).Import_TakeBalance(false); }},
};

}  // namespace

std::span<const State> States() {
  return kStates;
}

std::span<const TypedOrder> TypedOrders() {
  return kTypedOrders;
}

void AgreeTo(TestApplication& test, std::string_view command) {
  test.alerts.Answer(command == "Account_Remove"    ? "Remove"
                     : command == "Backups_Restore" ? "Restore"
                                                    : "OK");
}

}  // namespace tallyfold
