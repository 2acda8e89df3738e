#include "app/shell/menus.h"

#include "app/entries/entry_kinds.h"
#include "ledger/change.h"
#include "model/entry_type.h"

namespace tallyfold {
namespace {

void AddTypes(const EntryTypeList& types, const LDGRAccountEntry* entry,
              std::vector<MenuItem>& items) {
  for (const auto& type : types) {
    const bool can_take = entry != nullptr && CanTake(*entry, *type);
    items.push_back({type->GetName(), type->GetNumber(), can_take,
                     can_take && entry->GetType() == type->GetNumber()});
  }
}

}  // namespace

bool Menus::AreOn() const noexcept {
  return desk_.IsUnlocked() && sheets_.IsFree() && !modal_.IsUp();
}

std::vector<MenuItem> Menus::AccountMenu() const {
  std::vector<MenuItem> items;
  if (!desk_.IsUnlocked()) return items;
  const auto selected = desk_.SelectedAccount();
  for (const auto& account : desk_.accounts()) {
    items.push_back({account->GetName(), account->GetNumber(), true, account == selected});
  }
  return items;
}

void Menus::Account_Menu_Show_MenuItem(std::int32_t tag) {
  if (const auto account = desk_.AccountWithNumber(tag)) selection_.Account_Select(account);
}

std::vector<MenuItem> Menus::EntryTypeMenu() const {
  std::vector<MenuItem> items;
  const auto account = desk_.SelectedAccount();
  if (account == nullptr) return items;
  const auto entry = desk_.SelectedEntry();
  AddTypes(account->GetDebitTypes(), entry.get(), items);
  std::vector<MenuItem> deposit_items;
  AddTypes(account->GetDepositTypes(), entry.get(), deposit_items);
  if (!items.empty() && !deposit_items.empty()) items.push_back({"", 0, false, false, true});
  items.insert(items.end(), deposit_items.begin(), deposit_items.end());
  return items;
}

void Menus::entryMenu_Types_MenuItem(std::int32_t tag) {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  const auto entry = desk_.SelectedEntry();
  if (account == nullptr || entry == nullptr) return;
  const auto type = account->AccountEntryTypeForNumber(tag);
  if (type == nullptr || !CanTake(*entry, *type)) return;
  Change change(ledger_, "Change Type", account);
  change.Edit(account, entry).SetType(tag);
  change.Close();
  refresh_.EntryMarked();
  refresh_.entryMenu_Types_Menu_Populate();
}

}  // namespace tallyfold
