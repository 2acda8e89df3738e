#pragma once

#include <memory>
#include <string_view>

#include "console/console.h"
#include "exchange/qif_import_entry.h"

namespace tallyfold {
class LDGRQIFImportController;
}

namespace tallyfold::console {

class Arguments;

// Throws CommandError when no import is under review.
[[nodiscard]] LDGRQIFImportController& OpenReview(const Console& console);
// An entry of the import under review by its place in the file. Throws CommandError when there is
// no such entry.
[[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> ReviewedEntryNamed(const Console& console,
                                                                     std::string_view word);
// Those that all the words of a command name, each once; "3-7" names those that are left of the
// places in between. Throws CommandError as above, and for a word that names none.
[[nodiscard]] QifImportEntryList ReviewedEntriesNamed(const Console& console,
                                                      const Arguments& arguments);
// Entries of the review, each with what it repeats in the account.
void ShowReviewedEntries(const Console& console, const QifImportEntryList& entries);

}  // namespace tallyfold::console
