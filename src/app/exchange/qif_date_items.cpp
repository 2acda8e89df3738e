#include "app/exchange/qif_date_items.h"

#include "exchange/qif_date_formats.h"
#include "platform/ambient.h"

namespace tallyfold {

std::vector<PopUpItem> QifDateItems() {
  std::vector<PopUpItem> items;
  for (const QifDateFormat& each : kQifDateFormats) {
    items.push_back({LocalizedText(each.title), each.tag});
  }
  return items;
}

}  // namespace tallyfold
