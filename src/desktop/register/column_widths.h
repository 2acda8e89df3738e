#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace tallyfold::desktop {

// How a column behaves when the table is wider or narrower than its columns.
struct ColumnRoom {
  int width = 0;  // as stored, times the factor of the font
  // Takes what is left over, and gives way first.
  bool takes_rest = false;
  // Gives way after that one, in this order; 0 for never.
  int yields = 0;
  int least = 0;
};

// By the column's identifier.
[[nodiscard]] ColumnRoom RoomOf(std::string_view identifier, double stored_width, double factor);

// The widths shown in a table so wide. Where even the least ones do not fit they stay, and the
// table scrolls sideways.
[[nodiscard]] std::vector<int> WidthsIn(int available, const std::vector<ColumnRoom>& columns);

}  // namespace tallyfold::desktop
