#pragma once

#include <set>
#include <string>
#include <vector>

#include "model/date_number.h"
#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

// How printed days and amounts are written: as the preferences were when this was made.
class PrintedFigures {
 public:
  explicit PrintedFigures(const LDGRPreferences& preferences);
  PrintedFigures(const PrintedFigures&) = delete;
  PrintedFigures& operator=(const PrintedFigures&) = delete;

  [[nodiscard]] const std::string& DateFormat() const noexcept { return date_format_; }
  [[nodiscard]] std::string Date(DateNumber day) const;
  [[nodiscard]] std::string Amount(double amount) const;
  // That of tables, without their colours.
  [[nodiscard]] TableFormat Format() const { return {date_format_, preferences_}; }

 private:
  LDGRPreferences preferences_;  // what it takes to write amounts, the rest as it is at first
  std::string date_format_;
};

// Texts that show the shapes of many others (see PrintColumn::samples), gathered without writing
// each of them.
class AmountShapes {
 public:
  void Add(double amount) noexcept;
  [[nodiscard]] std::vector<std::string> Samples(const PrintedFigures& figures) const;

 private:
  double least_ = 0.0;
  double greatest_ = 0.0;
  bool are_finite_ = true;
};

class DateShapes {
 public:
  void Add(DateNumber day) noexcept;
  [[nodiscard]] std::vector<std::string> Samples(const PrintedFigures& figures) const;

 private:
  DateNumber first_ = kNullDate;
  DateNumber last_ = kNullDate;
};

// Of texts that differ in little but their digits.
class TextShapes {
 public:
  void Add(std::string text);
  [[nodiscard]] std::vector<std::string> Samples() const {
    return {shapes_.begin(), shapes_.end()};
  }

 private:
  std::set<std::string> shapes_;
};

}  // namespace tallyfold
