#include "app/commands/command_tables.h"
#include "app/commands/spoken_figures.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/shell/tabs.h"
#include "app/views/date_jump.h"
#include "app/views/shown_entries.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"
#include "registers/entry_speaker.h"

namespace tallyfold::command_tables {
namespace {

bool ShowsARegister(LDGRController& app) {
  return HasAccount(app) && app.tabs().ShownRegister() != RegisterKind::Other;
}
bool HidesAny(LDGRController& app) {
  return HasAccount(app) && app.shownEntries().HidesAny();
}
bool ShowsAnother(LDGRController& app, Tab tab) {
  return IsFree(app) && app.tabs().State().selected != tab;
}

void SpeakFigures(LDGRController& app) {
  const std::string figures = SpokenFigures(app);
  if (!figures.empty()) app.speaker().SpeakText(figures);
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
    {.name = "ShowAllEntries",
     .title = "Show All Entries",
     .menu = Menu::View,
     .can = HidesAny,
     .run = [](LDGRController& app) { app.shownEntries().ShowAll(); }},
    {.name = "DateJump_Open",
     .title = "Go to Date...",
     .shortcut = "Ctrl+G",
     .menu = Menu::View,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.dateJump().Open(); }},
    {.name = "SpeakFigures",
     .title = "Speak Figures",
     .shortcut = "Ctrl+B",
     .menu = Menu::View,
     .can = [](LDGRController& app) { return !SpokenFigures(app).empty(); },
     .run = SpeakFigures},
    {.name = "DateJump_Close",
     .can = [](LDGRController& app) { return app.dateJump().State().is_open; },
     .run = [](LDGRController& app) { app.dateJump().Close(); }},
};

}  // namespace

std::span<const Command> View() {
  return kViewCommands;
}

}  // namespace tallyfold::command_tables
