#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/account_entry.h"
#include "model/account_options.h"
#include "model/account_part.h"
#include "model/account_schedule.h"
#include "model/date_number.h"
#include "model/entry_log.h"
#include "model/entry_type.h"
#include "plist/output.h"
#include "plist/value.h"

namespace tallyfold {

class EntryNumbers;
class LDGRAccount;
class LDGRAccountSummary;
class LDGRFilter;
class RunningBalanceTable;
struct ExportOptions;

using AccountList = std::vector<std::shared_ptr<LDGRAccount>>;
using AccountSummaryList = std::vector<std::shared_ptr<LDGRAccountSummary>>;
using TextList = std::vector<std::string>;

// One bank account: its identity, its entries, entry types, scheduled entries and summaries, what
// its registers remember, and its optional password; of what else it remembers see
// account_options.h.
//
// The account owns its records and shares them with whoever shows them. Entries are in no
// guaranteed order, and their numbers need not be unique (old files).
class LDGRAccount : public AccountOptions {
 public:
  static constexpr std::int32_t kCurrentVersion = 7;

  // --- Life ---------------------------------------------------------------------------------

  // A new account: number -1, no entries, the default types and summaries, import options from the
  // user's locale.
  LDGRAccount();
  // Reads a current dictionary form (see UpdateAccountDictionary()), which stays as it is. Each
  // missing key or value of a wrong kind is logged and keeps the value of a new account.
  explicit LDGRAccount(const std::optional<plist::Dictionary>& dictionary);
  LDGRAccount(const LDGRAccount&) = delete;
  LDGRAccount& operator=(const LDGRAccount&) = delete;
  ~LDGRAccount();

  // As the constructor, but uses the dictionary up: its entries and schedules are taken out and
  // freed one by one as records are made, so that a large file is never in memory twice.
  [[nodiscard]] static std::shared_ptr<LDGRAccount> accountByConsuming(
      const plist::Dictionary& dictionary);

  // The whole dictionary, Begin and End included.
  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary asDictionary() const;

  // --- Images -------------------------------------------------------------------------------
  // A part of the account, kept aside and put back later; see AccountPart. Types are kept as the
  // objects they are: what is inside them has images of its own.

  // Holds that part of this account and nothing else of use. `part` is not Records.
  [[nodiscard]] std::unique_ptr<LDGRAccount> ImageOf(AccountPart part) const;
  // The account gets what `image` holds, and `image` what the account held. An account left without
  // a password is authenticated. Notes no change.
  void ExchangePart(AccountPart part, LDGRAccount& image) noexcept;
  // In what the two would be stored differently.
  [[nodiscard]] ChangeKinds DifferenceIn(AccountPart part, const LDGRAccount& image) const noexcept;
  // How much memory that part takes, in bytes, roughly.
  [[nodiscard]] std::size_t MemorySizeOf(AccountPart part) const noexcept;
  // The keys of that part as a dictionary of their own, Begin and End included.
  void WritePart(AccountPart part, plist::Output& output) const;
  // Reads such a dictionary; what it lacks stays as it is. Notes no change.
  void ReadPart(AccountPart part, const plist::Dictionary& dictionary);

  // --- Upgrade of older dictionary forms ------------------------------------------------------

  // Brings a dictionary of any version to the current form in place and returns it. Problems are
  // logged and leave what they concern as it was; nothing is refused.
  static plist::Dictionary UpdateAccountDictionary(plist::Dictionary dictionary);
  // A dictionary without a version: only relabelled and un-numbered.
  static plist::Dictionary UpdateAccountDictionaryFromNil(plist::Dictionary dictionary);
  static plist::Dictionary UpdateAccountDictionaryFromVersion(plist::Dictionary dictionary,
                                                              std::int32_t version);

  // --- Identity -----------------------------------------------------------------------------

  // Unique in the file; -1 before the application has given one.
  [[nodiscard]] std::int32_t GetNumber() const noexcept { return number_; }
  void SetNumber(std::int32_t number) noexcept { Change(number_, number); }
  [[nodiscard]] std::int32_t GetVersion() const noexcept { return version_; }
  void SetVersion(std::int32_t version) noexcept { Change(version_, version); }
  [[nodiscard]] const std::string& GetName() const noexcept { return name_; }
  // A missing value is ignored.
  void SetName(std::optional<std::string_view> name);

  // --- Entries and schedules ------------------------------------------------------------------

  [[nodiscard]] const EntryList& GetEntries() const noexcept { return entries_; }
  void SetEntries(EntryList entries);
  // Appends; null is ignored.
  void AddEntry(std::shared_ptr<LDGRAccountEntry> entry);
  // Removes this very object; nothing when it is not here.
  void RemoveEntry(const LDGRAccountEntry* entry);
  // The first entry with that number, or null.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetEntryWithNumber(std::int32_t number) const;

  [[nodiscard]] const ScheduleList& GetSchedules() const noexcept { return schedules_; }
  void SetSchedules(ScheduleList schedules);
  void AddSchedule(std::shared_ptr<LDGRAccountSchedule> schedule);
  void RemoveSchedule(const LDGRAccountSchedule* schedule);
  [[nodiscard]] std::shared_ptr<LDGRAccountSchedule> ScheduleForNumber(std::int32_t number) const;
  // True when an uncommitted occurrence of any schedule is due today.
  [[nodiscard]] bool HasPendingScheduledEntries() const;

  // All entries with that number, in the order of the entries.
  [[nodiscard]] EntryList EntriesWithNumber(std::int32_t number) const;

  // For whoever keeps what he worked out of all entries: where their changes stand, and which were
  // touched since they stood there, each touch in turn. None when any may be another one; so it is
  // for the mark 0, which stands for a moment in the middle of a change. Good until the next
  // change.
  [[nodiscard]] std::uint64_t EntriesMark() const noexcept;
  [[nodiscard]] std::optional<std::span<const EntryTouch>> EntriesTouchedSince(
      std::uint64_t mark) const noexcept;

  // Least and greatest by date, then entry number; null without entries.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetFirstEntry() const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetLastEntry() const;
  // Greatest by entry number, of all entries and of the checks; null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetLastEnteredEntry() const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntry> GetLastEnteredCheck() const;

  // New lists of the entries of a kind, in the order of the entries.
  [[nodiscard]] EntryList GetDebits() const;
  [[nodiscard]] EntryList GetDeposits() const;
  [[nodiscard]] EntryList GetTransfers() const;

  // Sorts the entries by number, then stably by the key: 0 check number, 1 date then check, 2 type
  // then date, 3 description, 4 amount, 5 cleared, 6 to/from; any other key leaves them by number.
  void SortBy(std::int32_t key, bool descending);

  // --- Balances -----------------------------------------------------------------------------
  // All add LDGRAccountEntry::GetAmount() to the starting balance, in the order of the entries.

  // 0.0 while the account is locked. Alone among the balances it hides from the lock.
  [[nodiscard]] double GetBalance() const noexcept;
  // Entries dated up to today.
  [[nodiscard]] double GetTodaysBalance() const;
  // Cleared entries only.
  [[nodiscard]] double GetResolvedBalance() const noexcept;
  // GetBalance() less GetResolvedBalance().
  [[nodiscard]] double GetUnresolvedBalance() const noexcept;
  // The balance in the register's line of that entry; 0.0 for null. Before an entry come all of
  // earlier days; of the same day before a check the checks of equal or smaller check number,
  // before any other entry all checks and the others of smaller entry number.
  [[nodiscard]] double GetRunningBalanceAtEntry(const LDGRAccountEntry* entry) const noexcept;
  [[nodiscard]] double GetRunningBalanceBeforeDate(DateNumber date) const noexcept;
  [[nodiscard]] double GetRunningBalanceThroughDate(DateNumber date) const noexcept;
  // GetRunningBalanceAtEntry() of every row, in the order of the rows, for one sort of the
  // account's entries in all. The rows are entries of this account in any order and choice. Sums
  // run in register order here, so that the last bits may differ from the single operation.
  [[nodiscard]] std::vector<double> RunningBalances(const EntryList& rows) const;

  // The same of one row, for much less when it is asked again and again.
  [[nodiscard]] double RunningBalanceOf(const LDGRAccountEntry& row) const;

  // Sums over the entries of a kind, without the starting balance: the debits' is negative.
  [[nodiscard]] double GetDebitsTotal() const noexcept;
  [[nodiscard]] double GetDepositsTotal() const noexcept;
  [[nodiscard]] double GetTransfersTotal() const noexcept;

  [[nodiscard]] double GetStartingBalance() const noexcept { return starting_balance_; }
  // Stores the amount rounded to cents.
  void SetStartingBalance(double balance) noexcept;

  // --- Numbering ----------------------------------------------------------------------------

  // A new entry number, never given before.
  [[nodiscard]] std::int32_t NextAvailableNumber() noexcept;
  // The last entry number handed out.
  [[nodiscard]] std::int32_t GetNumberCount() const noexcept { return number_count_; }
  [[nodiscard]] std::int32_t NextAvailableScheduleNumber() const noexcept;
  // Higher than those of all types, active or not.
  [[nodiscard]] std::int32_t NextAvailableTypeNumber() const noexcept;

  [[nodiscard]] std::int32_t GetStartingCheckNumber() const noexcept {
    return starting_check_number_;
  }
  void SetStartingCheckNumber(std::int32_t number) noexcept {
    Change(starting_check_number_, number);
  }
  // The highest check number stored in any entry, be it a check or not; at least one below the
  // starting check number.
  [[nodiscard]] std::int32_t HighestCheckNumber() const noexcept;
  // One above HighestCheckNumber().
  [[nodiscard]] std::int32_t NextAvailableCheckNumber() const noexcept;
  // The first free number after the entry's check number; for null the next of all.
  [[nodiscard]] std::int32_t NextAvailableCheckNumberAfterEntry(
      const LDGRAccountEntry* entry) const;
  // The smallest check number in use above `number`, at most HighestCheckNumber().
  [[nodiscard]] std::int32_t NextCheckNumberAfterCheckNumber(std::int32_t number) const noexcept;
  // A new list of the six types every new account starts with, sorted by name.
  [[nodiscard]] static EntryTypeList DefaultTypes();

  // --- Entry types --------------------------------------------------------------------------

  // The active types, and those taken out of use that old entries still refer to.
  [[nodiscard]] const EntryTypeList& GetTypes() const { return Types(); }
  [[nodiscard]] const EntryTypeList& GetInactiveTypes() const noexcept { return inactive_types_; }
  // Replace a list; a default type that is in neither list afterwards becomes none. The active
  // types are kept sorted by name.
  void SetTypes(EntryTypeList types);
  void SetInactiveTypes(EntryTypeList types);
  // Puts an active type in its place by name; null is ignored.
  void AddType(std::shared_ptr<LDGRAccountEntryType> type);
  // New lists of the active types: transfer types, deposit types, and those that are neither.
  [[nodiscard]] EntryTypeList GetTransferTypes() const;
  [[nodiscard]] EntryTypeList GetDepositTypes() const;
  [[nodiscard]] EntryTypeList GetDebitTypes() const;
  // First among the active types, then among the inactive; null for none.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> AccountEntryTypeForNumber(
      std::int32_t number) const;
  // By the exact name, case included.
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> DepositEntryTypeForName(
      std::string_view name) const;
  [[nodiscard]] std::shared_ptr<LDGRAccountEntryType> DebitEntryTypeForName(
      std::string_view name) const;
  // Moves an active type to the inactive ones, where its entries still find it. It stops being a
  // default. Null is ignored.
  void DeactivateType(std::shared_ptr<LDGRAccountEntryType> type);
  // The types preselected for new entries; null for none.
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntryType>& GetDefaultDebitType() const noexcept {
    return default_debit_type_;
  }
  void SetDefaultDebitType(std::shared_ptr<LDGRAccountEntryType> type) noexcept;
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntryType>& GetDefaultDepositType()
      const noexcept {
    return default_deposit_type_;
  }
  void SetDefaultDepositType(std::shared_ptr<LDGRAccountEntryType> type) noexcept;
  // Not stored.
  [[nodiscard]] const std::shared_ptr<LDGRAccountEntryType>& GetDefaultTransferType()
      const noexcept {
    return default_transfer_type_;
  }
  void SetDefaultTransferType(std::shared_ptr<LDGRAccountEntryType> type) noexcept {
    default_transfer_type_ = std::move(type);
  }
  // Copies the active types whose name and kind are missing among the active types here, each under
  // a new number.
  void importTypesFromAccount(const LDGRAccount& other);

  // --- Completion lists -----------------------------------------------------------------------
  // What the entry sheets offer while a description or a payee (to) or source (from) is typed.

  // 0 all, 1 the latest, 2 the user's own list; any other value none.
  [[nodiscard]] std::int32_t GetPreference_Descriptions_Style() const noexcept {
    return preference_descriptions_style_;
  }
  void SetPreference_Descriptions_Style(std::int32_t style) noexcept {
    Change(preference_descriptions_style_, style);
  }
  [[nodiscard]] std::int32_t GetPreference_ToFrom_Style() const noexcept {
    return preference_to_from_style_;
  }
  void SetPreference_ToFrom_Style(std::int32_t style) noexcept {
    Change(preference_to_from_style_, style);
  }
  // How many texts the latest-style lists offer.
  [[nodiscard]] std::int32_t GetPreference_ToFrom_SomeSelection() const noexcept {
    return preference_to_from_some_selection_;
  }
  void SetPreference_ToFrom_SomeSelection(std::int32_t count) noexcept {
    Change(preference_to_from_some_selection_, count);
  }
  [[nodiscard]] std::int32_t GetPreference_Descriptions_SomeSelection() const noexcept {
    return preference_descriptions_some_selection_;
  }
  void SetPreference_Descriptions_SomeSelection(std::int32_t count) noexcept {
    Change(preference_descriptions_some_selection_, count);
  }

  // The list of the style in force; empty for a style that does not exist.
  [[nodiscard]] TextList GetPreferredDebitDescriptions() const;
  [[nodiscard]] TextList GetPreferredDepositDescriptions() const;
  [[nodiscard]] TextList GetPreferredTransferDescriptions() const;
  [[nodiscard]] TextList GetPreferredTos() const;
  [[nodiscard]] TextList GetPreferredFroms() const;

  // The user's own lists.
  void SetPreferredDebitDescriptions(TextList texts);
  void SetPreferredDepositDescriptions(TextList texts);
  void SetPreferredTransferDescriptions(TextList texts);
  void SetPreferredTos(TextList texts);
  void SetPreferredFroms(TextList texts);
  [[nodiscard]] const TextList& DebitDescriptions_Specific() const noexcept {
    return preferred_debit_descriptions_;
  }
  [[nodiscard]] const TextList& DepositDescriptions_Specific() const noexcept {
    return preferred_deposit_descriptions_;
  }
  [[nodiscard]] const TextList& TransferDescriptions_Specific() const noexcept {
    return preferred_transfer_descriptions_;
  }
  [[nodiscard]] const TextList& Tos_Specific() const noexcept { return preferred_tos_; }
  [[nodiscard]] const TextList& Froms_Specific() const noexcept { return preferred_froms_; }

  // Every distinct text of the kind, ignoring case, sorted; the first spelling met wins. Entries
  // with a split do not count for payees and sources. Empty while the account is locked.
  [[nodiscard]] TextList DebitDescriptions_All() const;
  [[nodiscard]] TextList DepositDescriptions_All() const;
  [[nodiscard]] TextList TransferDescriptions_All() const;
  [[nodiscard]] TextList Tos_All() const;
  [[nodiscard]] TextList Froms_All() const;

  // The latest distinct texts by entry number, newest first, not sorted: `count` + 1 of them when
  // there are enough. Empty while the account is locked.
  [[nodiscard]] TextList DebitDescriptions_Some(std::int32_t count) const;
  [[nodiscard]] TextList DepositDescriptions_Some(std::int32_t count) const;
  [[nodiscard]] TextList Tos_Some(std::int32_t count) const;
  [[nodiscard]] TextList Froms_Some(std::int32_t count) const;
  // Differs on purpose: disregards the lock, and ends with the first text added from a transfer
  // that is not among the newest `count`.
  [[nodiscard]] TextList TransferDescriptions_Some(std::int32_t count) const;

  // Append the texts of the other account's own lists that are missing here, ignoring case.
  void importDescriptionsFromAccount(const LDGRAccount& other);
  void importToFromsFromAccount(const LDGRAccount& other);

  // --- Password -----------------------------------------------------------------------------

  [[nodiscard]] const std::string& GetPassword() const noexcept { return password_; }
  // A missing value is ignored; "" takes the password away and authenticates.
  void SetPassword(std::optional<std::string_view> password);
  [[nodiscard]] bool HasPassword() const noexcept { return !password_.empty(); }
  // True once the right password has been given, now or before.
  bool Authenticate(std::string_view password) noexcept;
  // The mark alone; IsLocked() tells whether the account is to be hidden.
  [[nodiscard]] bool IsAuthenticated() const noexcept { return authenticated_; }
  // Ignored by an account without a password, which cannot be locked.
  void setAuthenticated(bool authenticated) noexcept;
  // Has a password that has not been given.
  [[nodiscard]] bool IsLocked() const noexcept { return HasPassword() && !authenticated_; }

  // --- Summaries (src/summaries) --------------------------------------------------------------

  [[nodiscard]] const AccountSummaryList& accountSummaries() const {
    MakeMissingSummaries();
    return account_summaries_;
  }
  // Appends, and selects it when none was selected; null is ignored.
  void addAccountSummary(std::shared_ptr<LDGRAccountSummary> summary);
  // Removing the selected one selects the first.
  void removeAccountSummary(const LDGRAccountSummary* summary);
  // Null when there is none.
  [[nodiscard]] const std::shared_ptr<LDGRAccountSummary>& selectedAccountSummary() const {
    MakeMissingSummaries();
    return selected_account_summary_;
  }
  // A summary or an index that is not in the list changes nothing.
  void selectAccountSummary(const LDGRAccountSummary* summary);
  void selectAccountSummaryAtIndex(std::size_t index);
  // Whether or not it is in the list.
  void setSelectedAccountSummary(std::shared_ptr<LDGRAccountSummary> summary);
  // A new list of the twelve summaries every new account starts with, belonging to no account.
  [[nodiscard]] static AccountSummaryList DefaultAccountSummaries();

  // --- Filters of the two registers (src/filters) ---------------------------------------------

  [[nodiscard]] std::int32_t entryFilterType() const noexcept { return entry_filter_type_; }
  void setEntryFilterType(std::int32_t type) noexcept { Change(entry_filter_type_, type); }
  // The search text as a rule; any stored kind. None is stored as absent.
  [[nodiscard]] const plist::Value& entryFilterData() const noexcept { return entry_filter_data_; }
  void setEntryFilterData(const plist::Value& data);
  [[nodiscard]] std::int32_t reconcileFilterType() const noexcept { return reconcile_filter_type_; }
  void setReconcileFilterType(std::int32_t type) noexcept { Change(reconcile_filter_type_, type); }
  [[nodiscard]] const plist::Value& reconcileFilterData() const noexcept {
    return reconcile_filter_data_;
  }
  void setReconcileFilterData(const plist::Value& data);

  // A new filter for a stored filter type and its data.
  [[nodiscard]] std::shared_ptr<LDGRFilter> filterTypeAsLDGRFilter(std::int32_t type,
                                                                   const plist::Value& data) const;
  [[nodiscard]] std::shared_ptr<LDGRFilter> entryFilter() const;
  [[nodiscard]] std::shared_ptr<LDGRFilter> reconcileFilter() const;
  // The entries that the filter passes.
  [[nodiscard]] EntryList entryFilteredEntries() const;
  [[nodiscard]] EntryList reconcileFilteredEntries() const;

  // --- Export (src/exchange) ------------------------------------------------------------------

  [[nodiscard]] std::string asQIFStringWithOptions(const ExportOptions& options) const;
  [[nodiscard]] std::string asTabDelimitedStringWithOptions(const ExportOptions& options) const;

  // --- Orders of account lists ----------------------------------------------------------------
  // 1, 0 or -1; names ignoring case. The reversed forms return the opposite sign.

  [[nodiscard]] int NameIsGreaterThan(const LDGRAccount& other) const noexcept;
  [[nodiscard]] int NameIsGreaterThan_Reversed(const LDGRAccount& other) const noexcept;
  [[nodiscard]] int NumberIsGreaterThan(const LDGRAccount& other) const noexcept;
  // By GetBalance().
  [[nodiscard]] int BalanceIsGreaterThan(const LDGRAccount& other) const noexcept;
  [[nodiscard]] int BalanceIsGreaterThan_Reversed(const LDGRAccount& other) const noexcept;

 private:
  friend class AccountLists;

  // An account with nothing in it, to hold an image.
  struct Bare {};
  explicit LDGRAccount(Bare) {}

  // How each stored key is written and read (account_dictionary.cpp).
  struct StoredKey;
  void Read(const plist::Dictionary& dictionary, bool consume);

  // The dictionary forms of the summaries, by whom they are known (src/summaries).
  void WriteAccountSummaries(plist::Output& output) const;
  // Calls `skip_element` for each element that is no dictionary.
  void ReadAccountSummaries(const plist::Array& array, const std::function<void()>& skip_element);
  // Replaces the list, makes it belong to this account and selects its first.
  void TakeAccountSummaries(AccountSummaryList summaries);

  // The types and summaries of a new account are made when they are first asked for: they cost more
  // than the rest of it, and a file that is read mostly has its own.
  [[nodiscard]] EntryTypeList& Types() const {
    if (!types_) types_ = DefaultTypes();
    return *types_;
  }
  void MakeMissingSummaries() const {
    if (!has_summaries_) MakeDefaultSummaries();
  }
  void MakeDefaultSummaries() const;

  // Forgets what is logged of entries after a change that was not.
  const EntryLog& UpToDateEntryLog() const noexcept;

  // Forgets default types that are in neither list of types.
  void DropForeignDefaultTypes() noexcept;

  std::int32_t number_ = -1;
  std::int32_t version_ = kCurrentVersion;
  std::string name_;
  EntryList entries_;
  mutable EntryLog entry_log_;
  // The EntriesRevision() that the log is of.
  mutable std::uint64_t logged_revision_ = 0;
  // How many changes that touch entries are open.
  int open_entry_changes_ = 0;
  // Made when they are first asked for.
  mutable std::shared_ptr<EntryNumbers> entry_numbers_;
  mutable std::shared_ptr<RunningBalanceTable> running_balances_;
  mutable std::optional<EntryTypeList> types_;
  EntryTypeList inactive_types_;
  std::int32_t starting_check_number_ = 1;
  double starting_balance_ = 0.0;
  std::string password_;
  bool authenticated_ = false;
  ScheduleList schedules_;
  std::int32_t number_count_ = 0;
  std::shared_ptr<LDGRAccountEntryType> default_debit_type_;
  std::shared_ptr<LDGRAccountEntryType> default_deposit_type_;
  std::shared_ptr<LDGRAccountEntryType> default_transfer_type_;
  std::int32_t preference_descriptions_style_ = 1;
  std::int32_t preference_to_from_style_ = 1;
  std::int32_t preference_to_from_some_selection_ = 25;
  std::int32_t preference_descriptions_some_selection_ = 25;
  TextList preferred_debit_descriptions_;
  TextList preferred_deposit_descriptions_;
  TextList preferred_transfer_descriptions_;
  TextList preferred_tos_;
  TextList preferred_froms_;
  mutable bool has_summaries_ = false;
  mutable AccountSummaryList account_summaries_;
  mutable std::shared_ptr<LDGRAccountSummary> selected_account_summary_;
  std::int32_t entry_filter_type_ = 0;
  plist::Value entry_filter_data_ = "";
  std::int32_t reconcile_filter_type_ = 0;
  plist::Value reconcile_filter_data_ = "";
};

}  // namespace tallyfold
