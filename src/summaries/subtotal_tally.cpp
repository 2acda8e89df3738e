#include "summaries/subtotal_tally.h"

#include <memory>
#include <utility>

#include "model/account.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

constexpr std::uint32_t kNoLine = 0xFFFF'FFFFU;

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

void SubtotalTally::Add(std::string_view name, double amount) {
  const std::uint32_t number = names_.NumberOf(name);
  if (number == places_.size()) places_.push_back({0, 0, kNoLine});
  Place& place = places_[number];
  if (place.period != period_) {
    place.period = period_;
    place.line = static_cast<std::uint32_t>(lines_.size());
    lines_.push_back({number, name, 0.0, 0});
  }
  Line& line = lines_[place.line];
  line.amount += amount;
  ++line.count;
}

Subtotals SubtotalTally::EndPeriod(Subtotals& whole, KeptTexts& names) {
  Subtotals period;
  period.reserve(lines_.size());
  for (const Line& line : lines_) {
    std::uint32_t& line_in_whole = places_[line.number].line_in_whole;
    if (line_in_whole == kNoLine) {
      line_in_whole = static_cast<std::uint32_t>(whole.size());
      whole.push_back({names.Keep(line.name), 0.0, 0});
    }
    Subtotal& subtotal = whole[line_in_whole];
    subtotal.amount += line.amount;
    subtotal.count += line.count;
    period.push_back({subtotal.name, line.amount, line.count});
  }
  lines_.clear();
  ++period_;
  return period;
}

TypeNames::TypeNames(const LDGRAccount* account)
    : account_(account), transfer_(LocalizedText("Transfer")) {}

std::string_view TypeNames::Of(const LDGRAccountEntry& entry) {
  if (entry.IsTransfer()) return transfer_;
  if (entry.GetType() < 0 || account_ == nullptr) return {};
  const auto [known, is_new] = names_.try_emplace(entry.GetType());
  if (is_new) {
    const auto type = account_->AccountEntryTypeForNumber(entry.GetType());
    if (type != nullptr) known->second = type->GetName();
  }
  return known->second;
}

SummaryTally::SummaryTally(const SubtotalKinds& kinds, const LDGRAccount* account)
    : kinds_(kinds), type_names_(account) {
  whole_.names = names_;
}

void SummaryTally::Add(const LDGRAccountEntry& entry) {
  const double amount = entry.GetAmount();
  ++period_.count;
  period_.total += amount;
  if (entry.IsDebit()) period_.debits_total += amount;
  if (entry.IsDeposit()) period_.deposits_total += amount;
  if (entry.IsTransfer()) period_.transfers_total += amount;
  (entry.GetCleared() ? period_.resolved_total : period_.unresolved_total) += amount;
  (entry.GetTaxDeductible() ? period_.tax_deductible_total : period_.taxable_total) += amount;
  if (kinds_.types) types_.Add(type_names_.Of(entry), amount);
  if (kinds_.descriptions) descriptions_.Add(entry.GetDescription(), amount);
  if (kinds_.to_froms) to_froms_.Add(entry.GetToFrom(), amount);
}

PeriodSubtotals SummaryTally::EndPeriod() {
  PeriodSubtotals period = std::exchange(period_, {});
  for (const Sum sum : kSums) whole_.*sum += period.*sum;
  whole_.count += period.count;
  period.types_subtotals = types_.EndPeriod(whole_.types_subtotals, *names_);
  period.descriptions_subtotals = descriptions_.EndPeriod(whole_.descriptions_subtotals, *names_);
  period.to_from_subtotals = to_froms_.EndPeriod(whole_.to_from_subtotals, *names_);
  period.names = names_;
  return period;
}

}  // namespace tallyfold
