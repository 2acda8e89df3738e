#include "app/views/account_summary_sheet.h"

#include "app/face/blank_text.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "summaries/summary_choices.h"

namespace tallyfold {
namespace {

namespace choices = summary_choices;

template <typename Choices>
std::vector<PopUpItem> Items(const Choices& from) {
  std::vector<PopUpItem> items;
  for (const auto& choice : from) items.push_back({LocalizedText(choice.name), choice.number});
  return items;
}

}  // namespace

bool AccountSummarySheet::Open() {
  const Announcer::Operation operation(announcer_);
  const auto account = desk_.SelectedAccount();
  if (account == nullptr || account->selectedAccountSummary() == nullptr ||
      !sheets_.Open(Sheet::AccountSummary, [this] { Cancel(); })) {
    return false;
  }
  account_ = account;
  summary_ = account->selectedAccountSummary();
  state_.is_open = true;
  state_.date_ranges = Items(choices::kDateRanges);
  state_.period_styles = Items(choices::kPeriodStyles);
  state_.show_styles = Items(choices::kShowStyles);
  state_.resolved = Items(choices::kResolved);
  state_.tax_deductible = Items(choices::kTaxDeductible);
  state_.checks = Items(choices::kChecks);
  state_.filter_types = Items(choices::kFilterTypes);
  Populate();
  return true;
}

void AccountSummarySheet::Populate() {
  if (!state_.is_open) return;
  state_.options =
      std::make_shared<LDGRAccountSummary>(summary_->optionsAsDictionary().DeepCopy(), nullptr);
  OptionsChanged();
}

void AccountSummarySheet::OptionsChanged() {
  if (!state_.is_open) return;
  LDGRAccountSummary& options = *state_.options;
  state_.ok_is_enabled = !IsBlank(options.name());
  state_.days_are_enabled =
      choices::WithNumber(choices::kDateRanges, options.dateRangeStyle()) == nullptr ||
      options.dateRangeStyle() == choices::kCustom;
  state_.filter_is_enabled = options.filter();
  // The copy belongs to the account only while it is computed: no edit is a change of the account.
  options.setAccount(account_.get());
  options.Refresh();
  state_.result = LayOutSummary(options, RegisterDateFormat(desk_.preferences()));
  options.setAccount(nullptr);
  announcer_.Changed(Area::AccountSummarySheet);
}

bool AccountSummarySheet::OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::AccountSummary)) return false;
  OptionsChanged();
  if (!state_.ok_is_enabled) return false;
  const plist::Dictionary options = state_.options->optionsAsDictionary();
  Change change(ledger_, "Summary Options", account_);
  if (!(options == summary_->optionsAsDictionary())) {
    change.Edit(account_, summary_).setOptionsFromDictionary(options);
  }
  change.Close();
  Close();
  tab_.Show();
  return true;
}

void AccountSummarySheet::Cancel() {
  const Announcer::Operation operation(announcer_);
  if (state_.is_open) Close();
}

void AccountSummarySheet::Close() {
  state_ = AccountSummarySheetState();
  account_ = nullptr;
  summary_ = nullptr;
  announcer_.Changed(Area::AccountSummarySheet);
  sheets_.Close(Sheet::AccountSummary);
}

}  // namespace tallyfold
