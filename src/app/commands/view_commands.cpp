#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/shell/tabs.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"

namespace tallyfold::command_tables {
namespace {

bool ShowsARegister(LDGRController& app) {
  return HasAccount(app) && app.tabs().ShownRegister() != RegisterKind::Other;
}
bool ShowsAnother(LDGRController& app, Tab tab) {
  return IsFree(app) && app.tabs().State().selected != tab;
}

constexpr Command kViewCommands[] = {
    {.name = "entry_MenuItem",
     .title = "Entry",
     .shortcut = "Alt+1",
     .menu = Menu::View,
     .can = IsFree,
     .run = [](LDGRController& app) { app.tabs().entry_MenuItem(); }},
    {.name = "reconcile_MenuItem",
     .title = "Reconcile",
     .shortcut = "Alt+2",
     .menu = Menu::View,
     .can = IsFree,
     .run = [](LDGRController& app) { app.tabs().reconcile_MenuItem(); }},
    {.name = "ScheduleTab_Select",
     .title = "Schedule",
     .shortcut = "Alt+3",
     .menu = Menu::View,
     .can = [](LDGRController& app) { return ShowsAnother(app, Tab::Schedule); },
     .run = [](LDGRController& app) { app.tabs().Select(Tab::Schedule); }},
    {.name = "AccountSummaryTab_Select",
     .title = "Summary",
     .shortcut = "Alt+4",
     .menu = Menu::View,
     .can = [](LDGRController& app) { return ShowsAnother(app, Tab::Summary); },
     .run = [](LDGRController& app) { app.tabs().Select(Tab::Summary); }},
    {.name = "Search_Cancel",
     .title = "Cancel Search",
     .menu = Menu::View,
     .controls = "search_Cancel_Button",
     .can = ShowsARegister,
     .run = [](LDGRController& app) { app.search().Search_Cancel(); }},
};

}  // namespace

std::span<const Command> View() {
  return kViewCommands;
}

}  // namespace tallyfold::command_tables
