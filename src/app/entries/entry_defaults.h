#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "model/date_number.h"

namespace tallyfold {

class LDGRAccount;
class LDGRAccountEntry;
class LDGRPreferences;

enum class EntryKind : std::uint8_t { Debit, Deposit, Transfer };

// A new entry of that kind and number as its sheet first shows it, in no account yet.
[[nodiscard]] std::shared_ptr<LDGRAccountEntry> NewEntryWithDefaults(
    EntryKind kind, std::int32_t number, const LDGRAccount& account,
    const LDGRPreferences& preferences);

// The day of a new entry, as the preferences want it: today or that of the last entered entry.
[[nodiscard]] DateNumber DateOfNewEntry(const LDGRAccount& account,
                                        const LDGRPreferences& preferences);

// The number a new check gets: the next free one after the last entered check, or 0 where the
// user numbers checks himself. None where no number is left.
[[nodiscard]] std::optional<std::int32_t> SuggestedCheckNumber(const LDGRAccount& account,
                                                               const LDGRPreferences& preferences);

}  // namespace tallyfold
