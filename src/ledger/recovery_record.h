#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ledger/change_set.h"
#include "ledger/entry_places.h"
#include "ledger/step_part.h"
#include "model/account.h"
#include "plist/output.h"
#include "plist/value.h"

namespace tallyfold {

class Change;
class Ledger;

// A change, undo or redo as the recovery log keeps it: a property list that says what is to be done
// to accounts as they were before, so that they become what they are now. Things are named by their
// places: of the account in the list of accounts, of the record in the list of the account. What is
// replaced or removed is known again by a checksum.
//
//   orderedIn  places of accounts, in the end
//   edits      of what was there before, named by where it was before
//   moves      records and accounts that came or went, in turn
//   settings   of accounts, which name a summary by where it is in the end
//   counts     how many entry numbers were given
class RecoveryRecord {
 public:
  struct Carried {
    const StepPart* part;
    Way way;
  };

  // The record of parts that have just been carried out in that order. None when it would be longer
  // than `most_bytes`, or too long in the making.
  [[nodiscard]] static std::optional<std::string> Write(const AccountList& accounts,
                                                        EntryPlaces& places, const ChangeSet& set,
                                                        const std::vector<Carried>& carried,
                                                        std::size_t most_bytes);

  // Does through `change`, which is open, what the record says; it counts as ordered where the
  // record was too. False when it is no record or anything is not what it replaces; then the change
  // is to be left unclosed.
  [[nodiscard]] static bool Replay(std::string_view record, Ledger& ledger, Change& change);
};

// The checksum of a form, as `write` writes it.
[[nodiscard]] std::string SumOfForm(const std::function<void(plist::Output&)>& write);
// The form by which options, settings or types of an account, or an image of them, are known again.
void WriteToCompare(const LDGRAccount& account, AccountPart part, plist::Output& out);
// Of a whole account but its summaries and settings, which may move by being looked at.
[[nodiscard]] std::string SumOfAccount(const LDGRAccount& account);

// The keys of records.
namespace recovery_keys {
inline constexpr std::string_view kOrderedIn = "orderedIn";
inline constexpr std::string_view kEdits = "edits";
inline constexpr std::string_view kMoves = "moves";
inline constexpr std::string_view kCounts = "counts";
inline constexpr std::string_view kAccount = "account";
inline constexpr std::string_view kWhat = "what";
inline constexpr std::string_view kPlace = "place";
inline constexpr std::string_view kPlaces = "places";
inline constexpr std::string_view kWas = "was";
inline constexpr std::string_view kNow = "now";
inline constexpr std::string_view kCount = "count";
// Values of kWhat beside the keys of lists.
inline constexpr std::string_view kAccounts = "accounts";
inline constexpr std::string_view kOptions = "options";
inline constexpr std::string_view kSettings = "settings";
inline constexpr std::string_view kTypes = "types";
inline constexpr std::string_view kPassword = "password";
}  // namespace recovery_keys

}  // namespace tallyfold
