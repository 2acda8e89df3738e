#pragma once

#include <cstdint>
#include <string>

namespace tallyfold {

// An item of a pop-up button or menu.
struct PopUpItem {
  std::string title;
  // What the item stands for; its meaning belongs to the pop-up.
  std::int32_t tag = 0;
  // A line between groups of items, which cannot be chosen; its title is "".
  bool is_separator = false;

  friend bool operator==(const PopUpItem&, const PopUpItem&) = default;
};

// Index of the selected item where none is selected.
inline constexpr std::int32_t kNoItem = -1;

}  // namespace tallyfold
