#pragma once

#include <cstdint>
#include <utility>

#include "model/change_kinds.h"

namespace tallyfold {

// Tells whether a record has changed. A number that was given once is not given again, so that
// what was worked out for it holds whenever it is the present one.
class ChangeCount {
 public:
  // Of what is stored; 0 for a new or freshly read account. Every change through the account counts
  // by itself; whoever changes an entry, type, schedule or summary in place notes it
  // (NoteChange()). The order of the entries and whether the account is authenticated do not count.
  [[nodiscard]] std::uint64_t Revision() const noexcept { return present_.revision; }
  // As long as it stays, so do all balances.
  [[nodiscard]] std::uint64_t LedgerRevision() const noexcept { return present_.ledger; }
  // As long as it stays, so do all balances but the resolved ones.
  [[nodiscard]] std::uint64_t MoneyRevision() const noexcept { return present_.money; }
  // As long as it stays, so do all entries and what their types are called.
  [[nodiscard]] std::uint64_t EntriesRevision() const noexcept { return present_.entries; }

  void NoteChange() noexcept { NoteChange(ChangeKinds::All()); }
  // None is no change.
  void NoteChange(ChangeKinds kinds) noexcept {
    if (kinds.IsEmpty()) return;
    present_.revision = ++last_;
    if (kinds.HasAnyOf(ChangeKind::Money | ChangeKind::Marks)) present_.ledger = last_;
    if (kinds.HasAnyOf(ChangeKind::Money)) present_.money = last_;
    const ChangeKinds of_entries = ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts;
    if (kinds.HasAnyOf(of_entries | ChangeKind::Types)) present_.entries = last_;
  }

  // The revisions at a moment.
  struct Revisions {
    std::uint64_t revision = 0;
    std::uint64_t ledger = 0;
    std::uint64_t money = 0;
    std::uint64_t entries = 0;
  };
  [[nodiscard]] const Revisions& PresentRevisions() const noexcept { return present_; }
  // Says that all is again as it was at `revisions`, which are of this very record.
  void ReturnTo(const Revisions& revisions) noexcept { present_ = revisions; }

 protected:
  ChangeCount() = default;
  ~ChangeCount() = default;

  template <typename T>
  void Change(T& member, T value) noexcept {
    if (member == value) return;
    member = std::move(value);
    NoteSetting();
  }
  // What has been read so far was there before.
  void ForgetChanges() noexcept { present_ = {}; }
  // A change of something that no balance depends on.
  void NoteSetting() noexcept { NoteChange(ChangeKind::Settings); }

 private:
  Revisions present_;
  std::uint64_t last_ = 0;
};

}  // namespace tallyfold
