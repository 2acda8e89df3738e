#pragma once

#include <cstdint>

namespace tallyfold {

// What an account stores, by how it is changed and put back.
enum class AccountPart : std::uint8_t {
  Records,   // entries, schedules and summaries, and the count of entry numbers
  Types,     // both lists of entry types, and which are the default ones
  Options,   // what the user decides about the account
  Settings,  // what it remembers of filters, imports and exports, and the selected summary
};

}  // namespace tallyfold
