#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/entries/entry_editing.h"
#include "app/face/sheet_slot.h"

namespace tallyfold::command_tables {
namespace {

bool DebitIsOpen(LDGRController& app) {
  return app.sheets().Current() == Sheet::Debit;
}
bool DepositIsOpen(LDGRController& app) {
  return app.sheets().Current() == Sheet::Deposit;
}
bool TransferIsOpen(LDGRController& app) {
  return app.sheets().Current() == Sheet::Transfer;
}
bool DebitHasSuggestion(LDGRController& app) {
  return DebitIsOpen(app) && app.entries().Debit().State().suggestion.has_value();
}
bool DepositHasSuggestion(LDGRController& app) {
  return DepositIsOpen(app) && app.entries().Deposit().State().suggestion.has_value();
}

// What the buttons of the sheets for entries do. The fields are read before.
constexpr Command kEntrySheetCommands[] = {
    {.name = "DebitSheet_Populate",
     .can = DebitIsOpen,
     .run =
         [](LDGRController& app) {
           if (DebitIsOpen(app)) app.entries().Debit().Populate();
         }},
    {.name = "DebitSheet_OK",
     .controls = "debitSheet_OK_Button",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().OK(); }},
    {.name = "DebitSheet_Cancel",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().Cancel(); }},
    {.name = "DebitSheet_Debit",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().OKThenNew(EntryKind::Debit); }},
    {.name = "DebitSheet_Deposit",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().OKThenNew(EntryKind::Deposit); }},
    {.name = "DebitSheet_Transfer",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().OKThenNew(EntryKind::Transfer); }},
    {.name = "DebitSheet_ClearSplit",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().ClearSplit(); }},
    {.name = "DebitSheet_Split_ClearSplit",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().Split_ClearSplit(); }},
    {.name = "DebitSheet_Split_UpdateTotal",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().Split_UpdateTotal(); }},
    {.name = "DebitSheet_Split_Table_Field",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().Debit().Split_Table_Field(); }},
    {.name = "DebitSheet_TakeSuggestion",
     .can = DebitHasSuggestion,
     .run = [](LDGRController& app) { app.entries().Debit().TakeSuggestion(); }},
    {.name = "debitSheet_CheckNumber_Button",
     .can = DebitIsOpen,
     .run = [](LDGRController& app) { app.entries().CheckNumber_Button(); }},
    {.name = "DepositSheet_Populate",
     .can = DepositIsOpen,
     .run =
         [](LDGRController& app) {
           if (DepositIsOpen(app)) app.entries().Deposit().Populate();
         }},
    {.name = "DepositSheet_OK",
     .controls = "depositSheet_OK_Button",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().OK(); }},
    {.name = "DepositSheet_Cancel",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().Cancel(); }},
    {.name = "DepositSheet_Debit",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().OKThenNew(EntryKind::Debit); }},
    {.name = "DepositSheet_Deposit",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().OKThenNew(EntryKind::Deposit); }},
    {.name = "DepositSheet_Transfer",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().OKThenNew(EntryKind::Transfer); }},
    {.name = "DepositSheet_ClearSplit",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().ClearSplit(); }},
    {.name = "DepositSheet_Split_ClearSplit",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().Split_ClearSplit(); }},
    {.name = "DepositSheet_Split_UpdateTotal",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().Split_UpdateTotal(); }},
    {.name = "DepositSheet_Split_Table_Field",
     .can = DepositIsOpen,
     .run = [](LDGRController& app) { app.entries().Deposit().Split_Table_Field(); }},
    {.name = "DepositSheet_TakeSuggestion",
     .can = DepositHasSuggestion,
     .run = [](LDGRController& app) { app.entries().Deposit().TakeSuggestion(); }},
    {.name = "TransferSheet_Populate",
     .can = TransferIsOpen,
     .run =
         [](LDGRController& app) {
           if (TransferIsOpen(app)) app.entries().Transfer().Populate();
         }},
    {.name = "TransferSheet_OK",
     .controls = "transferSheet_OK_Button",
     .can = TransferIsOpen,
     .run = [](LDGRController& app) { app.entries().Transfer().OK(); }},
    {.name = "TransferSheet_Cancel",
     .can = TransferIsOpen,
     .run = [](LDGRController& app) { app.entries().Transfer().Cancel(); }},
    {.name = "TransferSheet_Debit",
     .can = TransferIsOpen,
     .run = [](LDGRController& app) { app.entries().Transfer().OKThenNew(EntryKind::Debit); }},
    {.name = "TransferSheet_Deposit",
     .can = TransferIsOpen,
     .run = [](LDGRController& app) { app.entries().Transfer().OKThenNew(EntryKind::Deposit); }},
    {.name = "TransferSheet_Transfer",
     .can = TransferIsOpen,
     .run = [](LDGRController& app) { app.entries().Transfer().OKThenNew(EntryKind::Transfer); }},
};

}  // namespace

std::span<const Command> EntrySheets() {
  return kEntrySheetCommands;
}

}  // namespace tallyfold::command_tables
