#include "registers/register_rows.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

#include "model/entry_walk.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

// More changed entries than that are sorted in together with all others.
constexpr std::size_t kFewTouches = 64;

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
  total_.reset();
}

EntryList RegisterRows::SetEntries(EntryList entries) {
  order_ = std::nullopt;
  total_.reset();
  return std::exchange(entries_, std::move(entries));
}

std::vector<std::uint32_t> RegisterRows::Sort(const RegisterOrder& order) {
  std::vector<std::uint32_t> former_rows = OrderOfEntries(entries_, order);
  EntryList entries;
  entries.reserve(former_rows.size());
  for (const std::uint32_t row : former_rows) entries.push_back(std::move(entries_[row]));
  entries_ = std::move(entries);
  order_ = order;
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
  return account_ != nullptr ? account_->RunningBalanceOf(*entries_[row]) : 0.0;
}

double RegisterRows::Total() const {
  const std::uint64_t revision = account_ != nullptr ? account_->MoneyRevision() : 0;
  if (!total_ || total_->revision != revision) {
    total_ = {revision, 0.0};
    WalkEntries(entries_,
                [this](const LDGRAccountEntry& entry) { total_->total += entry.GetAmount(); });
  }
  return total_->total;
}

std::optional<std::size_t> RegisterRows::PlaceFor(const LDGRAccountEntry& entry, std::size_t first,
                                                  std::size_t end) const {
  while (first < end) {
    const std::size_t middle = first + (end - first) / 2;
    const int order = CompareEntries(*entries_[middle], entry, *order_);
    if (order == 0) return std::nullopt;
    if (order < 0) {
      first = middle + 1;
    } else {
      end = middle;
    }
  }
  return first;
}

std::optional<RowsChange> RegisterRows::TakeUpOne(const EntryTouch& touch,
                                                  const IsWanted& is_wanted) {
  using Kind = RowsChange::Kind;
  const auto begin = entries_.begin();
  const auto offset = [](std::size_t row) { return static_cast<std::ptrdiff_t>(row); };
  const auto found = std::find(begin, entries_.end(), touch.entry);
  const bool is_row = found != entries_.end();
  const auto former = static_cast<std::size_t>(found - begin);
  if (!touch.is_there || !is_wanted(touch.entry, is_row)) {
    if (!is_row) return ChangedRows();
    entries_.erase(found);
    return RowsChange{Kind::Removed, former, former};
  }
  if (!is_row) {
    const auto row = PlaceFor(*touch.entry, 0, entries_.size());
    if (!row) return std::nullopt;
    entries_.insert(begin + offset(*row), touch.entry);
    return RowsChange{Kind::Inserted, *row, *row};
  }
  auto before = PlaceFor(*touch.entry, 0, former);
  auto after =
      before && *before == former ? PlaceFor(*touch.entry, former + 1, entries_.size()) : before;
  if (!before || !after) return std::nullopt;
  if (*before < former) {
    std::rotate(begin + offset(*before), found, found + 1);
    // Two neighbours that change places are one that moved down.
    if (*before + 1 == former) return RowsChange{Kind::Moved, *before, former};
    return RowsChange{Kind::Moved, former, *before};
  }
  if (*after == former + 1) return ChangedRows();
  std::rotate(found, found + 1, begin + offset(*after));
  return RowsChange{Kind::Moved, former, *after - 1};
}

std::optional<RowsChange> RegisterRows::TakeUp(std::span<const EntryTouch> touches,
                                               const IsWanted& is_wanted) {
  if (!order_) return std::nullopt;
  if (touches.empty()) return ChangedRows();
  total_.reset();
  const auto last = LastTouches(touches);
  if (last.size() == 1) return TakeUpOne(last.front(), is_wanted);
  if (last.size() > kFewTouches) return std::nullopt;

  EntryList before = entries_;
  std::unordered_map<const LDGRAccountEntry*, bool> are_rows;
  for (const EntryTouch& touch : last) are_rows.emplace(touch.entry.get(), false);
  std::erase_if(entries_, [&are_rows](const auto& entry) {
    const auto touched = are_rows.find(entry.get());
    return touched != are_rows.end() && (touched->second = true);
  });
  for (const EntryTouch& touch : last) {
    if (!touch.is_there || !is_wanted(touch.entry, are_rows[touch.entry.get()])) continue;
    const auto row = PlaceFor(*touch.entry, 0, entries_.size());
    if (!row) {
      entries_ = std::move(before);
      return std::nullopt;
    }
    entries_.insert(entries_.begin() + static_cast<std::ptrdiff_t>(*row), touch.entry);
  }
  return ChangeOfRows(before, entries_);
}

RowsChange RegisterRows::ChangedRows() const noexcept {
  if (entries_.empty()) return {};
  return {RowsChange::Kind::Changed, 0, entries_.size() - 1};
}

}  // namespace tallyfold
