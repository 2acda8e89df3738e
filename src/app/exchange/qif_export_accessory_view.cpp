#include "app/exchange/qif_export_accessory_view.h"

#include <utility>

#include "app/exchange/qif_date_items.h"
#include "model/date_format.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {

void LDGRQIFExportAccessoryView::populateDateFormats() {
  formats_ = QifDateItems();
}

void LDGRQIFExportAccessoryView::populateExportAccountsButton(const AccountList* accounts) {
  if (accounts == nullptr) return;
  accounts_ = {{LocalizedText("Current Filter Results"), kShownEntries}, {"", 0, true}};
  for (const auto& account : *accounts) {
    PopUpItem item{account->GetName(), account->GetNumber()};
    if (!account->IsAuthenticated()) {
      item.title = Message("{1} (Locked)", {item.title});
      item.image = "locked";
      item.is_enabled = false;
    }
    accounts_.push_back(std::move(item));
  }
  accounts_.push_back({"", 0, true});
  accounts_.push_back({LocalizedText("All Accounts"), kAllAccounts});
  account_ = kNoItem;
}

void LDGRQIFExportAccessoryView::setExportAccount(std::int32_t tag) noexcept {
  const std::int32_t index = IndexOfItemTagged(accounts_, tag);
  const bool can_be_chosen =
      index != kNoItem && accounts_[static_cast<std::size_t>(index)].is_enabled;
  account_ = can_be_chosen ? index : kNoItem;
}

std::int32_t LDGRQIFExportAccessoryView::exportAccount() const noexcept {
  return account_ == kNoItem ? kCurrentAccount : accounts_[static_cast<std::size_t>(account_)].tag;
}

std::string LDGRQIFExportAccessoryView::exportDateExample() const {
  return FormatDate(CurrentClock().LocalTime(CurrentClock().Now()), exportDateFormat());
}

}  // namespace tallyfold
