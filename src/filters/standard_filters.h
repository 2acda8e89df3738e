#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "filters/filter.h"

namespace tallyfold {

// The application's own list of filters: six search filters, then filters for stretches of days
// and for cleared marks. The stretches keep the days they were built with until they are updated;
// unlike those of the filter types each also takes in the first day after it.
class StandardFilters {
 public:
  // Builds the whole list anew, with the days of the moment.
  void Filters_Init();
  // Builds everything after the search filters anew.
  void Filters_DateFilters_Update();

  [[nodiscard]] const std::vector<std::shared_ptr<LDGRFilter>>& Filters() const noexcept {
    return filters_;
  }
  // One above the highest number in the list; 0 when no filter has a number.
  [[nodiscard]] std::int32_t NextAvailableFilterNumber() const;
  // The first filter with that number; null for none.
  [[nodiscard]] std::shared_ptr<LDGRFilter> FilterNumberToFilter(std::int32_t number) const;
  // Index of the filter's item in a menu with separators after the fourth and the fourteenth
  // filter; -1 for filters after the sixteenth and for an unknown number.
  [[nodiscard]] std::int32_t FilterNumberToMenuIndex(std::int32_t number) const;

 private:
  void Add(std::shared_ptr<LDGRFilter> filter);

  std::vector<std::shared_ptr<LDGRFilter>> filters_;
};

}  // namespace tallyfold
