#pragma once

#include <optional>

#include "app/entries/entry_defaults.h"
#include "model/account_entry.h"
#include "model/entry_type.h"

namespace tallyfold {

// The kind of the entry; none for one of no kind and for one of several.
[[nodiscard]] std::optional<EntryKind> KindOf(const LDGRAccountEntry& entry) noexcept;

// Whether the entry is of the type's kind. Transfers take no type.
[[nodiscard]] bool CanTake(const LDGRAccountEntry& entry,
                           const LDGRAccountEntryType& type) noexcept;

}  // namespace tallyfold
