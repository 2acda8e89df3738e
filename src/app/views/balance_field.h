#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/face/front_end.h"
#include "app/face/pop_up_item.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

class LDGRPreferences;

// What the balance field below the register shows. The numbers are those of the preferences and
// the tags of the pop-up's items.
enum class BalanceMode : std::int32_t {
  Balance = 0,
  Today = 1,
  Resolved = 2,
  Unresolved = 3,
  ShownEntries = 4,   // the sum of the rows
  SelectedEntry = 5,  // the running balance of the selected row
};

struct BalanceFieldState {
  std::vector<PopUpItem> mode_items;
  BalanceMode mode = BalanceMode::Balance;
  // None without an account, and at the selected entry without one.
  std::optional<double> amount;
  // The amount as the preferences want it; "" for none.
  std::string text;
};

// The balance field of the Entries tab and the pop-up that says what it shows.
class BalanceField {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // Null when no account is selected.
    [[nodiscard]] virtual std::shared_ptr<LDGRAccount> SelectedAccount() const = 0;
    [[nodiscard]] virtual const LDGRPreferences& Preferences() const = 0;
    // Of the Entries register: the sum of its rows, and the entry of its selected row or null.
    [[nodiscard]] virtual double TotalOfEntryRows() const = 0;
    [[nodiscard]] virtual std::shared_ptr<LDGRAccountEntry> SelectedEntryRow() const = 0;
  };

  BalanceField(const Host& host, FrontEnd& front_end) noexcept
      : host_(host), front_end_(front_end) {}
  BalanceField(const BalanceField&) = delete;
  BalanceField& operator=(const BalanceField&) = delete;

  // Fills the pop-up and chooses the mode, the first for a number that is none.
  void AccountBalance_PopUp_Populate(std::int32_t mode);
  // An item of the pop-up was chosen.
  void AccountBalance_PopUp(std::int32_t tag) { AccountBalance_PopUp_Populate(tag); }
  [[nodiscard]] BalanceMode Mode() const noexcept { return mode_; }

  // As it is now; computed when it is asked for.
  [[nodiscard]] BalanceFieldState State() const;

 private:
  [[nodiscard]] std::optional<double> Amount() const;

  const Host& host_;
  FrontEnd& front_end_;
  BalanceMode mode_ = BalanceMode::Balance;
};

}  // namespace tallyfold
