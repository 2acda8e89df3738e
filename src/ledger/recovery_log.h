#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "ledger/ledger.h"
#include "storage/accounts_store.h"
#include "storage/recovery_file.h"

namespace tallyfold {

// Keeps what was changed since the accounts file was last saved, so that no finished change is lost
// when the program does not come to save. Every change, undo and redo becomes a record of the
// recovery file, synced before anybody hears of it; a save ends the file; what the next launch
// finds in it is done again in memory. Passwords given to unlock, preferences and open sheets are
// no part of it.
//
// At launch: Replay() once the accounts are loaded, Settle() once the user may see them. A launch
// that ends before Settle() leaves the file as it was.
class RecoveryLog final : private LedgerJournal, private AccountsStore::SaveWitness {
 public:
  enum class Protection : std::uint8_t {
    On,   // no finished change would be lost now
    Off,  // changes since the last save are only in memory, until the next save
    No,   // this run writes no log: it was told so, or another copy has the file
  };

  // What was found at launch.
  struct Found {
    enum class Outcome : std::uint8_t {
      Nothing,       // no log, or nothing in it that the accounts file lacks
      Recovered,     // all of it was done again
      Partly,        // `recovered` of `records`; the first that did not fit ended it
      OtherContent,  // it belongs to another content of the accounts file
      OtherFormat,   // another version wrote it, or it is no log at all
      InUse,         // another running copy has it: left alone
    };
    Outcome outcome = Outcome::Nothing;
    std::size_t recovered = 0;
    std::size_t records = 0;
    // Those of `recovered` that the user ordered, and would want to hear of: no counters, no
    // filters.
    std::size_t steps = 0;
    // Where the log was kept aside, once it was: always for Partly, OtherContent and OtherFormat,
    // unless that failed.
    std::optional<std::string> kept_path;
  };

  // The least size at which a log gives way to a whole save; above, that of the accounts file.
  static constexpr std::size_t kLeastLimit = std::size_t{16} << 20;

  // Both outlive the log. Hears of changes and saves from here on.
  RecoveryLog(FileSystem& files, Ledger& ledger, const std::string& accounts_file);
  ~RecoveryLog() override;
  RecoveryLog(const RecoveryLog&) = delete;
  RecoveryLog& operator=(const RecoveryLog&) = delete;

  // Nothing is written to the log by this run: its saves are its only commits. A log that is found
  // is replayed all the same; the first save ends it. Before Replay().
  void WriteNothing() noexcept { writes_ = false; }

  // After the accounts were loaded and upgraded, before anything else changes them. What is done
  // again makes one step, "Recover Changes", ordered in every account in which any of it was; it
  // holds for locked accounts too, and a logged application password is the one to be given.
  void Replay();
  [[nodiscard]] const Found& found() const noexcept { return found_; }
  // Removes, continues or keeps aside what was found. A change before that continues a log that was
  // recovered whole, and otherwise is unprotected until here. Where only a part was recovered it
  // also saves, so that what came back is on the disk before the log goes on.
  void Settle();

  [[nodiscard]] Protection protection() const noexcept;
  // The accounts file lacks changes and the log holds them all: should the program end now without
  // a save, they come back at the next launch.
  [[nodiscard]] bool HoldsChanges() const noexcept {
    return holds_changes_ && is_protected_ && !ledger_.HasUnwritten();
  }

 private:
  // What is to become of the file that was found.
  enum class Pending : std::uint8_t { None, Continue, Remove, KeepAside };

  void Write(const MakeRecord& make) noexcept override;
  void WriteOrSave(const MakeRecord& make);
  void WillReplace(const ContentMark& content) override;
  void Replaced() override;

  // Where the records begin that the content of the accounts file lacks; none when it is another.
  [[nodiscard]] std::optional<std::size_t> FirstLacking(
      const RecoveryFile::Contents& contents) const;
  void ReplayRecords(const RecoveryFile::Contents& contents, std::size_t first);
  [[nodiscard]] std::size_t Limit() const noexcept;
  void LoseProtection() noexcept;
  // A file that was closed after a failure is still ours to end.
  [[nodiscard]] bool HasFile();

  Ledger& ledger_;
  RecoveryFile file_;
  Found found_;
  Pending pending_ = Pending::None;
  bool writes_ = true;
  bool in_use_ = false;
  bool is_protected_ = true;
  bool is_replaying_ = false;
  bool holds_changes_ = false;
  // A file of ours lies there, open or not.
  bool exists_ = false;
};

}  // namespace tallyfold
