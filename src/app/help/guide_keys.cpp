#include <utility>

#include "app/commands/command.h"
#include "app/help/guide.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

struct MenuTitle {
  Menu menu;
  std::string_view title;  // English key
};

constexpr MenuTitle kMenuTitles[] = {
    {Menu::File, "File"},   {Menu::Edit, "Edit"},         {Menu::Account, "Account"},
    {Menu::Entry, "Entry"}, {Menu::Schedule, "Schedule"}, {Menu::Summary, "Summary"},
    {Menu::View, "View"},   {Menu::Help, "Help"},
};

struct PieceKey {
  std::string_view keys;
  std::string_view effect;  // English key
};

struct Piece {
  std::string_view title;  // English key
  std::vector<PieceKey> keys;
};

// What no command has: how the pieces of the window and their fields are used.
const std::vector<Piece>& Pieces() {
  static const std::vector<Piece> pieces = {
      {"Window",
       {{"F6, Shift+F6", "To the next or previous part of the window"},
        {"Ctrl+1 ... Ctrl+9", "To the account of that number"},
        {"Ctrl+PageUp, Ctrl+PageDown", "To the previous or next tab"},
        {"Alt", "With the underlined letter: opens a menu, or uses a control"}}},
      {"Search field", {{"Down, Return", "To the first row found"}, {"Escape", "Ends the search"}}},
      {"Tables",
       {{"Up, Down, PageUp, PageDown, Home, End", "Move; with Shift, select all between"},
        {"Ctrl+A", "Selects all rows"},
        {"Letters and digits", "Go to the row that begins so in the column it is sorted by"},
        {"Return", "Edits the row"},
        {"Delete", "Removes the rows selected"},
        {"Space", "Turns the mark over; in Reconcile it moves on"},
        {"Left, Right", "Show hidden columns"},
        {"Ctrl+C", "Copies the rows as a table"}}},
      {"Sheets",
       {{"Return", "OK"},
        {"Escape", "Closes a list that is open, else Cancel"},
        {"Tab", "Takes the completion that is shown, and goes on"},
        {"Ctrl+Return", "Takes the earlier entry that is suggested"},
        {"Down", "Opens the list of completions"}}},
      {"Dates",
       {{"Up, Down", "A day later or earlier"},
        {"+, -", "The same while the whole date is selected"},
        {"T", "Today"},
        {"Alt+Down", "Opens the calendar"}}},
      {"Amounts", {{"+, -", "Are worked out when the field is left: 12.50+3"}}},
  };
  return pieces;
}

// Of a command that opens a sheet, without the dots that say so.
std::string Effect(std::string_view title) {
  constexpr std::string_view kDots = "...";
  std::string effect = LocalizedText(title);
  if (effect.ends_with(kDots)) effect.resize(effect.size() - kDots.size());
  return effect;
}

}  // namespace

std::vector<GuideChapter::KeyGroup> GuideKeys() {
  std::vector<GuideChapter::KeyGroup> groups;
  for (const MenuTitle& menu : kMenuTitles) {
    GuideChapter::KeyGroup group{.title = LocalizedText(menu.title), .keys = {}};
    for (const Command* command : Commands()) {
      if (command->menu != menu.menu || command->shortcut.empty()) continue;
      group.keys.push_back({std::string(command->shortcut), Effect(command->title)});
    }
    if (!group.keys.empty()) groups.push_back(std::move(group));
  }
  for (const Piece& piece : Pieces()) {
    GuideChapter::KeyGroup group{.title = LocalizedText(piece.title), .keys = {}};
    for (const PieceKey& key : piece.keys)
      group.keys.push_back({std::string(key.keys), LocalizedText(key.effect)});
    groups.push_back(std::move(group));
  }
  return groups;
}

}  // namespace tallyfold
