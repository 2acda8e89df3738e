#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "plist/output.h"

namespace tallyfold::benchmarks {

// What the accounts file of a busy household might look like. The same figures always give the same
// bytes.
struct HouseholdFigures {
  std::size_t entries = 100'000;  // in all accounts together
  std::size_t accounts = 4;       // at least 1; 2 or more have transfers among them
  std::uint32_t seed = 1;
};

// An accounts dictionary of the current version with debits, checks, deposits, transfers of which
// both halves exist, splits, notes, schedules and non-ASCII text. An entry takes some 600 bytes of
// the file.
void WriteHousehold(const HouseholdFigures& figures, plist::Output& output);

// The same as the bytes of the accounts file.
[[nodiscard]] std::string HouseholdFile(const HouseholdFigures& figures);

}  // namespace tallyfold::benchmarks
