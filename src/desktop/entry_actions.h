#pragma once

#include <cstdint>
#include <functional>

#include "model/account_entry.h"

class QMenu;

namespace tallyfold {
class EntryOrders;
class EntryRemoval;
class Menus;
class TransferLinking;
class Desk;
}  // namespace tallyfold

namespace tallyfold::desktop {

class CommandActions;

// What is ordered of several selected rows of a register at once, where a command would take the
// current one alone; and the menus whose items are accounts, types and entries.
class EntryActions final {
 public:
  struct Parts {
    EntryRemoval& removal;
    EntryOrders& orders;
    TransferLinking& linking;
    Menus& menus;
    const Desk& desk;
  };

  // `selected` tells the entries of the selected rows. All must outlive this.
  EntryActions(const Parts& parts, CommandActions& actions, std::function<EntryList()> selected);
  EntryActions(const EntryActions&) = delete;
  EntryActions& operator=(const EntryActions&) = delete;

  // Fill the menu anew; it is off where nothing can be chosen in it.
  void FillTypes(QMenu& menu);
  void FillAccounts(QMenu& menu);
  // The entries of other accounts that may be the other half of the current one.
  void FillOtherHalves(QMenu& menu);

 private:
  // None where only one row is selected: that is the current one.
  [[nodiscard]] EntryList Several() const;
  void SetType(std::int32_t tag);

  Parts parts_;
  std::function<EntryList()> selected_;
};

}  // namespace tallyfold::desktop
