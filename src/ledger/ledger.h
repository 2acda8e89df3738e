#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "ledger/change_set.h"
#include "ledger/entry_places.h"
#include "ledger/history.h"
#include "ledger/recovery_record.h"
#include "ledger/step.h"
#include "storage/accounts_store.h"

namespace tallyfold {

class Change;

// Hears of every change of the accounts, of undone and redone ones too.
class LedgerListener {
 public:
  virtual ~LedgerListener() = default;
  // All is changed and noted. States may be asked, nothing may be changed.
  virtual void LedgerChanged(const ChangeSet& set) = 0;
};

// Keeps a record of every change before anybody hears of it.
class LedgerJournal {
 public:
  virtual ~LedgerJournal() = default;
  // `make` makes the record, as long as it has at most so many bytes; none when it would be longer.
  // Nothing is thrown: whatever comes of it, the change stands.
  using MakeRecord = std::function<std::optional<std::string>(std::size_t most_bytes)>;
  virtual void Write(const MakeRecord& make) noexcept = 0;
};

// A change that is not to be, thrown by Change before anything of it stands.
class ChangeRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The one door for changes of what the accounts file holds: who wants to change something opens a
// Change (see ledger/change.h), who wants to know what changed listens here.
class Ledger {
 public:
  // `accounts` outlives the ledger.
  explicit Ledger(AccountsStore& accounts) noexcept : accounts_(accounts) {}
  Ledger(const Ledger&) = delete;
  Ledger& operator=(const Ledger&) = delete;

  [[nodiscard]] AccountsStore& accounts() noexcept { return accounts_; }
  [[nodiscard]] const AccountsStore& accounts() const noexcept { return accounts_; }
  [[nodiscard]] History& history() noexcept { return history_; }
  [[nodiscard]] const History& history() const noexcept { return history_; }

  // In the order in which they were added. A listener is removed before it ends.
  void AddListener(LedgerListener& listener) { listeners_.push_back(&listener); }
  void RemoveListener(const LedgerListener& listener) noexcept;
  // Null for none. It outlives the ledger or is taken away.
  void SetJournal(LedgerJournal* journal) noexcept { journal_ = journal; }

  // Changes that no record tells yet: a save, which holds them too, makes them to be forgotten.
  [[nodiscard]] bool HasUnwritten() const noexcept { return !unwritten_.empty(); }
  void ForgetUnwritten() noexcept { unwritten_.clear(); }

  // From here on a change of records, options or the application password is refused, which says
  // `why`. Settings, which follow what is looked at, and counters change all the same.
  void RefuseChanges(std::string why) { refusal_ = std::move(why); }

  // A change is open, or listeners are hearing of one.
  [[nodiscard]] bool IsBusy() const noexcept { return open_ != nullptr || is_announcing_; }

 private:
  friend class Change;
  friend class History;

  // Each account in the set notes once what changed in it.
  static void Note(const ChangeSet& set) noexcept;
  // With what was to be written later.
  void Record(const ChangeSet& set, const std::vector<RecoveryRecord::Carried>& carried) noexcept;
  // Takes those that are not yet among the unwritten. There is room for them.
  void WriteLater(StepParts& parts) noexcept;
  void Announce(const ChangeSet& set);

  AccountsStore& accounts_;
  History history_{*this};
  EntryPlaces places_;
  std::vector<LedgerListener*> listeners_;
  LedgerJournal* journal_ = nullptr;
  // Of each subject the first, whose image is that of the last record.
  StepParts unwritten_;
  // Why changes are refused; "" where they are not.
  std::string refusal_;
  // The innermost.
  Change* open_ = nullptr;
  bool is_announcing_ = false;
};

}  // namespace tallyfold
