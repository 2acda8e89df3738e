#include "app/views/account_summary_sheet.h"

#include <utility>

#include "app/face/blank_text.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "summaries/summary_choices.h"

namespace tallyfold {
namespace {

namespace choices = summary_choices;

using Typed = AccountSummarySheetState::Typed;

constexpr TypedField<Typed> kFields[] = {
    {"_Name_Field", AreSame<Typed, &Typed::name>},
    // Only the days of a custom range count.
    {"_Start_Field",
     [](const Typed& a, const Typed& b) {
       return a.start == b.start && a.date_range == b.date_range;
     }},
    {"_End_Field",
     [](const Typed& a, const Typed& b) { return a.end == b.end && a.date_range == b.date_range; }},
};

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
  options_ =
      std::make_shared<LDGRAccountSummary>(summary_->optionsAsDictionary().DeepCopy(), nullptr);
  const LDGRAccountSummary& options = *options_;
  auto& typed = state_.typed;
  typed.name = options.name();
  typed.date_range = options.dateRangeStyle();
  typed.start = options.startDate();
  typed.end = options.endDate();
  typed.period_style = options.subtotalPeriodStyle();
  typed.show_style = options.showStyle();
  typed.show_debits = options.showDebits();
  typed.show_deposits = options.showDeposits();
  typed.show_transfers = options.showTransfers();
  typed.resolved = options.showResolved();
  typed.tax_deductible = options.showTaxDeductible();
  typed.checks = options.showChecks();
  typed.subtotal_descriptions = options.subtotalDescriptions();
  typed.subtotal_types = options.subtotalTypes();
  typed.subtotal_to_froms = options.subtotalToFroms();
  typed.filter = options.filter();
  typed.filter_type = options.filterType();
  typed.filter_text = options.filterData().StringValue();
  state_.problem.reset();
  Decide();
}

void AccountSummarySheet::Read(Typed typed) {
  if (!state_.is_open) return;
  TakeTyped(state_.typed, std::move(typed), state_.problem, kFields);
  TakeOptions();
  Decide();
}

void AccountSummarySheet::TakeOptions() {
  const auto& typed = state_.typed;
  LDGRAccountSummary& options = *options_;
  options.setName(typed.name);
  options.setDateRangeStyle(typed.date_range);
  if (typed.start) options.setStartDate(*typed.start);
  if (typed.end) options.setEndDate(*typed.end);
  options.setSubtotalPeriodStyle(typed.period_style);
  options.setShowStyle(typed.show_style);
  options.setShowDebits(typed.show_debits);
  options.setShowDeposits(typed.show_deposits);
  options.setShowTransfers(typed.show_transfers);
  options.setShowResolved(typed.resolved);
  options.setShowTaxDeductible(typed.tax_deductible);
  options.setShowChecks(typed.checks);
  options.setSubtotalDescriptions(typed.subtotal_descriptions);
  options.setSubtotalTypes(typed.subtotal_types);
  options.setSubtotalToFroms(typed.subtotal_to_froms);
  options.setFilter(typed.filter);
  options.setFilterType(typed.filter_type);
  // A file may hold something else than a text there, which stays until another text is typed.
  if (typed.filter_text != options.filterData().StringValue()) {
    options.setFilterData(typed.filter_text);
  }
}

void AccountSummarySheet::Decide() {
  LDGRAccountSummary& options = *options_;
  result_.reset();
  state_.days_are_enabled =
      choices::WithNumber(choices::kDateRanges, options.dateRangeStyle()) == nullptr ||
      options.dateRangeStyle() == choices::kCustom;
  state_.filter_is_enabled = options.filter();
  // The copy belongs to the account only while it is asked: no edit is a change of the account.
  options.setAccount(account_.get());
  options.updateDateRange();
  options.setAccount(nullptr);
  if (!state_.days_are_enabled) {
    state_.typed.start = options.startDate();
    state_.typed.end = options.endDate();
  }
  state_.ok_is_enabled = !Check();
  announcer_.Changed(Area::AccountSummarySheet);
}

const SummaryLayout& AccountSummarySheet::Result() {
  if (!result_ && options_ == nullptr) result_.emplace();
  if (!result_) {
    LDGRAccountSummary& options = *options_;
    options.setAccount(account_.get());
    options.Refresh();
    result_ = LayOutSummary(options, RegisterDateFormat(desk_.preferences()));
    options.setAccount(nullptr);
  }
  return *result_;
}

std::optional<Problem> AccountSummarySheet::Check() const {
  const auto& typed = state_.typed;
  if (IsBlank(typed.name)) {
    return Problem{"accountSummarySheet_Name_Field", LocalizedText("The summary needs a name.")};
  }
  const std::string no_date = LocalizedText("The date does not exist.");
  if (!typed.start) return Problem{"accountSummarySheet_Start_Field", no_date};
  if (!typed.end) return Problem{"accountSummarySheet_End_Field", no_date};
  return std::nullopt;
}

bool AccountSummarySheet::OK() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open || !announcer_.EndEditing(Sheet::AccountSummary)) return false;
  Decide();
  state_.problem = Check();
  if (state_.problem) return false;
  const plist::Dictionary options = options_->optionsAsDictionary();
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
  options_ = nullptr;
  result_.reset();
  announcer_.Changed(Area::AccountSummarySheet);
  sheets_.Close(Sheet::AccountSummary);
}

}  // namespace tallyfold
