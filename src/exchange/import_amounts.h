#pragma once

#include <string_view>

#include "exchange/import_hints.h"

namespace tallyfold {

// Adds AmountSeparators and AmountSign where they hold of an amount that TweakAmountString() and
// LeadingAmount() read with these separators (see qif_fields.h): AmountSeparators for a separator
// of thousands that does not stand before groups of three digits, for a second decimal separator,
// for more decimals than cents, and for three decimals that might as well be thousands;
// AmountSign for a sign that is dropped. Blanks and apostrophes between groups are no doubt, nor
// are currencies before or behind.
void LookAtAmount(std::string_view text, const ImportSeparators& separators,
                  ImportDoubtSet& doubts) noexcept;

}  // namespace tallyfold
