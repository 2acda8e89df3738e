#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "filters/register_search.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "registers/account_table_view_data.h"
#include "registers/table_state.h"
#include "storage/preferences_store.h"

namespace tallyfold {

class LDGRPreferences;

// What is to be remembered of a table.
[[nodiscard]] LiveTable LiveTableOf(const TableState& table);

// The two registers of the main window, each with its table, and which of the two the commands for
// registers act on.
class Registers final : private TableState::Observer {
 public:
  Registers(Desk& desk, Announcer& announcer);
  Registers(const Registers&) = delete;
  Registers& operator=(const Registers&) = delete;
  ~Registers() override;

  [[nodiscard]] LDGRAccountTableViewData& entryDataSource() noexcept { return entry_; }
  [[nodiscard]] LDGRAccountTableViewData& reconcileDataSource() noexcept { return reconcile_; }
  [[nodiscard]] RegisterKind CurrentKind() const noexcept { return current_; }
  // `kind` is one of the two registers. Its selected entry is the selected one from here on.
  void SetCurrent(RegisterKind kind);
  [[nodiscard]] LDGRAccountTableViewData& currentTableDataSource() noexcept { return Of(current_); }
  [[nodiscard]] const LDGRAccountTableViewData& currentTableDataSource() const noexcept {
    return current_ == RegisterKind::Reconcile ? reconcile_ : entry_;
  }
  // The register of that kind; the one for reconciling where neither is meant.
  [[nodiscard]] LDGRAccountTableViewData& Of(RegisterKind kind) noexcept {
    return kind == RegisterKind::Entry ? entry_ : reconcile_;
  }

  // Both show that account as its view preferences tell, without rows yet; null shows none.
  void ShowAccount(const std::shared_ptr<LDGRAccount>& account);
  // Both show no account yet, but the columns of the one of that number; -1 for none.
  void ShowColumnsOf(std::int32_t account_number);
  // Both take their account's filtered entries again.
  void Reload();
  // The register of that kind does.
  void Reload(RegisterKind kind);
  // Both take up entries that were saved while filters do not follow at once.
  void TakeSavedEntries(const EntryList& entries);
  // Both draw their rows anew.
  void Redraw();
  // Both write dates as the preferences want them now.
  void UpdateDateFormat();

  // "entry" and "reconcile"; none for any other.
  [[nodiscard]] std::optional<LiveTable> TableShown(std::string_view identifier) const;

 private:
  void Show(const std::shared_ptr<LDGRAccount>& account,
            const std::shared_ptr<LDGRAccountPreferences>& view);
  // Of the account that is shown.
  [[nodiscard]] std::shared_ptr<LDGRFilter> FilterOf(RegisterKind kind) const;
  void SelectedEntryChanged();
  void TableChanged(const TableState& table, TableState::Change change) override;
  void RowsChanged(const TableState& table, const RowsChange& change) override;

  Desk& desk_;
  Announcer& announcer_;
  TableState entry_table_;
  TableState reconcile_table_;
  LDGRAccountTableViewData entry_;
  LDGRAccountTableViewData reconcile_;
  RegisterKind current_ = RegisterKind::Entry;
};

}  // namespace tallyfold
