#include "app/views/registers.h"

#include <utility>

#include "filters/filter.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {

LiveTable LiveTableOf(const TableState& table) {
  LiveTable live;
  for (const TableColumn& column : table.Columns()) {
    live.columns.push_back({column.identifier, column.width});
  }
  live.selected_row = table.SelectedRow();
  return live;
}

Registers::Registers(Desk& desk, Announcer& announcer)
    : desk_(desk),
      announcer_(announcer),
      entry_table_(DefaultRegisterColumns(), this),
      reconcile_table_(DefaultRegisterColumns(), this),
      entry_(desk),
      reconcile_(desk) {
  entry_.SetTableView(&entry_table_);
  entry_.SetTableIdentifier("entry");
  reconcile_.SetTableView(&reconcile_table_);
  reconcile_.SetTableIdentifier("reconcile");
  SetCurrent(current_);
}

Registers::~Registers() {
  desk_.SetCurrentRegister(nullptr);
}

void Registers::SetCurrent(RegisterKind kind) {
  current_ = kind;
  desk_.SetCurrentRegister(&currentTableDataSource());
  SelectedEntryChanged();
}

void Registers::SelectedEntryChanged() {
  announcer_.Changed(Area::SelectedEntry);
  announcer_.Changed(Area::EntryButtons);
  announcer_.Changed(Area::EntryTypeMenu);
}

void Registers::ShowAccount(const std::shared_ptr<LDGRAccount>& account) {
  Show(account, account != nullptr
                    ? desk_.preferences().GetPreferencesForAccountNumber(account->GetNumber())
                    : nullptr);
}

void Registers::ShowColumnsOf(std::int32_t account_number) {
  constexpr std::int32_t kNoAccount = -1;
  Show(nullptr, account_number != kNoAccount
                    ? desk_.preferences().GetPreferencesForAccountNumber(account_number)
                    : nullptr);
}

void Registers::Show(const std::shared_ptr<LDGRAccount>& account,
                     const std::shared_ptr<LDGRAccountPreferences>& view) {
  for (auto* shown : {&entry_, &reconcile_}) {
    shown->SetAccountPreferences(view);
    shown->SetAccount(account);
    shown->ReconfigureTable();
    shown->Redraw();
  }
}

void Registers::Reload() {
  Reload(RegisterKind::Entry);
  Reload(RegisterKind::Reconcile);
}

void Registers::Reload(RegisterKind kind) {
  if (entry_.GetAccount() != nullptr) Of(kind).ReloadFiltered(FilterOf(kind));
}

void Registers::TakeSavedEntries(const EntryList& entries) {
  if (entry_.GetAccount() == nullptr) return;
  for (const auto kind : {RegisterKind::Entry, RegisterKind::Reconcile}) {
    Of(kind).TakeSaved(entries, *FilterOf(kind));
  }
}

std::shared_ptr<LDGRFilter> Registers::FilterOf(RegisterKind kind) const {
  const auto& account = entry_.GetAccount();
  return kind == RegisterKind::Entry ? account->entryFilter() : account->reconcileFilter();
}

void Registers::Redraw() {
  entry_.Redraw();
  reconcile_.Redraw();
}

void Registers::UpdateDateFormat() {
  const std::string format = RegisterDateFormat(desk_.preferences());
  entry_.SetDateFormat(format);
  reconcile_.SetDateFormat(format);
}

std::optional<LiveTable> Registers::TableShown(std::string_view identifier) const {
  const TableState* table = identifier == "entry"       ? &entry_table_
                            : identifier == "reconcile" ? &reconcile_table_
                                                        : nullptr;
  if (table == nullptr) return std::nullopt;
  return LiveTableOf(*table);
}

void Registers::TableChanged(const TableState& /*table*/, TableState::Change change) {
  switch (change) {
    case TableState::Change::Columns:
      return announcer_.Changed(Area::RegisterColumns);
    case TableState::Change::ScrolledRow:
      return announcer_.Changed(Area::ScrolledRow);
    case TableState::Change::SelectedRow:
      SelectedEntryChanged();
      announcer_.Changed(Area::Balance);
      break;
  }
}

void Registers::RowsChanged(const TableState& /*table*/, const RowsChange& /*change*/) {
  announcer_.Changed(Area::Registers);
}

}  // namespace tallyfold
