#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/qif_date_formats.h"
#include "exchange/qif_import.h"
#include "model/date_number.h"

namespace tallyfold {

// What one of the twelve date formats makes of all dates of a file.
struct QifFormatProof {
  QifDateFormat format;
  // Dates that it can read.
  std::size_t read = 0;
  // None where it reads none.
  std::optional<DateNumber> first;
  std::optional<DateNumber> last;
  // Some year is below 100: written with two digits.
  bool has_short_years = false;
};

struct QifDateProof {
  // Of the whole file.
  std::size_t dates = 0;
  // Those that read every date first, then by how many they read; else in their usual order, but
  // short years last among equals.
  std::vector<QifFormatProof> formats;
};

[[nodiscard]] QifDateProof DateProofOf(const LDGRQIFImport& import);

// The first text of a file, in its own bytes, that has a byte beyond ASCII: the value of a line
// without its code letter. "" where there is none. Cut where it is longer than anybody wants to
// read.
[[nodiscard]] std::string FirstForeignText(std::string_view bytes);

}  // namespace tallyfold
