#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "app/entry_defaults.h"
#include "app/entry_sheet_state.h"
#include "app/refresh.h"
#include "model/account.h"
#include "model/date_number.h"

namespace tallyfold {

// A scheduled entry as the user describes it.
struct NewSchedule {
  EntryKind kind = EntryKind::Debit;
  // The first day on which it may fall due.
  DateNumber start = kNullDate;
  // Positive whatever the kind. The lines of a split stand for it where there are any.
  double amount = 0.0;
  SplitRows split;
  std::string description;
  // Payee or source; transfers take the name of their other account.
  std::string to_from;
  // Number of an entry type of the account, -1 for none. Transfers have none.
  std::int32_t type = -1;
  // Debits only; each occurrence gets its check number when it is committed.
  bool is_check = false;
  bool tax_deductible = false;
  std::string notes;
  // Transfers only: the other account, and whether money goes to it.
  std::int32_t transfer_account = -1;
  bool is_transfer_origin = true;
  // As LDGRAccountSchedule stores them.
  std::int32_t repeat_interval_type = 0;
  std::int32_t repeat_interval = 1;
  std::int32_t repeat_until_type = 1;
  std::int32_t repeat_until = 0;
  bool use_preceding_friday = false;
};

// Adds scheduled entries to the selected account.
class ScheduleAdding {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> AccountWithNumber(
        std::int32_t number) const = 0;
    // Null when no account is selected.
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> SelectedAccount() const = 0;
  };

  ScheduleAdding(const Host& host, Refresh& refresh) noexcept : host_(host), refresh_(refresh) {}
  ScheduleAdding(const ScheduleAdding&) = delete;
  ScheduleAdding& operator=(const ScheduleAdding&) = delete;

  // The schedule, numbered and in the account; null, and nothing changes, when no account is
  // selected, when a transfer's other account does not exist or is the selected one, and for an
  // amount that is not finite.
  std::shared_ptr<LDGRAccountSchedule> Add(const NewSchedule& values);

 private:
  const Host& host_;
  Refresh& refresh_;
};

}  // namespace tallyfold
