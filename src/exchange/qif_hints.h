#pragma once

#include "exchange/import_hints.h"
#include "exchange/qif_entry.h"
#include "model/date_number.h"

namespace tallyfold {

class LDGRQIFImport;

// Why nothing of the file can be imported.
[[nodiscard]] ImportHints::Problem ProblemOf(const LDGRQIFImport& import);
// What the rules of an import will do to a QIF file. `entries` were read by `import` and stand in
// the review in that order. Linear in the file.
[[nodiscard]] ImportHints HintsFor(const LDGRQIFImport& import, const QifEntryList& entries,
                                   DateNumber today);

}  // namespace tallyfold
