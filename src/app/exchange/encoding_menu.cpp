#include "app/exchange/encoding_menu.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/ambient.h"
#include "platform/text_encodings.h"

namespace tallyfold {

void EncodingMenu::Populate(const TextEncodings& encodings) {
  const std::int32_t own = CurrentLocale().DefaultTextEncoding();
  items_.clear();
  const auto offer = [&](std::int32_t encoding) {
    if (IndexOfItemTagged(items_, encoding) != kNoItem) return;
    items_.push_back({encodings.Name(static_cast<TextEncoding>(encoding)), encoding});
  };
  offer(own);
  offer(static_cast<std::int32_t>(TextEncoding::Utf16));
  offer(static_cast<std::int32_t>(TextEncoding::Utf8));

  std::vector<PopUpItem> others;
  for (const TextEncoding each : encodings.List()) {
    const auto encoding = static_cast<std::int32_t>(each);
    if (IndexOfItemTagged(items_, encoding) != kNoItem) continue;
    others.push_back({encodings.Name(each), encoding});
  }
  std::stable_sort(others.begin(), others.end(),
                   [](const PopUpItem& a, const PopUpItem& b) { return a.title < b.title; });
  items_.push_back({"", 0, true});
  std::move(others.begin(), others.end(), std::back_inserter(items_));
  setEncoding(own);
}

}  // namespace tallyfold
