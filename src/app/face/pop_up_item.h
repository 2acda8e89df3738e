#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tallyfold {

// An item of a pop-up button or menu.
struct PopUpItem {
  std::string title;
  // What the item stands for; its meaning belongs to the pop-up.
  std::int32_t tag = 0;
  // A line between groups of items, which cannot be chosen; its title is "".
  bool is_separator = false;
  // A disabled item is shown and cannot be chosen.
  bool is_enabled = true;
  // Name of a picture beside the title; "" for none.
  std::string image = {};

  friend bool operator==(const PopUpItem&, const PopUpItem&) = default;
};

// Index of the selected item where none is selected.
inline constexpr std::int32_t kNoItem = -1;

// The index of the first item with that tag, or kNoItem.
[[nodiscard]] inline std::int32_t IndexOfItemTagged(const std::vector<PopUpItem>& items,
                                                    std::int32_t tag) noexcept {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (!items[i].is_separator && items[i].tag == tag) return static_cast<std::int32_t>(i);
  }
  return kNoItem;
}

}  // namespace tallyfold
