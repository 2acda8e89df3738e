#pragma once

#include <memory>
#include <string_view>

#include "console/console.h"
#include "exchange/qif_import_entry.h"

namespace tallyfold::console {

// An entry of the import under review by its place in the file. Throws CommandError when there is
// no review or no such entry.
[[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> ReviewedEntryNamed(const Console& console,
                                                                     std::string_view word);
// Entries of the review, each with what it repeats in the account.
void ShowReviewedEntries(const Console& console, const QifImportEntryList& entries);

}  // namespace tallyfold::console
