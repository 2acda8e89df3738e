// What an account does with the summaries it holds.

#include <algorithm>
#include <utility>

#include "model/account.h"
#include "platform/ambient.h"
#include "summaries/account_summary.h"

namespace tallyfold {
namespace {

AccountSummaryList::const_iterator Find(const AccountSummaryList& summaries,
                                        const LDGRAccountSummary* summary) {
  return std::find_if(summaries.begin(), summaries.end(),
                      [summary](const auto& held) { return held.get() == summary; });
}

}  // namespace

AccountSummaryList LDGRAccount::DefaultAccountSummaries() {
  enum class Shows { Everything, Debits, Deposits, TaxDeductible };
  struct Row {
    std::string_view name;
    std::int32_t date_range_style;
    Shows shows;
  };
  static constexpr Row kRows[] = {
      {" Custom...", 0, Shows::Everything},
      {"All Entries, Month To Date", 16, Shows::Everything},
      {"All Entries, Quarter To Date", 17, Shows::Everything},
      {"All Entries, Year To Date", 18, Shows::Everything},
      {"Expenses, Month To Date", 16, Shows::Debits},
      {"Expenses, Quarter To Date", 17, Shows::Debits},
      {"Expenses, Year To Date", 18, Shows::Debits},
      {"Income, Month To Date", 16, Shows::Deposits},
      {"Income, Quarter To Date", 17, Shows::Deposits},
      {"Income, Year To Date", 18, Shows::Deposits},
      {"Tax-Deductible, Last Year", 7, Shows::TaxDeductible},
      {"Tax-Deductible, This Year", 11, Shows::TaxDeductible},
  };
  AccountSummaryList summaries;
  for (const Row& row : kRows) {
    auto summary = std::make_shared<LDGRAccountSummary>();
    summary->setName(LocalizedText(row.name));
    summary->setDateRangeStyle(row.date_range_style);
    summary->setShowDebits(row.shows != Shows::Deposits);
    summary->setShowDeposits(row.shows != Shows::Debits);
    summary->setShowTransfers(row.shows != Shows::Debits && row.shows != Shows::Deposits);
    if (row.shows == Shows::TaxDeductible) summary->setShowTaxDeductible(0);
    summaries.push_back(std::move(summary));
  }
  return summaries;
}

void LDGRAccount::addAccountSummary(std::shared_ptr<LDGRAccountSummary> summary) {
  if (!summary) return;
  MakeMissingSummaries();
  summary->setAccount(this);
  account_summaries_.push_back(std::move(summary));
  if (!selected_account_summary_) selected_account_summary_ = account_summaries_.back();
  NoteChange(ChangeKind::Summaries);
}

void LDGRAccount::removeAccountSummary(const LDGRAccountSummary* summary) {
  const auto found = Find(accountSummaries(), summary);
  if (found == account_summaries_.end()) return;
  (*found)->setAccount(nullptr);
  const bool was_selected = *found == selected_account_summary_;
  account_summaries_.erase(found);
  if (was_selected) {
    selected_account_summary_ = account_summaries_.empty() ? nullptr : account_summaries_.front();
  }
  NoteChange(ChangeKind::Summaries);
}

void LDGRAccount::selectAccountSummary(const LDGRAccountSummary* summary) {
  const auto found = Find(accountSummaries(), summary);
  if (found != account_summaries_.end()) Change(selected_account_summary_, *found);
}

void LDGRAccount::selectAccountSummaryAtIndex(std::size_t index) {
  if (index < accountSummaries().size()) {
    Change(selected_account_summary_, account_summaries_[index]);
  }
}

void LDGRAccount::setSelectedAccountSummary(std::shared_ptr<LDGRAccountSummary> summary) {
  MakeMissingSummaries();
  Change(selected_account_summary_, std::move(summary));
}

void LDGRAccount::WriteAccountSummaries(plist::Output& output) const {
  output.BeginArray();
  for (const auto& summary : accountSummaries()) summary->WriteTo(output);
  output.EndArray();
}

void LDGRAccount::MakeDefaultSummaries() const {
  // What the account holds is the same before and after: accounts are never made const.
  const_cast<LDGRAccount*>(this)->TakeAccountSummaries(DefaultAccountSummaries());
}

void LDGRAccount::ReadAccountSummaries(const plist::Array& array,
                                       const std::function<void()>& skip_element) {
  AccountSummaryList summaries;
  for (const plist::Value& value : array) {
    if (value.IsDictionary()) {
      summaries.push_back(std::make_shared<LDGRAccountSummary>(value.DictionaryValue(), this));
    } else {
      skip_element();
    }
  }
  TakeAccountSummaries(std::move(summaries));
}

void LDGRAccount::TakeAccountSummaries(AccountSummaryList summaries) {
  for (const auto& summary : account_summaries_) summary->setAccount(nullptr);
  has_summaries_ = true;
  account_summaries_ = std::move(summaries);
  for (const auto& summary : account_summaries_) summary->setAccount(this);
  selected_account_summary_ = account_summaries_.empty() ? nullptr : account_summaries_.front();
}

}  // namespace tallyfold
