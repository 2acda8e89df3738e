#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "model/account.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "registers/account_table_view_data.h"
#include "registers/schedule_table_view_data.h"
#include "registers/table_data_source.h"
#include "storage/accounts_store.h"
#include "storage/preferences.h"

namespace tallyfold {

// What nearly every part of the application asks: which accounts there are, which account, which
// entry and which scheduled entry is selected, what the user prefers, and whether all of it is
// locked.
class Desk final : public TableHost {
 public:
  // The store must outlive the desk.
  explicit Desk(const AccountsStore& store) noexcept : store_(store) {}
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  // In the order of the file.
  [[nodiscard]] const AccountList& accounts() const noexcept { return store_.accounts(); }
  // The first with that number, or null.
  [[nodiscard]] std::shared_ptr<LDGRAccount> AccountWithNumber(std::int32_t number) const {
    return store_.AccountWithNumber(number);
  }
  [[nodiscard]] LDGRPreferences& preferences() const override {
    return LDGRPreferences::sharedPreferences();
  }
  // False while the application waits for its password.
  [[nodiscard]] bool IsUnlocked() const noexcept override { return store_.authenticated(); }

  // Null when no account is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccount> SelectedAccount() const noexcept { return account_; }
  // The entry of the selected row of the current register; null when no row is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> SelectedEntry() const {
    return current_register_ != nullptr ? current_register_->GetSelectedEntry() : nullptr;
  }
  // Null when no scheduled entry is selected.
  [[nodiscard]] std::shared_ptr<LDGRAccountSchedule> SelectedSchedule() const {
    return schedules_ != nullptr ? schedules_->SelectedSchedule() : nullptr;
  }

  // Select the row of the record in its table; null, and a record that is not shown, selects none.
  void SelectEntry(const std::shared_ptr<LDGRAccountEntry>& entry) {
    if (current_register_ != nullptr) current_register_->SelectEntry(entry.get());
  }
  void SelectSchedule(const std::shared_ptr<LDGRAccountSchedule>& schedule) {
    if (schedules_ != nullptr) schedules_->SelectSchedule(schedule.get());
  }

  // For account selection alone, which makes everything follow.
  void SetSelectedAccount(std::shared_ptr<LDGRAccount> account) noexcept {
    account_ = std::move(account);
  }
  // For the parts that own these tables; null while there is none. A table must outlive its stay.
  void SetCurrentRegister(LDGRAccountTableViewData* table) noexcept { current_register_ = table; }
  void SetSchedules(LDGRScheduleTableViewData* table) noexcept { schedules_ = table; }

 private:
  const AccountsStore& store_;
  std::shared_ptr<LDGRAccount> account_;
  LDGRAccountTableViewData* current_register_ = nullptr;
  LDGRScheduleTableViewData* schedules_ = nullptr;
};

}  // namespace tallyfold
