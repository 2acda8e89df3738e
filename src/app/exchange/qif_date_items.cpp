#include "app/exchange/qif_date_items.h"

#include <string>

#include "exchange/qif_date_formats.h"
#include "platform/ambient.h"

namespace tallyfold {

std::vector<PopUpItem> QifDateItems() {
  std::vector<PopUpItem> items;
  for (const QifDateFormat& each : kQifDateFormats) {
    items.push_back({LocalizedText(QifDateFormatTitle(each.format)), each.tag});
  }
  return items;
}

}  // namespace tallyfold
