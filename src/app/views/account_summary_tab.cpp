#include "app/views/account_summary_tab.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "app/face/blank_text.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

AccountSummaryList SummariesByName(const LDGRAccount& account) {
  AccountSummaryList summaries = account.accountSummaries();
  std::stable_sort(summaries.begin(), summaries.end(),
                   [](const auto& a, const auto& b) { return a->NameIsGreaterThan(*b) < 0; });
  return summaries;
}

// The name, with the next free number behind it where the account has a summary of that name.
std::string UnusedName(const LDGRAccount& account, const std::string& stem) {
  std::unordered_set<std::string_view> names;
  for (const auto& summary : account.accountSummaries()) names.insert(summary->name());
  std::string name = stem;
  for (std::size_t number = 2; names.contains(name); ++number) {
    name = stem + ' ' + std::to_string(number);
  }
  return name;
}

}  // namespace

void AccountSummaryTab::Show() {
  source_.reset();
  state_ = AccountSummaryTabState();
  announcer_.Changed(Area::Summary);
}

const AccountSummaryTabState& AccountSummaryTab::State() {
  const auto account = desk_.SelectedAccount();
  Source source{account.get(), account != nullptr ? account->Revision() : 0, TodaysDateNumber(),
                RegisterDateFormat(desk_.preferences())};
  if (source_ == source) return state_;
  source_ = std::move(source);
  state_ = AccountSummaryTabState();
  if (account == nullptr) return state_;

  state_.summaries = SummariesByName(*account);
  const auto& selected = account->selectedAccountSummary();
  const auto row = std::find(state_.summaries.begin(), state_.summaries.end(), selected);
  if (row == state_.summaries.end()) return state_;
  state_.selected_row = static_cast<std::int32_t>(row - state_.summaries.begin());
  selected->Refresh();
  state_.layout = LayOutSummary(*selected, source_->date_format);
  return state_;
}

bool AccountSummaryTab::Select(std::size_t row) {
  const auto account = AccountToChange();
  if (account == nullptr || row >= account->accountSummaries().size()) return false;
  return SelectSummary(SummariesByName(*account)[row].get());
}

bool AccountSummaryTab::SelectSummary(const LDGRAccountSummary* summary) {
  const auto account = AccountToChange();
  if (account == nullptr) return false;
  const auto& summaries = account->accountSummaries();
  const auto is_it = [summary](const auto& each) { return each.get() == summary; };
  if (std::ranges::none_of(summaries, is_it)) return false;
  if (!is_it(account->selectedAccountSummary())) {
    Change change(ledger_);
    change.EditSettings(account).selectAccountSummary(summary);
    change.Close();
  }
  Show();
  return true;
}

std::shared_ptr<LDGRAccountSummary> AccountSummaryTab::Add() {
  const auto account = AccountToChange();
  if (account == nullptr) return nullptr;
  auto summary = std::make_shared<LDGRAccountSummary>();
  const std::string name = UnusedName(*account, summary->name());
  return AddAndSelect("New Summary", account, std::move(summary), name);
}

std::shared_ptr<LDGRAccountSummary> AccountSummaryTab::Duplicate() {
  const auto account = AccountToChange();
  if (account == nullptr || account->selectedAccountSummary() == nullptr) return nullptr;
  const LDGRAccountSummary& original = *account->selectedAccountSummary();
  const std::string stem = Message("{1} Copy", {original.name()});
  return AddAndSelect(
      "Duplicate Summary", account,
      std::make_shared<LDGRAccountSummary>(original.optionsAsDictionary().DeepCopy(), nullptr),
      UnusedName(*account, stem));
}

std::shared_ptr<LDGRAccountSummary> AccountSummaryTab::AddAndSelect(
    std::string_view step, const std::shared_ptr<LDGRAccount>& account,
    std::shared_ptr<LDGRAccountSummary> summary, const std::string& name) {
  summary->setName(name);
  Change change(ledger_, step, account);
  change.Add(account, summary);
  change.EditSettings(account).selectAccountSummary(summary.get());
  change.Close();
  Show();
  return summary;
}

bool AccountSummaryTab::Rename(std::string_view name) {
  const auto account = AccountToChange();
  if (account == nullptr || account->selectedAccountSummary() == nullptr || IsBlank(name)) {
    return false;
  }
  Change change(ledger_, "Rename Summary", account);
  change.Edit(account, account->selectedAccountSummary()).setName(name);
  change.Close();
  Show();
  return true;
}

bool AccountSummaryTab::Remove() {
  const auto account = AccountToChange();
  if (account == nullptr || account->selectedAccountSummary() == nullptr) return false;
  if (account->accountSummaries().size() <= 1) {
    alerts_.Run({LocalizedText("Remove Summary"),
                 LocalizedText("This is the only summary of the account.  It cannot be removed."),
                 {LocalizedText("OK")}});
    return false;
  }
  // Held, because the account lets go of it.
  const auto summary = account->selectedAccountSummary();
  Change change(ledger_, "Remove Summary", account);
  change.Remove(account, summary.get());
  change.Close();
  Show();
  return true;
}

EntryList AccountSummaryTab::ShowEntries(const SummaryLine& line) {
  const auto account = AccountToChange();
  if (account == nullptr || account->selectedAccountSummary() == nullptr) return {};
  static_cast<void>(State());
  EntryList entries = EntriesOfLine(*account->selectedAccountSummary(), state_.layout, line);
  if (entries.empty()) return entries;
  const Announcer::Operation operation(announcer_);
  if (std::ranges::all_of(entries,
                          [this](const auto& each) { return host_.IsShown(each.get()); })) {
    host_.ShowRegister();
  } else {
    host_.ShowAllEntries();
  }
  desk_.SelectEntry(entries.back());
  return entries;
}

std::shared_ptr<LDGRAccount> AccountSummaryTab::AccountToChange() const {
  return sheets_.IsFree() ? desk_.SelectedAccount() : nullptr;
}

}  // namespace tallyfold
