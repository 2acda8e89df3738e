#include "desktop/entry_actions.h"

#include <QAction>
#include <QMenu>
#include <algorithm>
#include <string>
#include <utility>

#include "app/desk.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_removal.h"
#include "app/entries/transfer_linking.h"
#include "app/shell/menus.h"
#include "desktop/command_actions.h"
#include "desktop/texts.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

// More than these nobody looks through in a menu.
constexpr std::size_t kMostOtherHalves = 12;

QString TitleOfPair(const TransferPair& pair, const TableFormat& format) {
  QStringList words{ToQString(DayCell(pair.other->GetDate(), format).text),
                    ToQString(pair.other_account->GetName()).simplified()};
  if (!pair.other->GetDescription().empty()) {
    words.append(ToQString(pair.other->GetDescription()).simplified());
  }
  words.append(ToQString(RegisterAmountText(pair.other->GetAmount(), format.preferences)));
  return words.join(QLatin1String("  "));
}

void EndFilling(QMenu& menu) {
  AssignMnemonics(menu);
  menu.menuAction()->setEnabled(!menu.isEmpty());
}

}  // namespace

EntryActions::EntryActions(const Parts& parts, CommandActions& actions,
                           std::function<EntryList()> selected)
    : parts_(parts), selected_(std::move(selected)) {
  actions.RunInstead("EntryRemoveConfirm_Begin", [this] {
    const EntryList entries = Several();
    if (entries.empty()) return false;
    parts_.removal.EntriesRemoveConfirm_Begin(entries);
    return true;
  });
  actions.RunInstead("currentTableDataSource_Cleared_CheckBox", [this] {
    const EntryList entries = Several();
    if (entries.empty()) return false;
    const bool are_all_set = std::all_of(entries.begin(), entries.end(),
                                         [](const auto& entry) { return entry->GetCleared(); });
    parts_.orders.SetCleared(entries, !are_all_set);
    return true;
  });
}

EntryList EntryActions::Several() const {
  EntryList entries = selected_();
  if (entries.size() < 2) entries.clear();
  return entries;
}

void EntryActions::SetType(std::int32_t tag) {
  if (!parts_.menus.AreOn()) return;
  const EntryList entries = Several();
  if (entries.empty()) {
    parts_.menus.entryMenu_Types_MenuItem(tag);
  } else {
    parts_.orders.SetType(entries, tag);
  }
}

void EntryActions::FillTypes(QMenu& menu) {
  menu.clear();
  for (const MenuItem& item : parts_.menus.EntryTypeMenu()) {
    if (item.is_separator) {
      menu.addSeparator();
      continue;
    }
    QAction* action = menu.addAction(QString());
    SetTitle(*action, ToQString(item.title));
    action->setCheckable(true);
    action->setChecked(item.is_checked);
    action->setEnabled(item.is_enabled);
    QObject::connect(action, &QAction::triggered, &menu, [this, tag = item.tag] { SetType(tag); });
  }
  EndFilling(menu);
}

void EntryActions::FillAccounts(QMenu& menu) {
  menu.clear();
  const bool can_move = parts_.menus.AreOn() && parts_.desk.SelectedEntry() != nullptr;
  for (const PopUpItem& item : can_move ? parts_.orders.AccountItems() : std::vector<PopUpItem>()) {
    QAction* action = menu.addAction(QString());
    SetTitle(*action, ToQString(item.title));
    action->setEnabled(item.is_enabled);
    QObject::connect(action, &QAction::triggered, &menu, [this, number = item.tag] {
      if (parts_.menus.AreOn()) parts_.orders.MoveTo(selected_(), number);
    });
  }
  EndFilling(menu);
}

void EntryActions::FillOtherHalves(QMenu& menu) {
  menu.clear();
  const bool can_link = parts_.menus.AreOn() && parts_.desk.SelectedEntry() != nullptr;
  const auto pairs = can_link ? parts_.linking.Candidates() : std::vector<TransferPair>();
  const std::string days = RegisterDateFormat(parts_.desk.preferences());
  const TableFormat format{days, parts_.desk.preferences()};
  for (std::size_t i = 0; i < std::min(pairs.size(), kMostOtherHalves); ++i) {
    QAction* action = menu.addAction(QString());
    SetTitle(*action, TitleOfPair(pairs[i], format));
    QObject::connect(action, &QAction::triggered, &menu,
                     [this, account = pairs[i].other_account, entry = pairs[i].other] {
                       if (parts_.menus.AreOn()) parts_.linking.Link(account, entry);
                     });
  }
  EndFilling(menu);
}

}  // namespace tallyfold::desktop
