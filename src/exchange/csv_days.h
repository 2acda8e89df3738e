#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "exchange/statement_file.h"
#include "exchange/written_day.h"
#include "model/date_number.h"

namespace tallyfold {

// Finds out from a column of days, one after the other, in which order their numbers stand.
class DayOrderJudge {
 public:
  // Remembers where the first day stands that reads otherwise in another order.
  void Add(const WrittenDay& day, std::size_t place) noexcept;

  // Whether several orders read as many days, and differently.
  [[nodiscard]] bool IsOpen() const;
  // The order that reads the most days; of several the one in which they follow one another best.
  [[nodiscard]] DayOrder Best() const { return kJudged[Fitting().front()]; }
  // Where the day stands that the question is about. Only where it IsOpen().
  [[nodiscard]] std::size_t PlaceOfFirst() const noexcept { return place_of_first_; }
  [[nodiscard]] StatementQuestion Question(std::string sample) const;

 private:
  static constexpr std::array kJudged = {DayOrder::DayMonthYear, DayOrder::MonthDayYear,
                                         DayOrder::YearMonthDay};
  struct Count {
    std::size_t read = 0;
    std::size_t rising = 0;
    std::size_t falling = 0;
    DateNumber last = 0;
  };

  // Places in kJudged, the best first.
  [[nodiscard]] std::vector<std::size_t> Fitting() const;

  std::array<Count, kJudged.size()> counts_;
  std::size_t open_ = 0;
  WrittenDay first_open_;
  std::size_t place_of_first_ = 0;
};

}  // namespace tallyfold
