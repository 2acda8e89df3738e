#include "exchange/csv_amounts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "exchange/statement_cents.h"
#include "model/amounts.h"

namespace tallyfold {
namespace {

using Decimal = WrittenAmount::Decimal;

// --- Balances -----------------------------------------------------------------------------------

constexpr std::array kBalanceOrders = {BalanceOrder{false, false}, BalanceOrder{false, true},
                                       BalanceOrder{true, false}, BalanceOrder{true, true}};

struct BalanceCheck {
  std::size_t pairs = 0;
  std::array<std::size_t, kBalanceOrders.size()> agreeing{};

  [[nodiscard]] std::size_t Best() const noexcept {
    return static_cast<std::size_t>(std::max_element(agreeing.begin(), agreeing.end()) -
                                    agreeing.begin());
  }
  [[nodiscard]] bool Proves() const noexcept { return pairs >= 2 && agreeing[Best()] == pairs; }
};

// Tells of each balance that has one before it, by its row and in which of the orders it agrees.
// False for amounts that have no cents.
template <typename Visit>
bool WalkBalances(const std::vector<CsvNumbers>& numbers, const CsvAmountRule& rule, Visit visit) {
  bool has_before = false;
  Cents last_balance = 0;
  Cents last_amount = 0;
  // What passed since the last row with a balance.
  Cents since = 0;
  for (std::size_t row = 0; row < numbers.size(); ++row) {
    const CsvNumbers& each = numbers[row];
    const double amount = rule.AmountOf(each);
    const double balance = each.balance.Number(rule.decimal_separator);
    if (!HasCents(amount) || !HasCents(balance)) return false;
    if (!each.balance.is_amount) {
      since += CentsOf(amount);
      continue;
    }
    const Cents now = CentsOf(balance);
    const Cents own = CentsOf(amount);
    if (has_before) {
      const Cents step = now - last_balance;
      visit(row, std::array<bool, kBalanceOrders.size()>{
                     step == since + own, -step == last_amount + since, step == last_amount + since,
                     -step == since + own});
    }
    has_before = true;
    last_balance = now;
    last_amount = own;
    since = 0;
  }
  return true;
}

BalanceCheck CheckBalances(const std::vector<CsvNumbers>& numbers, const CsvAmountRule& rule) {
  BalanceCheck check;
  const bool has_cents = WalkBalances(numbers, rule, [&check](std::size_t, const auto& agrees) {
    ++check.pairs;
    for (std::size_t i = 0; i < agrees.size(); ++i) {
      if (agrees[i]) ++check.agreeing[i];
    }
  });
  return has_cents ? check : BalanceCheck();
}

std::vector<std::size_t> DisagreeingRows(const std::vector<CsvNumbers>& numbers,
                                         const CsvAmountRule& rule, std::size_t order) {
  std::vector<std::size_t> rows;
  static_cast<void>(
      WalkBalances(numbers, rule, [&rows, order](std::size_t row, const auto& agrees) {
        if (!agrees[order]) rows.push_back(row);
      }));
  return rows;
}

StatementProof ProofOf(const BalanceCheck& check) {
  StatementProof proof;
  if (check.pairs == 0) return proof;
  const std::size_t best = check.Best();
  // The first has nothing to agree with.
  proof.balances = check.pairs + 1;
  proof.agreeing = check.agreeing[best] + 1;
  const bool all_agree = check.agreeing[best] == check.pairs;
  proof.kind = all_agree ? StatementProof::Kind::Running : StatementProof::Kind::Disagree;
  return proof;
}

// --- Questions ----------------------------------------------------------------------------------

std::string ReadingOf(const CsvNumbers& numbers, const CsvAmountRule& rule) {
  return rule.HasAmount(numbers) ? FixedAmountString(rule.AmountOf(numbers)) : std::string();
}

// A question with two answers, the one in force first.
template <typename Change>
StatementQuestion QuestionOf(StatementQuestion::Kind kind, std::string_view sample,
                             std::size_t count, const CsvNumbers& numbers, CsvAmountRule rule,
                             std::array<std::int64_t, 2> values, Change change) {
  StatementQuestion question;
  question.kind = kind;
  question.sample = sample;
  question.rows = count;
  for (const std::int64_t value : values) {
    change(rule, value);
    question.candidates.push_back({value, ReadingOf(numbers, rule)});
  }
  return question;
}

// Most amounts of a file of any account are money spent.
bool IsMostlyPositive(const std::vector<CsvNumbers>& numbers, const CsvAmountRule& rule) {
  constexpr std::size_t kFewest = 5;
  if (numbers.size() < kFewest) return false;
  std::size_t others = 0;
  for (const CsvNumbers& each : numbers) {
    if (rule.AmountOf(each) > 0) continue;
    if (++others * 5 > numbers.size()) return false;
  }
  return true;
}

}  // namespace

CsvNumberColumns::CsvNumberColumns(const std::vector<CsvField>& columns) {
  const std::pair<CsvField, std::optional<std::size_t>*> places[] = {
      {CsvField::Day, &day},         {CsvField::ValueDay, &value_day},
      {CsvField::Amount, &amount},   {CsvField::Debit, &debit},
      {CsvField::Credit, &credit},   {CsvField::Mark, &mark},
      {CsvField::Fee, &fee},         {CsvField::Net, &net},
      {CsvField::Balance, &balance},
  };
  for (const auto& [field, place] : places) {
    const auto found = std::find(columns.begin(), columns.end(), field);
    if (found != columns.end()) *place = static_cast<std::size_t>(found - columns.begin());
  }
  // The columns of debits and credits say more than a third that repeats them.
  if (debit && credit) amount.reset();
  if (net) {
    amount = net;
    debit.reset();
    credit.reset();
  } else if (amount) {
    debit.reset();
    credit.reset();
  }
}

void ReadCsvNumbers(const TableRow& row, const CsvNumberColumns& columns, CsvNumbers& numbers) {
  numbers.place = row.Place();
  if (columns.day) ReadWrittenDay(row.Cell(*columns.day), numbers.day);
  if (!numbers.day.is_day && columns.value_day) {
    const WrittenDay other = ReadWrittenDay(row.Cell(*columns.value_day));
    if (!columns.day || (numbers.day.is_blank && other.is_day)) numbers.day = other;
  }
  const auto read = [&](const std::optional<std::size_t>& column, WrittenAmount& written) {
    if (column) ReadWrittenAmount(row.Cell(*column), written);
  };
  read(columns.amount ? columns.amount : columns.debit, numbers.amount);
  read(columns.credit, numbers.credit);
  read(columns.fee, numbers.fee);
  read(columns.balance, numbers.balance);
  if (columns.mark) numbers.mark = MeaningOfMark(row.Cell(*columns.mark));
}

void CsvAmountCounts::Add(const CsvNumbers& numbers) noexcept {
  for (const WrittenAmount* each :
       {&numbers.amount, &numbers.credit, &numbers.fee, &numbers.balance}) {
    if (!each->is_amount) continue;
    if (each->decimal == Decimal::Point) ++points;
    if (each->decimal == Decimal::Comma) ++commas;
    if (each->decimal == Decimal::Undecided && undecided++ == 0) first_undecided = rows;
  }
  if (numbers.fee.is_amount && numbers.fee.digits != 0 && fees++ == 0) first_fee = rows;
  if (numbers.amount.is_amount && numbers.amount.digits != 0) {
    ++(numbers.amount.is_negative ? negative : positive);
  }
  ++rows;
}

std::string CsvText::Cell(std::size_t place, std::size_t column) const {
  TableRow row;
  return TableScanner(text, delimiter, place).Next(row) ? std::string(row.Cell(column))
                                                        : std::string();
}

CsvAmountReading JudgeAmounts(const std::vector<CsvNumbers>& numbers, const CsvAmountCounts& counts,
                              const CsvNumberColumns& columns, const CsvText& table,
                              const CsvChoices& choices,
                              std::vector<StatementQuestion>& questions) {
  using Kind = StatementQuestion::Kind;
  CsvAmountRule rule;
  rule.has_debits = !columns.amount && (columns.debit || columns.credit);
  rule.debits_are_negative =
      rule.has_debits && counts.negative > 0 && counts.negative >= counts.positive;
  rule.decimal_separator = counts.commas > counts.points ? ',' : '.';
  rule.decimal_separator = choices.decimal_separator.value_or(rule.decimal_separator);
  rule.fees_come_off = choices.fees_come_off.value_or(false);
  rule.spending_is_positive = choices.spending_is_positive.value_or(false);

  const bool has_fees = columns.fee && !columns.net && counts.fees > 0;
  const bool is_decided = (counts.points > 0) != (counts.commas > 0);
  const bool asks_separator = !choices.decimal_separator && counts.undecided > 0 && !is_decided;
  const bool asks_fees = !choices.fees_come_off && has_fees;
  // A mark, or a column for each direction, leaves no doubt of the sign.
  const bool asks_sign = !choices.spending_is_positive && !rule.has_debits && !columns.mark;
  const bool has_mixed_debits = rule.has_debits && counts.negative > 0 && counts.positive > 0;

  // The first of the open readings that the balances bear out.
  CsvAmountRule proven = rule;
  BalanceCheck check;
  if (columns.balance) {
    check = CheckBalances(numbers, rule);
    for (unsigned i = 1; i < 16 && !check.Proves(); ++i) {
      CsvAmountRule other = rule;
      if ((i & 1) != 0) {
        if (!asks_separator) continue;
        other.decimal_separator = rule.decimal_separator == '.' ? ',' : '.';
      }
      if ((i & 2) != 0) {
        if (!asks_fees) continue;
        other.fees_come_off = true;
      }
      if ((i & 4) != 0) {
        if (!asks_sign) continue;
        other.spending_is_positive = true;
      }
      if ((i & 8) != 0) {
        if (!has_mixed_debits) continue;
        other.debits_are_negative = !rule.debits_are_negative;
      }
      const BalanceCheck tried = CheckBalances(numbers, other);
      if (!tried.Proves()) continue;
      check = tried;
      proven = other;
    }
  }
  const bool is_proven = check.Proves();
  rule = proven;
  if (asks_separator && !is_proven) {
    const CsvNumbers& first = numbers[counts.first_undecided];
    const char other = rule.decimal_separator == '.' ? ',' : '.';
    const auto is_open = [](const WrittenAmount& written) {
      return written.decimal == Decimal::Undecided;
    };
    const auto column = is_open(first.amount)   ? (columns.amount ? columns.amount : columns.debit)
                        : is_open(first.credit) ? columns.credit
                        : is_open(first.fee)    ? columns.fee
                                                : columns.balance;
    questions.push_back(QuestionOf(Kind::DecimalSeparator, table.Cell(first.place, *column),
                                   counts.undecided, first, rule, {rule.decimal_separator, other},
                                   [](CsvAmountRule& changed, std::int64_t value) {
                                     changed.decimal_separator = static_cast<char>(value);
                                   }));
  }
  if (asks_fees && !is_proven) {
    const CsvNumbers& first = numbers[counts.first_fee];
    questions.push_back(QuestionOf(
        Kind::FeeColumn, table.Cell(first.place, *columns.fee), numbers.size(), first, rule, {0, 1},
        [](CsvAmountRule& changed, std::int64_t value) { changed.fees_come_off = value != 0; }));
  }
  // A balance of what is owed grows with what is spent, and bears out either sign.
  const bool is_sign_proven = is_proven && rule.spending_is_positive;
  if (asks_sign && !is_sign_proven && IsMostlyPositive(numbers, rule)) {
    questions.push_back(QuestionOf(
        Kind::SpendingSign, table.Cell(numbers.front().place, *columns.amount), numbers.size(),
        numbers.front(), rule, {0, 1}, [](CsvAmountRule& changed, std::int64_t value) {
          changed.spending_is_positive = value != 0;
        }));
  }
  CsvAmountReading reading;
  reading.rule = rule;
  reading.has_open_separator = asks_separator && !is_proven;
  reading.has_open_debits = has_mixed_debits && !is_proven;
  reading.proof = ProofOf(check);
  if (reading.proof.kind == StatementProof::Kind::Disagree) {
    reading.proof.disagreeing = DisagreeingRows(numbers, rule, check.Best());
  }
  if (is_proven) reading.balance_order = kBalanceOrders[check.Best()];
  return reading;
}

}  // namespace tallyfold
