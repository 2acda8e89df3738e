#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "ledger/change_set.h"
#include "ledger/step.h"
#include "model/account.h"
#include "model/account_lists.h"

namespace tallyfold {

class Ledger;

// One change of the accounts, all of it or nothing. While it is open, records are added and removed
// through it, and edited by their own setters after Edit() was called for them. Close() makes it
// good: each account notes once what changed in it, the listeners hear of it, and it becomes a step
// that can be undone. A change that is destroyed unclosed is rolled back to exactly what was, also
// when memory runs out in the middle of it.
//
//   Change change(ledger, "Edit Entry", account);
//   change.Edit(account, entry).SetAmount(12.5);
//   change.Close();
//
// A change opened while another is open joins that one: its Close() hands on what it did, to be
// made good or rolled back with the rest, and left unclosed it alone is rolled back. Changes are
// opened and ended like brackets; none is opened by a listener.
//
// Null accounts and records are ignored. An operation that throws for want of memory has done
// nothing, and what was done before it is still open.
class [[nodiscard]] Change {
 public:
  // A step. `name` is an English key of the localizer ("Remove Entry"), `ordered_in` the account
  // whose lock keeps it from being undone: the selected one as a rule, null for none.
  Change(Ledger& ledger, std::string_view name, std::shared_ptr<LDGRAccount> ordered_in);
  // No step: filters, choices of imports and exports, the selected summary, the application
  // password, counters, and what follows from earlier steps. Should records change in it, they go
  // back together with the newest step. One that joins another is part of that one's step.
  explicit Change(Ledger& ledger);
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  ~Change();

  // --- Records --------------------------------------------------------------------------------
  // The account need not be one of the list yet.

  // Append.
  void Add(const std::shared_ptr<LDGRAccount>& account, std::shared_ptr<LDGRAccountEntry> entry);
  void Add(const std::shared_ptr<LDGRAccount>& account, const EntryList& entries);
  void Add(const std::shared_ptr<LDGRAccount>& account,
           std::shared_ptr<LDGRAccountSchedule> schedule);
  // The summary becomes the selected one if none was.
  void Add(const std::shared_ptr<LDGRAccount>& account,
           std::shared_ptr<LDGRAccountSummary> summary);

  // Remove these very objects; false when one was not there. Many entries are removed in one pass
  // over the account if they are given together. Removing the selected summary selects the first.
  bool Remove(const std::shared_ptr<LDGRAccount>& account, const LDGRAccountEntry* entry);
  bool Remove(const std::shared_ptr<LDGRAccount>& account, const EntryList& entries);
  bool Remove(const std::shared_ptr<LDGRAccount>& account, const LDGRAccountSchedule* schedule);
  bool Remove(const std::shared_ptr<LDGRAccount>& account, const LDGRAccountSummary* summary);

  // Keep what the record holds now, the first time, and hand it out to be changed by its setters
  // until the change ends. Neither is null; the record is one of the account.
  LDGRAccountEntry& Edit(const std::shared_ptr<LDGRAccount>& account,
                         const std::shared_ptr<LDGRAccountEntry>& entry);
  LDGRAccountSchedule& Edit(const std::shared_ptr<LDGRAccount>& account,
                            const std::shared_ptr<LDGRAccountSchedule>& schedule);
  LDGRAccountSummary& Edit(const std::shared_ptr<LDGRAccount>& account,
                           const std::shared_ptr<LDGRAccountSummary>& summary);

  // --- Accounts -------------------------------------------------------------------------------
  // Each hands the account out (not null) to be changed by those of its operations that are named.

  // Everything about types: AddType, SetTypes, DeactivateType, importTypesFromAccount, the default
  // types, and the setters of every type in the lists.
  LDGRAccount& EditTypes(const std::shared_ptr<LDGRAccount>& account);
  // What the user decides about the account: name, number, version, starting balance and check
  // number, password, completion lists and their styles, statement balance, last transfer.
  LDGRAccount& EditOptions(const std::shared_ptr<LDGRAccount>& account);
  // Filters, choices of imports and exports, the selected summary. Never undone.
  LDGRAccount& EditSettings(const std::shared_ptr<LDGRAccount>& account);
  // A new entry number of the account, never given before; undoing does not give it free.
  [[nodiscard]] std::int32_t NextNumber(const std::shared_ptr<LDGRAccount>& account);

  // Appends the account to the list, with all that is in it. The links of others to a removed
  // account are the caller's to cut first, in the same change.
  void AddAccount(const std::shared_ptr<LDGRAccount>& account);
  // False when it is not in the list.
  bool RemoveAccount(const std::shared_ptr<LDGRAccount>& account);

  // Before AccountsStore::setPassword(). Never undone.
  void EditPassword();

  // --- The end --------------------------------------------------------------------------------

  // Its record in the journal may wait for that of the next change: for settings that follow every
  // keystroke. Nothing else waits.
  void WriteLater() noexcept { may_wait_ = true; }

  // Something that goes back and forth with the step. It has followed forward already.
  void Attach(std::unique_ptr<StepCompanion> companion);

  // Makes the change good and says what came of it: nothing when all is as it was, or when it
  // joined another change. Edits that changed nothing in the end are no part of it. When memory
  // runs out, or the ledger refuses changes, it throws and the change is still open.
  ChangeSet Close();

 private:
  friend class RecoveryLog;
  friend class RecoveryRecord;

  enum class Undoable : bool { No, Yes };
  struct Touched {
    std::shared_ptr<LDGRAccount> account;
    AccountLists::Bearings bearings;
    // Entries came, went or are edited.
    bool has_entries = false;
  };
  Change(Ledger& ledger, std::string_view name, std::shared_ptr<LDGRAccount> ordered_in,
         Undoable undoable);

  Touched& Touch(const std::shared_ptr<LDGRAccount>& account);
  void TouchEntries(const std::shared_ptr<LDGRAccount>& account);
  template <typename Record>
  void TouchFor(const std::shared_ptr<LDGRAccount>& account);
  // Does what the part says on its way forward; nothing when it throws.
  void CarryOut(std::unique_ptr<StepPart> part);
  void AlsoOrderedIn(const std::shared_ptr<LDGRAccount>& account);
  template <typename Record>
  void AddRecord(const std::shared_ptr<LDGRAccount>& account, std::shared_ptr<Record> record);
  template <typename Record>
  bool RemoveRecord(const std::shared_ptr<LDGRAccount>& account, const Record* record);
  template <typename Record>
  Record& EditRecord(const std::shared_ptr<LDGRAccount>& account,
                     const std::shared_ptr<Record>& record);
  template <typename Part, typename... Arguments>
  void EditOnce(std::uintptr_t subject, Arguments&&... arguments);
  [[nodiscard]] bool WasRemoved(const void* record) const noexcept;
  void HandOn();
  void ThrowIfRefused() const;
  [[nodiscard]] bool WaitsForNext() const noexcept;
  // Forgets edits that changed nothing.
  void TidyEdits() noexcept;
  void RollBack() noexcept;
  void End() noexcept;

  Ledger& ledger_;
  Change* outer_;
  Undoable undoable_;
  bool is_open_ = true;
  bool may_wait_ = false;
  std::string name_;
  AccountList ordered_in_;
  StepParts parts_;
  StepCompanions companions_;
  std::vector<Touched> touched_;
  // Subjects that need no image any more: kept, or new in this change.
  std::unordered_set<std::uintptr_t> known_;
  std::unordered_set<const void*> removed_;
  // Of the list of accounts and the application password.
  ChangeCount::Revisions list_revisions_;
};

}  // namespace tallyfold
