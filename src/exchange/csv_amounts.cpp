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

// The cells whose separators count.
template <typename Visit>
void ForEachAmount(const CsvNumbers& numbers, Visit visit) {
  for (const WrittenAmount* each :
       {&numbers.amount, &numbers.credit, &numbers.fee, &numbers.balance}) {
    if (each->is_amount) visit(*each);
  }
}

// --- Separators ---------------------------------------------------------------------------------

struct SeparatorCounts {
  std::size_t points = 0;
  std::size_t commas = 0;
  std::size_t undecided = 0;
  const CsvNumbers* first_undecided = nullptr;
};

SeparatorCounts CountSeparators(const std::vector<CsvNumbers>& numbers) {
  SeparatorCounts counts;
  for (const CsvNumbers& each : numbers) {
    ForEachAmount(each, [&](const WrittenAmount& written) {
      if (written.decimal == Decimal::Point) ++counts.points;
      if (written.decimal == Decimal::Comma) ++counts.commas;
      if (written.decimal != Decimal::Undecided) return;
      ++counts.undecided;
      if (counts.first_undecided == nullptr) counts.first_undecided = &each;
    });
  }
  return counts;
}

// --- Balances -----------------------------------------------------------------------------------

constexpr std::array kBalanceOrders = {BalanceOrder{false, false}, BalanceOrder{false, true},
                                       BalanceOrder{true, false}, BalanceOrder{true, true}};

struct BalanceCheck {
  std::size_t balances = 0;
  std::size_t pairs = 0;
  std::array<std::size_t, kBalanceOrders.size()> agreeing{};
  std::array<std::size_t, kBalanceOrders.size()> first_disagreeing{};  // rows; SIZE_MAX for none

  [[nodiscard]] std::size_t Best() const noexcept {
    return static_cast<std::size_t>(std::max_element(agreeing.begin(), agreeing.end()) -
                                    agreeing.begin());
  }
  [[nodiscard]] bool Proves() const noexcept { return pairs >= 2 && agreeing[Best()] == pairs; }
};

BalanceCheck CheckBalances(const std::vector<CsvNumbers>& numbers, const CsvAmountRule& rule) {
  BalanceCheck check;
  check.first_disagreeing.fill(SIZE_MAX);
  bool has_before = false;
  Cents last_balance = 0;
  Cents last_amount = 0;
  // What passed since the last row with a balance.
  Cents since = 0;
  for (const CsvNumbers& each : numbers) {
    const double amount = rule.AmountOf(each).value_or(0.0);
    const auto balance = each.balance.Value(rule.decimal_separator);
    if (!HasCents(amount) || (balance && !HasCents(*balance))) return {};
    if (!balance) {
      since += CentsOf(amount);
      continue;
    }
    const Cents now = CentsOf(*balance);
    const Cents own = CentsOf(amount);
    ++check.balances;
    if (has_before) {
      const Cents step = now - last_balance;
      const std::array<bool, kBalanceOrders.size()> agrees = {
          step == since + own, -step == last_amount + since, step == last_amount + since,
          -step == since + own};
      ++check.pairs;
      for (std::size_t i = 0; i < agrees.size(); ++i) {
        if (agrees[i]) {
          ++check.agreeing[i];
        } else {
          check.first_disagreeing[i] = std::min(check.first_disagreeing[i], each.row);
        }
      }
    }
    has_before = true;
    last_balance = now;
    last_amount = own;
    since = 0;
  }
  return check;
}

StatementProof ProofOf(const BalanceCheck& check, const TableRows& rows) {
  StatementProof proof;
  if (check.pairs == 0) return proof;
  const std::size_t best = check.Best();
  proof.balances = check.balances;
  // The first has nothing to agree with.
  proof.agreeing = check.agreeing[best] + 1;
  const bool all_agree = check.agreeing[best] == check.pairs;
  proof.kind = all_agree ? StatementProof::Kind::Running : StatementProof::Kind::Disagree;
  if (!all_agree) proof.first_disagreeing_line = rows.Line(check.first_disagreeing[best]);
  return proof;
}

// --- Questions ----------------------------------------------------------------------------------

std::string ReadingOf(const CsvNumbers& numbers, const CsvAmountRule& rule) {
  const auto amount = rule.AmountOf(numbers);
  return amount ? FixedAmountString(*amount) : std::string();
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

// "2024-03-07"; "" for none.
std::string DashedDay(DateNumber day) {
  if (day == 0) return {};
  std::string text = std::to_string(day + 100'000'000).substr(1);
  text.insert(6, 1, '-').insert(4, 1, '-');
  return text;
}

bool DebitsAreNegative(const std::vector<CsvNumbers>& numbers) {
  std::size_t negative = 0;
  std::size_t positive = 0;
  for (const CsvNumbers& each : numbers) {
    if (!each.amount.is_amount || each.amount.digits == 0) continue;
    ++(each.amount.is_negative ? negative : positive);
  }
  return negative > 0 && negative >= positive;
}

// Most amounts of a file of any account are money spent.
bool IsMostlyPositive(const std::vector<CsvNumbers>& numbers, const CsvAmountRule& rule) {
  constexpr std::size_t kFewest = 5;
  if (numbers.size() < kFewest) return false;
  std::size_t others = 0;
  for (const CsvNumbers& each : numbers) {
    if (rule.AmountOf(each).value_or(0.0) > 0) continue;
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

void ReadCsvNumbers(const TableRows& rows, std::size_t row, const CsvNumberColumns& columns,
                    CsvNumbers& numbers) {
  numbers.row = row;
  if (columns.day) numbers.day = ReadWrittenDay(rows.Cell(row, *columns.day));
  if (!numbers.day.is_day && columns.value_day) {
    const WrittenDay other = ReadWrittenDay(rows.Cell(row, *columns.value_day));
    if (!columns.day || (numbers.day.is_blank && other.is_day)) numbers.day = other;
  }
  const auto read = [&](const std::optional<std::size_t>& column, WrittenAmount& written) {
    if (column) ReadWrittenAmount(rows.Cell(row, *column), written);
  };
  read(columns.amount ? columns.amount : columns.debit, numbers.amount);
  read(columns.credit, numbers.credit);
  read(columns.fee, numbers.fee);
  read(columns.balance, numbers.balance);
  if (columns.mark) numbers.mark = MeaningOfMark(rows.Cell(row, *columns.mark));
}

std::optional<double> CsvAmountRule::AmountOf(const CsvNumbers& numbers) const noexcept {
  const auto first = numbers.amount.Value(decimal_separator);
  double amount = 0.0;
  if (has_debits) {
    const auto credit = numbers.credit.Value(decimal_separator);
    if (!first && !credit) return std::nullopt;
    const double debit = first.value_or(0.0);
    amount = credit.value_or(0.0) - (debits_are_negative ? -debit : debit);
  } else {
    if (!first) return std::nullopt;
    amount = *first;
    if (numbers.mark == MarkMeaning::Debit) amount = -std::abs(amount);
    if (numbers.mark == MarkMeaning::Credit) amount = std::abs(amount);
    if (spending_is_positive && amount != 0.0) amount = -amount;
  }
  if (fees_come_off) amount -= std::abs(numbers.fee.Value(decimal_separator).value_or(0.0));
  return amount;
}

CsvAmountReading JudgeAmounts(const std::vector<CsvNumbers>& numbers,
                              const CsvNumberColumns& columns, const TableRows& rows,
                              const CsvChoices& choices,
                              std::vector<StatementQuestion>& questions) {
  using Kind = StatementQuestion::Kind;
  const SeparatorCounts counts = CountSeparators(numbers);
  CsvAmountRule rule;
  rule.has_debits = !columns.amount && (columns.debit || columns.credit);
  rule.debits_are_negative = rule.has_debits && DebitsAreNegative(numbers);
  rule.decimal_separator = counts.commas > counts.points ? ',' : '.';
  rule.decimal_separator = choices.decimal_separator.value_or(rule.decimal_separator);
  rule.fees_come_off = choices.fees_come_off.value_or(false);
  rule.spending_is_positive = choices.spending_is_positive.value_or(false);

  const bool has_fees = columns.fee && !columns.net &&
                        std::any_of(numbers.begin(), numbers.end(), [](const CsvNumbers& each) {
                          return each.fee.is_amount && each.fee.digits != 0;
                        });
  const bool is_decided = (counts.points > 0) != (counts.commas > 0);
  const bool asks_separator = !choices.decimal_separator && counts.undecided > 0 && !is_decided;
  const bool asks_fees = !choices.fees_come_off && has_fees;
  // A mark, or a column for each direction, leaves no doubt of the sign.
  const bool asks_sign = !choices.spending_is_positive && !rule.has_debits && !columns.mark;

  // The first of the open readings that the balances bear out.
  CsvAmountRule proven = rule;
  BalanceCheck check;
  if (columns.balance) {
    check = CheckBalances(numbers, rule);
    for (unsigned i = 1; i < 8 && !check.Proves(); ++i) {
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
      const BalanceCheck tried = CheckBalances(numbers, other);
      if (!tried.Proves()) continue;
      check = tried;
      proven = other;
    }
  }
  const bool is_proven = check.Proves();
  rule = proven;
  if (asks_separator && !is_proven) {
    const CsvNumbers& first = *counts.first_undecided;
    const char other = rule.decimal_separator == '.' ? ',' : '.';
    const auto is_open = [](const WrittenAmount& written) {
      return written.decimal == Decimal::Undecided;
    };
    const auto column = is_open(first.amount)   ? (columns.amount ? columns.amount : columns.debit)
                        : is_open(first.credit) ? columns.credit
                        : is_open(first.fee)    ? columns.fee
                                                : columns.balance;
    questions.push_back(QuestionOf(Kind::DecimalSeparator, rows.Cell(first.row, *column),
                                   counts.undecided, first, rule, {rule.decimal_separator, other},
                                   [](CsvAmountRule& changed, std::int64_t value) {
                                     changed.decimal_separator = static_cast<char>(value);
                                   }));
  }
  if (asks_fees && !is_proven) {
    const auto first = std::find_if(numbers.begin(), numbers.end(), [](const CsvNumbers& each) {
      return each.fee.is_amount && each.fee.digits != 0;
    });
    questions.push_back(QuestionOf(
        Kind::FeeColumn, rows.Cell(first->row, *columns.fee), numbers.size(), *first, rule, {0, 1},
        [](CsvAmountRule& changed, std::int64_t value) { changed.fees_come_off = value != 0; }));
  }
  // A balance of what is owed grows with what is spent, and bears out either sign.
  const bool is_sign_proven = is_proven && rule.spending_is_positive;
  if (asks_sign && !is_sign_proven && IsMostlyPositive(numbers, rule)) {
    questions.push_back(QuestionOf(
        Kind::SpendingSign, rows.Cell(numbers.front().row, *columns.amount), numbers.size(),
        numbers.front(), rule, {0, 1}, [](CsvAmountRule& changed, std::int64_t value) {
          changed.spending_is_positive = value != 0;
        }));
  }
  CsvAmountReading reading;
  reading.rule = rule;
  reading.has_open_separator = asks_separator && !is_proven;
  reading.proof = ProofOf(check, rows);
  if (is_proven) reading.balance_order = kBalanceOrders[check.Best()];
  return reading;
}

DayOrder JudgeDays(const std::vector<CsvNumbers>& numbers, const CsvNumberColumns& columns,
                   const TableRows& rows, const CsvChoices& choices,
                   std::vector<StatementQuestion>& questions) {
  if (choices.day_order) return *choices.day_order;
  constexpr std::array kJudged = {DayOrder::DayMonthYear, DayOrder::MonthDayYear,
                                  DayOrder::YearMonthDay};
  struct Count {
    std::size_t read = 0;
    std::size_t rising = 0;
    std::size_t falling = 0;
    DateNumber last = 0;
  };
  std::array<Count, kJudged.size()> counts;
  const CsvNumbers* first = nullptr;
  std::size_t open = 0;
  for (const CsvNumbers& each : numbers) {
    const WrittenDay& day = each.day;
    // These tell by themselves.
    if (!day.is_day || day.named_month < 3 || day.digits[0] == 4) continue;
    std::array<DateNumber, kJudged.size()> days{};
    for (std::size_t i = 0; i < kJudged.size(); ++i) {
      days[i] = day.In(kJudged[i]);
      if (days[i] == 0) continue;
      Count& count = counts[i];
      ++count.read;
      if (count.last != 0 && days[i] > count.last) ++count.rising;
      if (count.last != 0 && days[i] < count.last) ++count.falling;
      count.last = days[i];
    }
    const bool differs =
        (days[1] != 0 && days[0] != days[1]) || (days[2] != 0 && days[0] != days[2]);
    if (!differs) continue;
    ++open;
    if (first == nullptr) first = &each;
  }
  std::size_t most = 0;
  for (const Count& each : counts) most = std::max(most, each.read);
  std::vector<std::size_t> fitting;
  for (std::size_t i = 0; i < kJudged.size(); ++i) {
    if (counts[i].read == most) fitting.push_back(i);
  }
  // How often the direction changes.
  std::stable_sort(fitting.begin(), fitting.end(), [&counts](std::size_t a, std::size_t b) {
    return std::min(counts[a].rising, counts[a].falling) <
           std::min(counts[b].rising, counts[b].falling);
  });
  if (fitting.size() > 1 && open > 0) {
    StatementQuestion question;
    question.kind = StatementQuestion::Kind::DayOrder;
    question.rows = open;
    question.sample = rows.Cell(first->row, columns.day.value_or(columns.value_day.value_or(0)));
    for (const std::size_t i : fitting) {
      question.candidates.push_back(
          {static_cast<std::int64_t>(kJudged[i]), DashedDay(first->day.In(kJudged[i]))});
    }
    questions.push_back(std::move(question));
  }
  return kJudged[fitting.front()];
}

}  // namespace tallyfold
