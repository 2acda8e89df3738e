#include "desktop/register/row_selection.h"

#include <algorithm>
#include <utility>

namespace tallyfold::desktop {

void RowSelection::SelectOnly(Range range) {
  ranges_ = {{std::min(range.first, range.last), std::max(range.first, range.last)}};
}

void RowSelection::SelectThese(std::vector<int> rows) {
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  ranges_.clear();
  for (const int row : rows) Append({row, row});
}

void RowSelection::Append(Range range) {
  if (!ranges_.empty() && ranges_.back().last + 1 == range.first) {
    ranges_.back().last = range.last;
  } else {
    ranges_.push_back(range);
  }
}

void RowSelection::Add(Range range) {
  if (range.first > range.last) std::swap(range.first, range.last);
  // Those that touch it become part of it.
  const auto begin = std::find_if(ranges_.begin(), ranges_.end(),
                                  [&](const Range& each) { return each.last >= range.first - 1; });
  auto end = begin;
  while (end != ranges_.end() && end->first <= range.last + 1) {
    range.first = std::min(range.first, end->first);
    range.last = std::max(range.last, end->last);
    ++end;
  }
  ranges_.insert(ranges_.erase(begin, end), range);
}

void RowSelection::Remove(Range range) {
  std::vector<Range> left;
  left.reserve(ranges_.size() + 1);
  for (const Range& each : ranges_) {
    if (each.last < range.first || each.first > range.last) {
      left.push_back(each);
      continue;
    }
    if (each.first < range.first) left.push_back({each.first, range.first - 1});
    if (each.last > range.last) left.push_back({range.last + 1, each.last});
  }
  ranges_ = std::move(left);
}

bool RowSelection::Toggle(int row) {
  const bool was_selected = Contains(row);
  if (was_selected) {
    Remove({row, row});
  } else {
    Add({row, row});
  }
  return !was_selected;
}

bool RowSelection::Contains(int row) const noexcept {
  const auto found = std::partition_point(ranges_.begin(), ranges_.end(),
                                          [row](const Range& range) { return range.last < row; });
  return found != ranges_.end() && found->first <= row;
}

std::size_t RowSelection::Count() const noexcept {
  std::size_t count = 0;
  for (const Range& range : ranges_)
    count += static_cast<std::size_t>(range.last - range.first + 1);
  return count;
}

void RowSelection::MakeRoom(int first, int count) {
  std::vector<Range> moved;
  moved.reserve(ranges_.size() + 1);
  for (const Range& range : ranges_) {
    if (range.last < first) {
      moved.push_back(range);
    } else if (range.first >= first) {
      moved.push_back({range.first + count, range.last + count});
    } else {
      moved.push_back({range.first, first - 1});
      moved.push_back({first + count, range.last + count});
    }
  }
  ranges_ = std::move(moved);
}

void RowSelection::CloseUp(int first, int count) {
  Remove({first, first + count - 1});
  std::vector<Range> closed;
  closed.swap(ranges_);
  for (const Range& range : closed) {
    const int by = range.first >= first ? count : 0;
    Append({range.first - by, range.last - by});
  }
}

void RowSelection::Move(int from, int to) {
  const bool is_selected = Contains(from);
  CloseUp(from, 1);
  MakeRoom(to, 1);
  if (is_selected) Add({to, to});
}

void RowSelection::Reorder(std::span<const std::uint32_t> former_rows) {
  std::vector<bool> was_selected(former_rows.size(), false);
  for (const Range& range : ranges_) {
    const auto first = static_cast<std::size_t>(std::max(0, range.first));
    const auto end = std::min(former_rows.size(), static_cast<std::size_t>(range.last) + 1);
    for (std::size_t row = first; row < end; ++row) was_selected[row] = true;
  }
  ranges_.clear();
  for (std::size_t row = 0; row < former_rows.size(); ++row) {
    const std::size_t former = former_rows[row];
    if (former >= was_selected.size() || !was_selected[former]) continue;
    const int at = static_cast<int>(row);
    Append({at, at});
  }
}

void RowSelection::Follow(const RowsChange& change, std::size_t row_count) {
  const int first = static_cast<int>(change.first);
  const int count = static_cast<int>(change.last - change.first) + 1;
  switch (change.kind) {
    case RowsChange::Kind::Changed:
      return;
    case RowsChange::Kind::Reset:
      return Clear();
    case RowsChange::Kind::Inserted:
      return MakeRoom(first, count);
    case RowsChange::Kind::Removed:
      return CloseUp(first, count);
    case RowsChange::Kind::Moved:
      return Move(first, static_cast<int>(change.last));
    case RowsChange::Kind::Reordered:
      if (change.former_rows.size() != row_count) return Clear();
      return Reorder(change.former_rows);
  }
}

}  // namespace tallyfold::desktop
