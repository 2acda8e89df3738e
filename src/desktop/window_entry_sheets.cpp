#include "app/accounts/account_editing.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/amount_fields.h"
#include "app/entries/entry_editing.h"
#include "app/shell/text_editing.h"
#include "desktop/sheets/account_dialog.h"
#include "desktop/sheets/entry_dialog.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/sheets/transfer_dialog.h"
#include "desktop/texts.h"
#include "desktop/window_sheets.h"
#include "platform/message.h"

namespace tallyfold::desktop {

void SetUpEntrySheets(SheetHost& host, LDGRController& app) {
  host.Set(Sheet::Debit, [&app](QWidget* window) {
    EntrySheet& sheet = app.entries().Debit();
    return new EntryDialog(
        {.entries = app.entries(),
         .sheet = sheet,
         .desk = app.desk(),
         .speaking = app.amountFields().debit,
         .prefix = "debitSheet",
         .new_title = Text("New Debit"),
         .edit_title =
             [](const std::string& day) { return ToQString(Message("Debit of {1}", {day})); }},
        sheet, app.textEditing(), window);
  });
  host.Set(Sheet::Deposit, [&app](QWidget* window) {
    EntrySheet& sheet = app.entries().Deposit();
    return new EntryDialog(
        {.entries = app.entries(),
         .sheet = sheet,
         .desk = app.desk(),
         .speaking = app.amountFields().deposit,
         .prefix = "depositSheet",
         .new_title = Text("New Deposit"),
         .edit_title =
             [](const std::string& day) { return ToQString(Message("Deposit of {1}", {day})); }},
        sheet, app.textEditing(), window);
  });
  host.Set(Sheet::Transfer, [&app](QWidget* window) {
    TransferSheet& sheet = app.entries().Transfer();
    return new TransferDialog(
        {.entries = app.entries(),
         .sheet = sheet,
         .desk = app.desk(),
         .speaking = app.amountFields().transfer,
         .prefix = "transferSheet",
         .new_title = Text("New Transfer"),
         .edit_title =
             [](const std::string& day) { return ToQString(Message("Transfer of {1}", {day})); }},
        sheet, window);
  });
  host.Set(Sheet::AccountEdit, [&app](QWidget* window) {
    return new AccountDialog(app.accountSheet(), app.desk(), window);
  });
}

}  // namespace tallyfold::desktop
