#pragma once

#include <vector>

#include "app/face/pop_up_item.h"

namespace tallyfold {

// The twelve date formats of QIF files as a choice: "MM/DD/YYYY" and so on, in the order and with
// the tags of exchange/qif_date_formats.h.
[[nodiscard]] std::vector<PopUpItem> QifDateItems();

}  // namespace tallyfold
