#include "registers/register_rows.h"

#include <string>
#include <utility>

#include "model/entry_walk.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

constexpr std::string_view kCheck = "check";
constexpr std::string_view kDate = "date";
constexpr std::string_view kType = "type";
constexpr std::string_view kDescription = "description";
constexpr std::string_view kAmount = "amount";
constexpr std::string_view kCleared = "cleared";
constexpr std::string_view kToFrom = "toFrom";
constexpr std::string_view kBalance = "balance";

}  // namespace

std::vector<TableColumn> DefaultRegisterColumns() {
  using Content = TableColumn::Content;
  return {{std::string(kDate), 80, "Date", Content::Day},
          {std::string(kCheck), 60, "Check", Content::Count},
          {std::string(kType), 110, "Type"},
          {std::string(kDescription), 200, "Description"},
          {std::string(kToFrom), 150, "To/From"},
          {std::string(kCleared), 60, "Resolved", Content::Mark},
          {std::string(kAmount), 90, "Amount", Content::Amount},
          {std::string(kBalance), 90, "Balance", Content::Amount, false}};
}

TableCell CellOfEntry(const LDGRAccountEntry& entry, std::string_view column,
                      const TableFormat& format) {
  if (column == kDate) return DayCell(entry.GetDate(), format);
  if (column == kCheck) return entry.IsCheck() ? CountCell(entry.GetCheckNumber()) : TableCell();
  if (column == kDescription) return {.text = entry.GetDescription()};
  if (column == kToFrom) return {.text = entry.GetToFrom()};
  if (column == kCleared) return MarkCell(entry.GetCleared());
  if (column == kAmount) return AmountCell(entry.GetAmount(), format);
  return {};
}

void RegisterRows::SetAccount(std::shared_ptr<LDGRAccount> account) {
  account_ = std::move(account);
  account_balances_ = nullptr;
  figures_.are_known = false;
}

EntryList RegisterRows::SetEntries(EntryList entries) {
  order_ = std::nullopt;
  figures_.are_known = false;
  return std::exchange(entries_, std::move(entries));
}

std::vector<std::uint32_t> RegisterRows::Sort(const RegisterOrder& order) {
  std::vector<std::uint32_t> former_rows = OrderOfEntries(entries_, order);
  EntryList entries;
  entries.reserve(former_rows.size());
  for (const std::uint32_t row : former_rows) entries.push_back(std::move(entries_[row]));
  entries_ = std::move(entries);
  order_ = order;
  if (figures_.are_known) {
    std::vector<double> balances;
    balances.reserve(former_rows.size());
    for (const std::uint32_t row : former_rows) balances.push_back(figures_.balances[row]);
    figures_.balances = std::move(balances);
  }
  return former_rows;
}

TableCell RegisterRows::CellOf(std::size_t row, std::string_view column,
                               const TableFormat& format) const {
  const LDGRAccountEntry& entry = *entries_[row];
  if (column == kType) return {.text = TypeTextOfEntry(account_.get(), entry)};
  if (column == kBalance) return AmountCell(RunningBalanceOf(row), format);
  return CellOfEntry(entry, column, format);
}

RowLook RegisterRows::LookOf(std::size_t row, const LDGRPreferences& preferences,
                             DateNumber today) const {
  return LookOfEntry(*entries_[row], preferences, today);
}

double RegisterRows::RunningBalanceOf(std::size_t row) const {
  return UpToDateFigures().balances[row];
}

std::vector<double> RegisterRows::BalancesOfRows() const {
  if (account_ == nullptr || entries_.empty()) return std::vector<double>(entries_.size(), 0.0);
  // For one row it does not pay to compute those of the whole account.
  if (entries_.size() == 1) return {account_->GetRunningBalanceAtEntry(entries_.front().get())};
  const std::uint64_t revision = account_->MoneyRevision();
  if (account_balances_ == nullptr || account_balances_->revision != revision) {
    account_balances_ = std::make_shared<const AccountBalances>(AccountBalances{
        revision, RunningBalanceTable(account_->GetEntries(), account_->GetStartingBalance())});
  }
  return account_balances_->table.Of(entries_);
}

const RegisterRows::Figures& RegisterRows::UpToDateFigures() const {
  const std::uint64_t revision = account_ != nullptr ? account_->MoneyRevision() : 0;
  if (figures_.are_known && figures_.revision == revision) return figures_;
  figures_.balances = BalancesOfRows();
  figures_.total = 0.0;
  WalkEntries(entries_,
              [this](const LDGRAccountEntry& entry) { figures_.total += entry.GetAmount(); });
  figures_.are_known = true;
  figures_.revision = revision;
  return figures_;
}

}  // namespace tallyfold
