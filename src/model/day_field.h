#pragma once

#include <cstdint>

namespace tallyfold {

// A field in which a day of the month is typed beside its month and year.
struct DayField {
  // What the field's formatter lets pass.
  std::int32_t maximum = 31;
  std::int32_t day = 1;
};

// Limits the field to the month's length: a day beyond it becomes its last day. A month that is no
// other is taken for February, which has 29 days in every year divisible by 4, 1900 and 2100 too.
void TweakDayField(DayField& field, std::int32_t month, std::int32_t year) noexcept;

}  // namespace tallyfold
