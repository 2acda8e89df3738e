#pragma once

#include <cstdint>
#include <vector>

#include "app/face/pop_up_item.h"

namespace tallyfold {

class TextEncodings;

// The choice of a text encoding beside a file panel. Tags are identifiers of encodings (see
// platform/text_encodings.h).
class EncodingMenu {
 public:
  // The user's own encoding, which is then chosen, UTF-16 and UTF-8, a line, and all others by
  // name. No encoding stands there twice.
  void Populate(const TextEncodings& encodings);

  [[nodiscard]] const std::vector<PopUpItem>& items() const noexcept { return items_; }
  // Index into items(), or kNoItem.
  [[nodiscard]] std::int32_t selected() const noexcept { return selected_; }
  // The chosen encoding, 0 when none is.
  [[nodiscard]] std::int32_t encoding() const noexcept {
    return selected_ == kNoItem ? 0 : items_[static_cast<std::size_t>(selected_)].tag;
  }
  // An encoding that is not offered leaves none chosen.
  void setEncoding(std::int32_t encoding) noexcept {
    selected_ = IndexOfItemTagged(items_, encoding);
  }

 private:
  std::vector<PopUpItem> items_;
  std::int32_t selected_ = kNoItem;
};

}  // namespace tallyfold
