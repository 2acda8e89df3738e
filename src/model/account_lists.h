#pragma once

#include <cstdint>
#include <memory>

#include "model/account.h"

namespace tallyfold {

// The lists of an account, for the one who changes them by place, keeps what belongs to them in
// order, and notes the changes itself (src/ledger). Nobody else changes lists behind the account's
// back.
class AccountLists {
 public:
  [[nodiscard]] static EntryList& Entries(LDGRAccount& account) noexcept {
    return account.entries_;
  }
  [[nodiscard]] static ScheduleList& Schedules(LDGRAccount& account) noexcept {
    return account.schedules_;
  }
  [[nodiscard]] static AccountSummaryList& Summaries(LDGRAccount& account) {
    account.MakeMissingSummaries();
    return account.account_summaries_;
  }

  // The account notes what changed in it; of its entries, those that are listed and no others.
  static void NoteChange(LDGRAccount& account, ChangeKinds kinds, const EntryList& removed,
                         const EntryList& inserted, const EntryList& changed) noexcept;
  // While a change is open that touches entries, nothing that is worked out of all of them is kept.
  static void BeginEntryChange(LDGRAccount& account) noexcept { ++account.open_entry_changes_; }
  static void EndEntryChange(LDGRAccount& account) noexcept { --account.open_entry_changes_; }

  // What an account holds besides its stored parts, or must not lose by their exchange.
  struct Bearings {
    ChangeCount::Revisions revisions;
    std::int32_t number_count = 0;
    bool authenticated = false;
    std::shared_ptr<LDGRAccountSummary> selected_summary;
  };
  [[nodiscard]] static Bearings BearingsOf(const LDGRAccount& account) {
    return {account.PresentRevisions(), account.number_count_, account.authenticated_,
            account.selectedAccountSummary()};
  }
  static void ReturnTo(LDGRAccount& account, const Bearings& bearings) noexcept {
    account.ReturnTo(bearings.revisions);
    account.number_count_ = bearings.number_count;
    account.authenticated_ = bearings.authenticated;
    account.selected_account_summary_ = bearings.selected_summary;
  }
  // Active types are kept sorted by name, also when names change.
  static void SortTypes(LDGRAccount& account) noexcept;
  // Raises the count of entry numbers to `count`, never lowers it.
  static void CountUpTo(LDGRAccount& account, std::int32_t count) noexcept {
    if (count > account.number_count_) account.number_count_ = count;
  }
  // The selected summary is one of the list, the first unless it is already.
  static void SelectSummaryOfList(LDGRAccount& account) noexcept;
};

}  // namespace tallyfold
