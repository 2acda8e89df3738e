#include "ledger/recovery_log.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <utility>

#include "ledger/change.h"

namespace tallyfold {

using Outcome = RecoveryLog::Found::Outcome;

RecoveryLog::RecoveryLog(FileSystem& files, Ledger& ledger, const std::string& accounts_file)
    : ledger_(ledger), file_(files, accounts_file) {
  ledger_.SetJournal(this);
  ledger_.accounts().SetSaveWitness(this);
}

RecoveryLog::~RecoveryLog() {
  ledger_.SetJournal(nullptr);
  ledger_.accounts().SetSaveWitness(nullptr);
}

RecoveryLog::Protection RecoveryLog::protection() const noexcept {
  if (!writes_ || in_use_) return Protection::No;
  return is_protected_ ? Protection::On : Protection::Off;
}

// --- At launch ----------------------------------------------------------------------------------

void RecoveryLog::Replay() {
  const std::optional<RecoveryFile::Contents> contents = file_.Open();
  in_use_ = file_.TakenByOther();
  if (in_use_) found_.outcome = Outcome::InUse;
  if (!contents) return;
  exists_ = true;
  if (contents->is_unbegun) {
    pending_ = Pending::Remove;
    return;
  }
  pending_ = Pending::KeepAside;
  if (!contents->is_readable) {
    found_.outcome = Outcome::OtherFormat;
    return;
  }
  const auto& records = contents->records;
  const bool holds_nothing =
      std::all_of(records.begin(), records.end(), [](const auto& each) { return each.is_save; });
  if (holds_nothing && !contents->is_damaged) {
    pending_ = Pending::Remove;
    return;
  }
  const std::optional<std::size_t> first = FirstLacking(*contents);
  if (!first) {
    found_.outcome = Outcome::OtherContent;
    return;
  }
  ReplayRecords(*contents, *first);
  // The damaged one at least is lost.
  if (contents->is_damaged) ++found_.records;
  if (found_.recovered < found_.records) {
    found_.outcome = Outcome::Partly;
  } else if (found_.records == 0) {
    pending_ = Pending::Remove;
  } else {
    found_.outcome = Outcome::Recovered;
    pending_ = Pending::Continue;
    holds_changes_ = true;
  }
}

std::optional<std::size_t> RecoveryLog::FirstLacking(const RecoveryFile::Contents& contents) const {
  const std::optional<ContentMark>& present = ledger_.accounts().FileContent();
  const auto& records = contents.records;
  const auto saved = std::find_if(records.rbegin(), records.rend(), [&](const auto& record) {
    return record.is_save && present == record.saved;
  });
  if (saved != records.rend()) return static_cast<std::size_t>(records.rend() - saved);
  if (present == contents.builds_on) return 0;
  return std::nullopt;
}

void RecoveryLog::ReplayRecords(const RecoveryFile::Contents& contents, std::size_t first) {
  struct Replaying {
    explicit Replaying(bool& flag) : is_replaying(flag) { is_replaying = true; }
    ~Replaying() { is_replaying = false; }
    bool& is_replaying;
  } replaying(is_replaying_);
  const auto& records = contents.records;
  const auto begin = records.begin() + static_cast<std::ptrdiff_t>(first);
  found_.records = static_cast<std::size_t>(
      std::count_if(begin, records.end(), [](const auto& record) { return !record.is_save; }));
  Change all(ledger_, "Recover Changes", nullptr);
  for (auto record = begin; record != records.end(); ++record) {
    if (record->is_save) continue;
    Change one(ledger_);
    if (!RecoveryRecord::Replay(record->payload, ledger_, one)) break;
    for (const auto& account : one.ordered_in_) all.AlsoOrderedIn(account);
    if (!one.ordered_in_.empty()) ++found_.steps;
    one.Close();
    ++found_.recovered;
  }
  all.Close();
}

void RecoveryLog::Settle() {
  if (!writes_) return;
  switch (std::exchange(pending_, Pending::None)) {
    case Pending::None:
      return;
    case Pending::Continue:
      if (!file_.CutTorn()) LoseProtection();
      return;
    case Pending::Remove:
      if (file_.Remove()) {
        exists_ = false;
      } else {
        LoseProtection();
      }
      return;
    case Pending::KeepAside:
      found_.kept_path = file_.KeepAside();
      exists_ = !found_.kept_path;
      // What was recovered is in no log any more.
      is_protected_ = is_protected_ && found_.recovered == 0 && found_.kept_path;
      if (!is_protected_) ledger_.accounts().Accounts_Save();
      return;
  }
}

// --- Changes ------------------------------------------------------------------------------------

std::size_t RecoveryLog::Limit() const noexcept {
  const auto& content = ledger_.accounts().FileContent();
  return std::max(kLeastLimit, content ? static_cast<std::size_t>(content->length) : 0);
}

void RecoveryLog::LoseProtection() noexcept {
  file_.Close();
  is_protected_ = false;
}

void RecoveryLog::Write(const MakeRecord& make) noexcept {
  if (is_replaying_) return;
  if (!writes_ || in_use_) {
    holds_changes_ = false;
    return;
  }
  if (!is_protected_) return;
  try {
    WriteOrSave(make);
  } catch (const std::exception&) {
    LoseProtection();
  }
}

void RecoveryLog::WriteOrSave(const MakeRecord& make) {
  if (pending_ == Pending::KeepAside) {
    // It is not to be touched before the user may see what is in it; Settle() saves.
    is_protected_ = false;
    return;
  }
  Settle();
  if (!is_protected_) return;
  AccountsStore& accounts = ledger_.accounts();
  if (file_.IsOpen() && !file_.IsInPlace()) {
    // What it held would not come back. A whole save takes its place.
    file_.Close();
    exists_ = false;
    if (!accounts.Accounts_Save()) LoseProtection();
    return;
  }
  const std::size_t limit = Limit();
  const std::size_t used = file_.IsOpen() ? static_cast<std::size_t>(file_.size()) : 0;
  std::optional<std::string> record;
  if (used < limit) record = make(limit - used);
  if (!record) {
    if (accounts.Accounts_Save()) return;
    record = make(std::numeric_limits<std::size_t>::max());
    if (!record) return LoseProtection();
  }
  if (!file_.IsOpen()) {
    exists_ = accounts.PrepareDataFolder() && file_.Begin(accounts.FileContent());
    if (!exists_) return LoseProtection();
  }
  if (!file_.Append(*record)) return LoseProtection();
  holds_changes_ = true;
}

// --- Saves --------------------------------------------------------------------------------------

bool RecoveryLog::HasFile() {
  if (!exists_ || in_use_) return false;
  return file_.IsOpen() || (file_.Open() && file_.CutTorn());
}

void RecoveryLog::WillReplace(const ContentMark& content) {
  // Should this fail, the worst that comes of a crash is a log that is kept aside in vain.
  if (pending_ != Pending::KeepAside && HasFile()) static_cast<void>(file_.AppendSave(content));
}

void RecoveryLog::Replaced() {
  ledger_.ForgetUnwritten();
  holds_changes_ = false;
  is_protected_ = true;
  const bool was_foreign = std::exchange(pending_, Pending::None) == Pending::KeepAside;
  if (!HasFile()) return;
  if (was_foreign) {
    found_.kept_path = file_.KeepAside();
    exists_ = !found_.kept_path;
    is_protected_ = found_.kept_path.has_value();
  } else if (file_.Remove()) {
    exists_ = false;
  } else if (!file_.NamesPresentContent()) {
    LoseProtection();
  }
}

}  // namespace tallyfold
