#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "model/date_number.h"
#include "summaries/kept_texts.h"

namespace tallyfold {

// The entries under one name: how many, and the sum of their signed amounts.
struct Subtotal {
  // Kept by the PeriodSubtotals this belongs to.
  std::string_view name;
  double amount = 0.0;
  std::size_t count = 0;
};

// Each name once, letters and case exact, in the order in which entries first had it.
using Subtotals = std::vector<Subtotal>;

// What the entries of some days come to. Sums are of signed amounts.
struct PeriodSubtotals {
  // Both days belong to the period.
  DateNumber start_date = kNullDate;
  DateNumber end_date = kNullDate;
  std::size_t count = 0;

  double total = 0.0;
  double debits_total = 0.0;
  double deposits_total = 0.0;
  double transfers_total = 0.0;
  double resolved_total = 0.0;
  double unresolved_total = 0.0;
  double tax_deductible_total = 0.0;
  double taxable_total = 0.0;

  // Empty where the summary does not form them. Types go by their names, "" for none; all
  // transfers are of the type "Transfer" (in the user's language).
  Subtotals types_subtotals;
  Subtotals descriptions_subtotals;
  Subtotals to_from_subtotals;
  // The texts of their names, shared by all periods of a result: a summary by days has each name
  // hundreds of times.
  std::shared_ptr<const KeptTexts> names;
};

// A computed summary.
struct SummaryResult {
  // One for each period, in the order of their days.
  std::vector<PeriodSubtotals> subtotals;
  // Whether those without entries are missing there, being too many.
  bool leaves_out_empty_periods = false;
  // The same of all periods together. Its days are those of the range.
  PeriodSubtotals whole;
  // The account's running balances before the first and through the last day of the range, which
  // count every entry.
  double start_balance = 0.0;
  double end_balance = 0.0;
};

}  // namespace tallyfold
