#include "summaries/account_summary.h"

#include <algorithm>
#include <cstddef>

#include "model/account.h"
#include "model/calendar.h"
#include "model/text.h"
#include "platform/ambient.h"
#include "platform/clock.h"
#include "plist/read_report.h"

namespace tallyfold {
namespace {

constexpr std::string_view kMissing = "No %@ defined for LDGRAccountSummary.";
constexpr std::string_view kWrong = "%@ is in wrong format for LDGRAccountSummary.";
// Comes after the plain fields; holds a value of any kind.
constexpr std::string_view kFilterData = "filterData";

}  // namespace

LDGRAccountSummary::LDGRAccountSummary() : name_(LocalizedText("Untitled Summary")) {
  const CivilTime now = CurrentClock().LocalNow();
  const int last_day = DaysInMonth(now.year, now.month);
  start_date_ = NSCalendarDateToDateNumber(CivilTime{now.year, now.month, 1});
  end_date_ = NSCalendarDateToDateNumber(CivilTime{now.year, now.month, last_day});
}

LDGRAccountSummary::LDGRAccountSummary(const std::optional<plist::Dictionary>& options,
                                       LDGRAccount* account)
    : LDGRAccountSummary() {
  if (options) {
    setOptionsFromDictionary(*options);
  } else {
    Log("Invalid theDictionary supplied to LDGRAccountSummary:initWithOptionsDictionary");
  }
  account_ = account;
}

std::span<const Field<LDGRAccountSummary>> LDGRAccountSummary::Fields() {
  using Summary = LDGRAccountSummary;
  static const Field<Summary> kFields[] = {
      {"name", &Summary::name_, kMissing, kWrong},
      {"dateRangeStyle", &Summary::date_range_style_, kMissing, kWrong},
      {"startDate", &Summary::start_date_, kMissing, kWrong},
      {"endDate", &Summary::end_date_, kMissing, kWrong},
      {"showStyle", &Summary::show_style_, kMissing, kWrong},
      {"showDebits", &Summary::show_debits_, kMissing, kWrong},
      {"showDeposits", &Summary::show_deposits_, kMissing, kWrong},
      {"showTransfers", &Summary::show_transfers_, kMissing, kWrong},
      {"showResolved", &Summary::show_resolved_, kMissing, kWrong},
      {"showTaxDeductible", &Summary::show_tax_deductible_, kMissing, kWrong},
      {"showChecks", &Summary::show_checks_, kMissing, kWrong},
      {"subtotalDescriptions", &Summary::subtotal_descriptions_, kMissing, kWrong},
      {"subtotalTypes", &Summary::subtotal_types_, kMissing, kWrong},
      {"subtotalToFroms", &Summary::subtotal_to_froms_, kMissing, kWrong},
      {"subtotalPeriodStyle", &Summary::subtotal_period_style_, kMissing, kWrong},
      {"filter", &Summary::filter_, kMissing, kWrong},
      {"filterType", &Summary::filter_type_, kMissing, kWrong},
  };
  return kFields;
}

void LDGRAccountSummary::WriteTo(plist::Output& output) const {
  output.BeginDictionary();
  for (const auto& field : Fields()) WriteField(*this, field, output);
  output.Key(kFilterData);
  output.Write(filter_data_);
  output.EndDictionary();
}

plist::Dictionary LDGRAccountSummary::optionsAsDictionary() const {
  plist::TreeBuilder builder;
  WriteTo(builder);
  return builder.Take().DictionaryValue();
}

void LDGRAccountSummary::setOptionsFromDictionary(const plist::Dictionary& options) {
  std::size_t met = 0;
  for (const auto& field : Fields()) {
    if (ReadField(*this, field, options)) ++met;
  }
  const plist::Value& data = options.Get(kFilterData);
  if (data.IsNone()) {
    LogForKey(kMissing, kFilterData);
  } else {
    ++met;
  }
  setFilterData(data);
  plist::ReportUnknownKeys(options, met, [](std::string_view key) {
    const auto fields = Fields();
    return key == kFilterData || std::any_of(fields.begin(), fields.end(),
                                             [key](const auto& field) { return field.key == key; });
  });
  NoteChange();
}

void LDGRAccountSummary::setName(std::optional<std::string_view> name) {
  if (name) Change(name_, std::string(*name));
}

void LDGRAccountSummary::setFilterData(const plist::Value& data) {
  if (data.IsNone() || data == filter_data_) return;
  filter_data_ = data.DeepCopy();
  NoteChange();
}

int LDGRAccountSummary::NameIsGreaterThan(const LDGRAccountSummary& other) const noexcept {
  return CompareIgnoringCase(name_, other.name_);
}

void LDGRAccountSummary::NoteChange() noexcept {
  if (account_ != nullptr) account_->NoteChange(ChangeKind::Summaries);
}

}  // namespace tallyfold
