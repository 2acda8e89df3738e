#include "model/day_field.h"

#include <algorithm>

namespace tallyfold {

void TweakDayField(DayField& field, std::int32_t month, std::int32_t year) noexcept {
  switch (month) {
    case 4:
    case 6:
    case 9:
    case 11:
      field.maximum = 30;
      break;
    case 1:
    case 3:
    case 5:
    case 7:
    case 8:
    case 10:
    case 12:
      field.maximum = 31;
      break;
    default:
      field.maximum = year % 4 == 0 ? 29 : 28;
      break;
  }
  field.day = std::min(field.day, field.maximum);
}

}  // namespace tallyfold
