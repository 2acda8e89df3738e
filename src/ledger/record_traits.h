#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "ledger/change_set.h"
#include "ledger/summary_records.h"
#include "model/account_lists.h"

namespace tallyfold {

// What changes do with each kind of record, in the same words for all.
template <typename Record>
struct RecordTraits;

template <>
struct RecordTraits<LDGRAccountEntry> {
  static EntryList& ListOf(LDGRAccount& account) noexcept { return AccountLists::Entries(account); }
  static RecordChanges<EntryList>& ChangesOf(AccountChanges& changes) noexcept {
    return changes.entries;
  }
  static std::shared_ptr<LDGRAccountEntry> Image(const LDGRAccountEntry& entry) {
    return entry.Image();
  }
  static void Exchange(LDGRAccountEntry& entry, LDGRAccountEntry& image) noexcept {
    entry.ExchangeWith(image);
  }
  static ChangeKinds Difference(const LDGRAccountEntry& a, const LDGRAccountEntry& b) noexcept {
    return a.DifferenceFrom(b);
  }
  // What changes when one comes or goes.
  static constexpr ChangeKinds kKinds = ChangeKind::Money | ChangeKind::Marks | ChangeKind::Texts;
  static void SetOwner(LDGRAccountEntry& /*entry*/, LDGRAccount* /*account*/) noexcept {}
  static std::size_t MemorySize(const LDGRAccountEntry& entry) noexcept {
    return entry.MemorySize();
  }
  // The key of the list in the dictionary form of an account, and the form of a record.
  static constexpr std::string_view kKey = "entries";
  static void Write(const LDGRAccountEntry& record, plist::Output& output) {
    record.WriteTo(output);
  }
  // The form by which a record is known again.
  static void WriteToCompare(const LDGRAccountEntry& record, plist::Output& output) {
    record.WriteTo(output);
  }
  static std::shared_ptr<LDGRAccountEntry> Make(const plist::Dictionary& form) {
    return std::make_shared<LDGRAccountEntry>(form);
  }
};

template <>
struct RecordTraits<LDGRAccountSchedule> {
  static ScheduleList& ListOf(LDGRAccount& account) noexcept {
    return AccountLists::Schedules(account);
  }
  static RecordChanges<ScheduleList>& ChangesOf(AccountChanges& changes) noexcept {
    return changes.schedules;
  }
  static std::shared_ptr<LDGRAccountSchedule> Image(const LDGRAccountSchedule& schedule) {
    return schedule.Image();
  }
  static void Exchange(LDGRAccountSchedule& schedule, LDGRAccountSchedule& image) noexcept {
    schedule.ExchangeWith(image);
  }
  static ChangeKinds Difference(const LDGRAccountSchedule& a,
                                const LDGRAccountSchedule& b) noexcept {
    return a.DiffersFrom(b) ? kKinds : ChangeKinds();
  }
  static constexpr ChangeKinds kKinds = ChangeKind::Schedules;
  static void SetOwner(LDGRAccountSchedule& /*schedule*/, LDGRAccount* /*account*/) noexcept {}
  static std::size_t MemorySize(const LDGRAccountSchedule& schedule) noexcept {
    return schedule.MemorySize();
  }
  // The key of the list in the dictionary form of an account, and the form of a record.
  static constexpr std::string_view kKey = "schedules";
  static void Write(const LDGRAccountSchedule& record, plist::Output& output) {
    record.WriteTo(output);
  }
  // The form by which a record is known again.
  static void WriteToCompare(const LDGRAccountSchedule& record, plist::Output& output) {
    record.WriteTo(output);
  }
  static std::shared_ptr<LDGRAccountSchedule> Make(const plist::Dictionary& form) {
    return std::make_shared<LDGRAccountSchedule>(form);
  }
};

template <>
struct RecordTraits<LDGRAccountSummary> {
  static AccountSummaryList& ListOf(LDGRAccount& account) {
    return AccountLists::Summaries(account);
  }
  static RecordChanges<AccountSummaryList>& ChangesOf(AccountChanges& changes) noexcept {
    return changes.summaries;
  }
  static std::shared_ptr<LDGRAccountSummary> Image(const LDGRAccountSummary& summary) {
    return SummaryRecords::Image(summary);
  }
  static void Exchange(LDGRAccountSummary& summary, LDGRAccountSummary& image) noexcept {
    SummaryRecords::Exchange(summary, image);
  }
  static ChangeKinds Difference(const LDGRAccountSummary& a, const LDGRAccountSummary& b) noexcept {
    return SummaryRecords::Differs(a, b) ? kKinds : ChangeKinds();
  }
  static constexpr ChangeKinds kKinds = ChangeKind::Summaries;
  static void SetOwner(LDGRAccountSummary& summary, LDGRAccount* account) noexcept {
    SummaryRecords::SetAccount(summary, account);
    if (account != nullptr) AccountLists::SelectSummaryOfList(*account);
  }
  static std::size_t MemorySize(const LDGRAccountSummary& summary) noexcept {
    return SummaryRecords::MemorySize(summary);
  }
  // The key of the list in the dictionary form of an account, and the form of a record.
  static constexpr std::string_view kKey = "accountSummaries";
  static void Write(const LDGRAccountSummary& record, plist::Output& output) {
    SummaryRecords::Write(record, output);
  }
  // The form by which a record is known again.
  static void WriteToCompare(const LDGRAccountSummary& record, plist::Output& output) {
    SummaryRecords::WriteWithoutDays(record, output);
  }
  static std::shared_ptr<LDGRAccountSummary> Make(const plist::Dictionary& form) {
    return SummaryRecords::Make(form);
  }
};

}  // namespace tallyfold
