#include "summaries/subtotal_tally.h"

#include "model/account.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Sum = double PeriodSubtotals::*;
constexpr Sum kSums[] = {
    &PeriodSubtotals::total,
    &PeriodSubtotals::debits_total,
    &PeriodSubtotals::deposits_total,
    &PeriodSubtotals::transfers_total,
    &PeriodSubtotals::resolved_total,
    &PeriodSubtotals::unresolved_total,
    &PeriodSubtotals::tax_deductible_total,
    &PeriodSubtotals::taxable_total,
};

}  // namespace

void SubtotalTally::BeginPeriod() noexcept {
  ++period_;
  met_.clear();
}

void SubtotalTally::Add(std::string_view name, double amount, Subtotals& period) {
  Place& place = places_[name];
  if (place.period != period_) {
    place.period = period_;
    place.index_in_period = period.size();
    period.push_back({std::string(name), 0.0, 0});
    met_.push_back(&place);
  }
  Subtotal& subtotal = period[place.index_in_period];
  subtotal.amount += amount;
  ++subtotal.count;
}

void SubtotalTally::MergeInto(Subtotals& whole, const Subtotals& period) {
  for (std::size_t i = 0; i < period.size(); ++i) {
    Place& place = *met_[i];
    if (place.place_in_whole == 0) {
      whole.push_back({period[i].name, 0.0, 0});
      place.place_in_whole = whole.size();
    }
    Subtotal& subtotal = whole[place.place_in_whole - 1];
    subtotal.amount += period[i].amount;
    subtotal.count += period[i].count;
  }
}

SummaryTally::SummaryTally(const SubtotalKinds& kinds, const LDGRAccount* account)
    : kinds_(kinds), account_(account), transfer_(LocalizedText("Transfer")) {}

PeriodSubtotals SummaryTally::Period(Entries entries) {
  for (SubtotalTally* tally : {&types_, &descriptions_, &to_froms_}) tally->BeginPeriod();
  PeriodSubtotals period;
  for (const auto& entry : entries) Add(*entry, period);
  return period;
}

void SummaryTally::MergeInto(PeriodSubtotals& whole, const PeriodSubtotals& period) {
  for (const Sum sum : kSums) whole.*sum += period.*sum;
  whole.count += period.count;
  types_.MergeInto(whole.types_subtotals, period.types_subtotals);
  descriptions_.MergeInto(whole.descriptions_subtotals, period.descriptions_subtotals);
  to_froms_.MergeInto(whole.to_from_subtotals, period.to_from_subtotals);
}

void SummaryTally::Add(const LDGRAccountEntry& entry, PeriodSubtotals& period) {
  const double amount = entry.GetAmount();
  ++period.count;
  period.total += amount;
  if (entry.IsDebit()) period.debits_total += amount;
  if (entry.IsDeposit()) period.deposits_total += amount;
  if (entry.IsTransfer()) period.transfers_total += amount;
  (entry.GetCleared() ? period.resolved_total : period.unresolved_total) += amount;
  (entry.GetTaxDeductible() ? period.tax_deductible_total : period.taxable_total) += amount;
  if (kinds_.types) types_.Add(TypeName(entry), amount, period.types_subtotals);
  if (kinds_.descriptions) {
    descriptions_.Add(entry.GetDescription(), amount, period.descriptions_subtotals);
  }
  if (kinds_.to_froms) to_froms_.Add(entry.GetToFrom(), amount, period.to_from_subtotals);
}

std::string_view SummaryTally::TypeName(const LDGRAccountEntry& entry) {
  if (entry.IsTransfer()) return transfer_;
  if (entry.GetType() < 0 || account_ == nullptr) return {};
  const auto [known, is_new] = type_names_.try_emplace(entry.GetType());
  if (is_new) {
    const auto type = account_->AccountEntryTypeForNumber(entry.GetType());
    if (type != nullptr) known->second = type->GetName();
  }
  return known->second;
}

}  // namespace tallyfold
