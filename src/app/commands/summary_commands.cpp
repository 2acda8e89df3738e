#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/views/account_summary_sheet.h"
#include "app/views/account_summary_tab.h"

namespace tallyfold::command_tables {
namespace {

bool HasSummary(LDGRController& app) {
  return HasAccount(app) && app.desk().SelectedAccount()->selectedAccountSummary() != nullptr;
}
bool SheetIsOpen(LDGRController& app) {
  return app.summarySheet().State().is_open;
}

constexpr Command kCommands[] = {
    {.name = "AccountSummary_Add",
     .title = "New Summary",
     .menu = Menu::Summary,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.summaries().Add(); }},
    {.name = "AccountSummarySheet_Open",
     .title = "Summary Options...",
     .menu = Menu::Summary,
     .can = HasSummary,
     .run = [](LDGRController& app) { app.summarySheet().Open(); }},
    {.name = "AccountSummary_Duplicate",
     .title = "Duplicate Summary",
     .menu = Menu::Summary,
     .can = HasSummary,
     .run = [](LDGRController& app) { app.summaries().Duplicate(); }},
    {.name = "AccountSummary_Remove",
     .title = "Remove Summary",
     .menu = Menu::Summary,
     .can = HasSummary,
     .run = [](LDGRController& app) { app.summaries().Remove(); }},
    {.name = "AccountSummarySheet_OK",
     .can = SheetIsOpen,
     .run = [](LDGRController& app) { app.summarySheet().OK(); }},
    {.name = "AccountSummarySheet_Cancel",
     .can = SheetIsOpen,
     .run = [](LDGRController& app) { app.summarySheet().Cancel(); }},
};

}  // namespace

std::span<const Command> Summary() {
  return kCommands;
}

}  // namespace tallyfold::command_tables
