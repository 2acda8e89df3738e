#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/account.h"
#include "model/account_entry.h"
#include "registers/reconciliation.h"
#include "storage/preferences.h"

namespace tallyfold {

// What may be behind the difference between a statement and an account.
struct DifferenceExplanation {
  enum class Kind : std::uint8_t {
    Unresolved,     // one unresolved entry has the amount of the difference
    Resolved,       // one resolved entry has it with the other sign: it lacks on the statement
    WrongSign,      // one resolved entry has half of it with the other sign
    SwappedDigits,  // the difference comes about when two digits of an amount are swapped
    UnresolvedSet,  // several unresolved entries add up to it
  };
  static constexpr std::size_t kLargestSet = 12;

  Kind kind = Kind::Unresolved;
  // The entries it is about. None for swapped digits when no one entry is under suspicion.
  EntryList entries;
};

// The first in the order of the kinds, as far as there is only one such entry or set; a set counts
// when it is the only smallest one. Several unresolved entries of the very amount, or several
// resolved ones, leave no explanation: the next would be a guess. That digits are swapped somewhere
// comes last.
//
// None when the account is balanced, when nothing is found, and when the search for a set gives up
// (see smallest_subset.h); amounts of 10^13 and more are passed over.
[[nodiscard]] std::optional<DifferenceExplanation> ExplainDifference(const LDGRAccount& account,
                                                                     const Reconciliation& figures);

// A sentence for the user, in which the entries are not named.
[[nodiscard]] std::string ExplanationText(const DifferenceExplanation& explanation);

}  // namespace tallyfold
