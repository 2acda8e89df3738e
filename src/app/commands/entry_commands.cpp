#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/entry_reveal.h"
#include "app/entries/transfer_linking.h"
#include "app/face/sheet_slot.h"
#include "app/shell/tabs.h"
#include "app/views/reconcile_tab.h"
#include "app/views/registers.h"
#include "ledger/transfer_links.h"
#include "registers/entry_speaker.h"

namespace tallyfold::command_tables {
namespace {

bool HasEntryWithSheet(LDGRController& app) {
  if (!HasEntry(app)) return false;
  const auto entry = app.desk().SelectedEntry();
  return entry->IsDebit() || entry->IsDeposit() || entry->IsTransfer();
}
bool HasOtherHalf(LDGRController& app) {
  return HasEntry(app) &&
         app.transferLinks().Transfer_LinkedEntry(app.desk().SelectedEntry().get()) != nullptr;
}
bool CanReadAloud(LDGRController& app) {
  return HasEntry(app) && app.tabs().ShownRegister() != RegisterKind::Other;
}
bool CanReadAllAloud(LDGRController& app) {
  return HasAccount(app) && app.tabs().ShownRegister() != RegisterKind::Other &&
         app.registers().currentTableDataSource().numberOfRowsInTableView() > 0;
}
bool HasHiddenEntry(LDGRController& app) {
  return HasAccount(app) && !app.entryReveal().State().text.empty();
}
bool CanChangeKind(LDGRController& app) {
  return HasEntry(app) && app.entryOrders().CanChangeKind();
}
bool CanLink(LDGRController& app) {
  return HasEntry(app) && app.transferLinking().CanLink();
}
bool HasLinkOffers(LDGRController& app) {
  return IsFree(app) && !app.transferLinking().State().offers.empty();
}
bool AsksToRemoveEntry(LDGRController& app) {
  return app.entryRemoval().Confirm().is_open;
}
bool AsksForOtherHalf(LDGRController& app) {
  return app.entryRemoval().Transfer().is_open;
}

EditSheet* OpenEntrySheet(LDGRController& app) {
  switch (app.sheets().Current()) {
    case Sheet::Debit:
      return &app.entries().Debit();
    case Sheet::Deposit:
      return &app.entries().Deposit();
    case Sheet::Transfer:
      return &app.entries().Transfer();
    default:
      return nullptr;
  }
}
bool EntrySheetIsOpen(LDGRController& app) {
  return OpenEntrySheet(app) != nullptr;
}
void OKThenNew(LDGRController& app, EntryKind kind) {
  if (EditSheet* sheet = OpenEntrySheet(app)) sheet->OKThenNew(kind);
}

// Those that go on from an open sheet have the keys of those that begin without one: it is never
// both that can run.
constexpr Command kEntryCommands[] = {
    {.name = "Entry_Debit",
     .title = "New Debit...",
     .shortcut = "Ctrl+D",
     .menu = Menu::Entry,
     .controls = "debitEntry_Button debitEntry_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { app.entries().New(EntryKind::Debit); }},
    {.name = "Entry_Deposit",
     .title = "New Deposit...",
     .shortcut = "Ctrl++",
     .menu = Menu::Entry,
     .controls = "depositEntry_Button depositEntry_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { app.entries().New(EntryKind::Deposit); }},
    {.name = "Entry_Transfer",
     .title = "New Transfer...",
     .shortcut = "Ctrl+T",
     .menu = Menu::Entry,
     .controls = "transferEntry_Button transferEntry_MenuItem",
     .can = HasAccount,
     .run = [](LDGRController& app) { app.entries().New(EntryKind::Transfer); }},
    {.name = "OKThenNewDebit",
     .title = "OK, Then New Debit...",
     .shortcut = "Ctrl+D",
     .menu = Menu::Entry,
     .can = EntrySheetIsOpen,
     .run = [](LDGRController& app) { OKThenNew(app, EntryKind::Debit); }},
    {.name = "OKThenNewDeposit",
     .title = "OK, Then New Deposit...",
     .shortcut = "Ctrl++",
     .menu = Menu::Entry,
     .can = EntrySheetIsOpen,
     .run = [](LDGRController& app) { OKThenNew(app, EntryKind::Deposit); }},
    {.name = "OKThenNewTransfer",
     .title = "OK, Then New Transfer...",
     .shortcut = "Ctrl+T",
     .menu = Menu::Entry,
     .can = EntrySheetIsOpen,
     .run = [](LDGRController& app) { OKThenNew(app, EntryKind::Transfer); }},
    {.name = "Entry_Edit",
     .title = "Edit...",
     .shortcut = "Ctrl+E",
     .menu = Menu::Entry,
     .controls = "currentTableDataSource_DoubleClick",
     .can = HasEntryWithSheet,
     .run = [](LDGRController& app) { app.entries().Entry_Edit(); }},
    {.name = "EntryRemoveConfirm_Begin",
     .title = "Remove",
     .shortcut = "Del",
     .menu = Menu::Entry,
     .can = HasEntry,
     .run = [](LDGRController& app) { app.entryRemoval().EntryRemoveConfirm_Begin(); }},
    {.name = "Entry_Duplicate",
     .title = "Duplicate Entry",
     .shortcut = "Ctrl+Shift+D",
     .menu = Menu::Entry,
     .can = HasEntry,
     .run = [](LDGRController& app) { app.entryOrders().Entry_Duplicate(); }},
    {.name = "Entry_ChangeKind",
     .title = "Change Kind",
     .menu = Menu::Entry,
     .can = CanChangeKind,
     .run = [](LDGRController& app) { app.entryOrders().Entry_ChangeKind(); }},
    {.name = "Entry_Link",
     .title = "Link as Transfer",
     .menu = Menu::Entry,
     .can = CanLink,
     .run = [](LDGRController& app) { app.transferLinking().Entry_Link(); }},
    {.name = "LinkOffered",
     .title = "Link Imported Transfers",
     .menu = Menu::Entry,
     .can = HasLinkOffers,
     .run = [](LDGRController& app) { app.transferLinking().LinkOffered(); }},
    {.name = "DropLinkOffers",
     .can = HasLinkOffers,
     .run = [](LDGRController& app) { app.transferLinking().DropOffers(); }},
    {.name = "currentTableDataSource_Cleared_CheckBox",
     .title = "Resolved",
     .menu = Menu::Entry,
     .can = HasEntry,
     .run = [](LDGRController& app) { app.entries().TurnClearedOver(app.desk().SelectedEntry()); }},
    {.name = "TurnClearedOverAndMoveOn",
     .shortcut = "Space",
     .can = HasEntry,
     .run = [](LDGRController& app) { app.reconcileTab().TurnClearedOverAndMoveOn(); }},
    {.name = "ShowOtherHalf",
     .title = "Show Other Half",
     .menu = Menu::Entry,
     .can = HasOtherHalf,
     .run = [](LDGRController& app) { app.entryReveal().ShowOtherHalf(); }},
    {.name = "SpeakEntry",
     .title = "Speak Entry",
     .menu = Menu::Entry,
     .can = HasEntry,
     .run =
         [](LDGRController& app) { app.speaker().SpeakEntry(app.desk().SelectedEntry().get()); }},
    {.name = "StartSpeakingEntries",
     .title = "Speak Entries",
     .menu = Menu::Entry,
     .can = CanReadAloud,
     .run = [](LDGRController& app) { app.speaker().StartSpeakingEntries(); }},
    {.name = "SpeakEntries",
     .title = "Speak All Entries",
     .menu = Menu::Entry,
     .can = CanReadAllAloud,
     .run = [](LDGRController& app) { app.speaker().SpeakEntries(); }},
    {.name = "ShowHiddenEntry",
     .can = HasHiddenEntry,
     .run = [](LDGRController& app) { app.entryReveal().ShowHiddenEntry(); }},
    {.name = "EntryRemoveConfirm_OK",
     .can = AsksToRemoveEntry,
     .run = [](LDGRController& app) { app.entryRemoval().EntryRemoveConfirm_OK(); }},
    {.name = "EntryRemoveConfirm_Cancel",
     .can = AsksToRemoveEntry,
     .run = [](LDGRController& app) { app.entryRemoval().EntryRemoveConfirm_Cancel(); }},
    {.name = "TransferEntryRemoveConfirm_Yes",
     .can = AsksForOtherHalf,
     .run = [](LDGRController& app) { app.entryRemoval().TransferEntryRemoveConfirm_Yes(); }},
    {.name = "TransferEntryRemoveConfirm_No",
     .can = AsksForOtherHalf,
     .run = [](LDGRController& app) { app.entryRemoval().TransferEntryRemoveConfirm_No(); }},
    {.name = "TransferEntryRemoveConfirm_Cancel",
     .can = AsksForOtherHalf,
     .run = [](LDGRController& app) { app.entryRemoval().TransferEntryRemoveConfirm_Cancel(); }},
};

}  // namespace

std::span<const Command> Entry() {
  return kEntryCommands;
}

}  // namespace tallyfold::command_tables
