#pragma once

#include <memory>
#include <string>

namespace tallyfold {

class LDGRFilter;

// What the text builders of an account may be told. The commands set the date format and the
// filter alone; line ending and cleared mark are there for whoever needs other files.
struct ExportOptions {
  // In calendar-date letters (see model/date_format.h). QIF only.
  std::string date_format = "%m/%d/%Y";
  // Ends every line. QIF only.
  std::string line_ending = "\n";
  // The cleared mark is "X" rather than "*". QIF only.
  bool resolved_means_reconciled = false;
  // The entries to write; null writes all of them after a line for the starting balance.
  std::shared_ptr<const LDGRFilter> export_filter;
};

}  // namespace tallyfold
