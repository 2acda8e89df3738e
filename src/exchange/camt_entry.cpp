#include "exchange/camt_entry.h"

#include <algorithm>
#include <utility>

#include "exchange/statement_cents.h"
#include "exchange/statement_texts.h"
#include "exchange/written_amount.h"
#include "exchange/written_day.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

// The first text that is there.
const std::string& FirstOf(const std::string& a, const std::string& b) noexcept {
  return a.empty() ? b : a;
}

void AddTexts(const CamtDetail& detail, bool is_credit, StatementRow& row) {
  // Who is on the other side; a reversal may have the two the other way round.
  const std::string& other = is_credit ? FirstOf(detail.debtor, detail.ultimate_debtor)
                                       : FirstOf(detail.creditor, detail.ultimate_creditor);
  const std::string& own = is_credit ? detail.creditor : detail.debtor;
  AddNewText(row.to_from, FirstOf(other, own));
  const std::string& ultimate = is_credit ? detail.ultimate_debtor : detail.ultimate_creditor;
  if (ultimate != other) AddNewText(row.notes, ultimate);
  AddText(row.description, detail.purpose);
  AddNewText(row.description, detail.information);
  AddNewText(row.notes, detail.references);
  TakeCheckNumber(detail.check_number, row);
}

// Where payments have texts of their own, that of the booking says what kind it is.
void AddBookingTexts(const CamtEntry& entry, StatementRow& row) {
  AddNewText(row.description.empty() ? row.description
             : row.type.empty()      ? row.type
                                     : row.notes,
             entry.information);
  AddNewText(row.notes, entry.reference);
}

bool IsCredit(const CamtDetail& detail, const CamtEntry& entry) noexcept {
  return detail.is_credit.value_or(entry.is_credit);
}

bool AddUp(const CamtEntry& entry, double amount) noexcept {
  Cents sum = 0;
  for (const CamtDetail& each : entry.details) {
    if (!each.amount || !HasCents(*each.amount)) return false;
    if (!each.currency.empty() && each.currency != entry.currency) return false;
    const Cents cents = CentsOf(*each.amount);
    sum += IsCredit(each, entry) == entry.is_credit ? cents : -cents;
  }
  return HasCents(amount) && sum == CentsOf(amount);
}

}  // namespace

void AppendRows(const CamtEntry& entry, StatementAccount& account) {
  StatementRow common;
  common.line = entry.line;
  common.type = entry.kind;
  const std::string& day = FirstOf(entry.booked, entry.valued);
  TakeDay(ReadDigitDay(day), day, common);
  const auto amount = ReadPlainAmount(entry.amount, common.doubts);
  if (entry.currency != account.currency && !entry.currency.empty()) {
    common.unmarked = UnmarkedReason::ForeignCurrency;
  }
  const bool is_split = entry.details.size() > 1 && amount && AddUp(entry, *amount);
  if (!is_split) {
    StatementRow& row = account.rows.emplace_back(std::move(common));
    if (amount) row.amount = entry.is_credit ? *amount : -*amount;
    for (const CamtDetail& each : entry.details) AddTexts(each, entry.is_credit, row);
    AddBookingTexts(entry, row);
    return;
  }
  for (const CamtDetail& each : entry.details) {
    StatementRow& row = account.rows.emplace_back(common);
    const bool is_credit = IsCredit(each, entry);
    row.line = each.line;
    row.amount = is_credit ? *each.amount : -*each.amount;
    AddTexts(each, is_credit, row);
    AddBookingTexts(entry, row);
  }
}

void Settle(ReversalSign choice, const std::vector<std::size_t>& reversals,
            StatementAccount& account, std::vector<StatementQuestion>& questions) {
  Cents sum = 0;
  Cents reversed = 0;
  bool is_whole = true;
  const auto counts = [](const StatementRow& row) {
    return row.unmarked != UnmarkedReason::ForeignCurrency;
  };
  for (const StatementRow& row : account.rows) {
    if (!counts(row)) continue;
    if (!row.amount || !HasCents(*row.amount)) {
      is_whole = false;
    } else {
      sum += CentsOf(*row.amount);
    }
  }
  for (const std::size_t place : reversals) {
    const StatementRow& row = account.rows[place];
    if (counts(row) && row.amount && HasCents(*row.amount)) reversed += CentsOf(*row.amount);
  }
  const bool has_balances = account.opening && account.closing &&
                            HasCents(account.opening->amount) && HasCents(account.closing->amount);
  const Cents moved =
      has_balances ? CentsOf(account.closing->amount) - CentsOf(account.opening->amount) : 0;
  bool is_turned = choice == ReversalSign::Turned;
  if (choice == ReversalSign::Proven && !reversals.empty()) {
    const bool can_prove = has_balances && is_whole;
    const bool fits = can_prove && moved == sum;
    is_turned = can_prove && !fits && moved == sum - 2 * reversed;
    if ((!fits && !is_turned) || reversed == 0) {
      const StatementRow& row = account.rows[reversals.front()];
      StatementQuestion question;
      question.kind = StatementQuestion::Kind::ReversalSign;
      question.rows = reversals.size();
      question.sample = FirstOf(row.to_from, row.description);
      const double amount = row.amount.value_or(0.0);
      question.candidates = {
          {static_cast<std::int64_t>(ReversalSign::AsMarked), FixedAmountString(amount)},
          {static_cast<std::int64_t>(ReversalSign::Turned), FixedAmountString(-amount)}};
      questions.push_back(std::move(question));
    }
  }
  if (is_turned) {
    sum -= 2 * reversed;
    for (const std::size_t place : reversals) {
      auto& amount = account.rows[place].amount;
      if (amount) amount = -*amount;
    }
  }
  if (!has_balances) return;
  const bool agrees = is_whole && moved == sum;
  account.proof.kind = agrees ? StatementProof::Kind::Closing : StatementProof::Kind::Disagree;
  account.proof.difference = static_cast<double>(moved - sum) / 100.0;
}

}  // namespace tallyfold
