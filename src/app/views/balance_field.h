#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/views/registers.h"
#include "model/account.h"
#include "model/account_entry.h"

namespace tallyfold {

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
  BalanceField(const Desk& desk, Registers& registers, Announcer& announcer) noexcept
      : desk_(desk), registers_(registers), announcer_(announcer) {}
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

  const Desk& desk_;
  Registers& registers_;
  Announcer& announcer_;
  BalanceMode mode_ = BalanceMode::Balance;
};

}  // namespace tallyfold
