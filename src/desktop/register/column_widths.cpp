#include "desktop/register/column_widths.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace tallyfold::desktop {
namespace {

struct Elastic {
  std::string_view identifier;
  bool takes_rest;
  int yields;
  int least;
};

// Of the registers and of the tables beside them.
constexpr Elastic kElastic[] = {
    {"description", true, 0, 120}, {"toFrom", false, 1, 110}, {"type", false, 2, 90},
    {"accounts", true, 0, 36},     {"name", true, 0, 60},
};
constexpr int kLeastColumn = 24;
constexpr int kLastYield = 2;

}  // namespace

ColumnRoom RoomOf(std::string_view identifier, double stored_width, double factor) {
  ColumnRoom room;
  room.width =
      std::max(kLeastColumn,
               static_cast<int>(std::lround(std::clamp(stored_width * factor, 0.0, 10'000.0))));
  for (const Elastic& elastic : kElastic) {
    if (elastic.identifier != identifier) continue;
    room.takes_rest = elastic.takes_rest;
    room.yields = elastic.yields;
    room.least = elastic.least;
  }
  return room;
}

std::vector<int> WidthsIn(int available, const std::vector<ColumnRoom>& columns) {
  std::vector<int> widths;
  widths.reserve(columns.size());
  for (const ColumnRoom& column : columns) widths.push_back(column.width);
  const auto taker = std::find_if(columns.begin(), columns.end(),
                                  [](const ColumnRoom& column) { return column.takes_rest; });
  int rest = available - std::accumulate(widths.begin(), widths.end(), 0);
  // Takes the rest, as far as its least width allows where it is wanting.
  const auto give = [&](std::size_t index, int least) {
    const int given = std::max(rest, std::min(0, least - widths[index]));
    widths[index] += given;
    rest -= given;
  };
  if (taker != columns.end()) {
    give(static_cast<std::size_t>(taker - columns.begin()), taker->least);
  }
  for (int turn = 1; turn <= kLastYield && rest < 0; ++turn) {
    for (std::size_t i = 0; i < columns.size() && rest < 0; ++i) {
      if (columns[i].yields == turn) give(i, columns[i].least);
    }
  }
  return widths;
}

}  // namespace tallyfold::desktop
