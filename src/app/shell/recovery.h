#pragma once

#include <string>

#include "app/face/announcer.h"
#include "ledger/recovery_log.h"

namespace tallyfold {

// What the recovery log says to the user: that changes from before an interruption are back, or
// where a log was put that could not be used, and whether a change would be lost now.
class Recovery final : private LedgerListener {
 public:
  // All must outlive this.
  Recovery(FileSystem& files, Ledger& ledger, Announcer& announcer);
  Recovery(const Recovery&) = delete;
  Recovery& operator=(const Recovery&) = delete;
  ~Recovery() override;

  // As RecoveryLog::WriteNothing(): before the launch.
  void WriteNothing() noexcept { log_.WriteNothing(); }
  // The log is another copy's: nothing is read of it nor written to it.
  void LeaveAlone() noexcept {
    log_.WriteNothing();
    is_left_alone_ = true;
  }
  // Once, after the accounts were loaded.
  void Replay() {
    if (!is_left_alone_) log_.Replay();
  }
  // Every time the accounts come before the user; the first time settles what was found.
  void Settle();

  // "3 changes from before the interruption were recovered."; "" for nothing to tell, and until it
  // is settled.
  [[nodiscard]] const std::string& Notice() const noexcept { return notice_; }
  // Where a log that belonged to another content was kept aside since, as by the save of a run that
  // writes none; "" for nowhere, and where the notice said it.
  [[nodiscard]] std::string KeptSinceNotice() const;
  // The user has seen it.
  void CloseNotice();
  [[nodiscard]] RecoveryLog::Protection protection() const noexcept { return log_.protection(); }
  // As RecoveryLog's: what is not saved comes back at the next launch.
  [[nodiscard]] bool HoldsChanges() const noexcept { return log_.HoldsChanges(); }

 private:
  void LedgerChanged(const ChangeSet& set) override;

  Ledger& ledger_;
  Announcer& announcer_;
  RecoveryLog log_;
  bool is_left_alone_ = false;
  bool is_settled_ = false;
  bool notice_names_kept_ = false;
  std::string notice_;
  RecoveryLog::Protection told_ = RecoveryLog::Protection::On;
};

}  // namespace tallyfold
