#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tallyfold {

// What became of the rows of a table. All rows but those named stand for the same records as
// before, one behind the other; what they show may have changed too, as a balance does that every
// row before it counts in.
struct RowsChange {
  enum class Kind : std::uint8_t {
    Reset,      // nothing is known of the rows but that they are others
    Inserted,   // first to last are new
    Removed,    // first to last, as rows were counted before
    Moved,      // what was the row `first` is the row `last` now
    Reordered,  // the same records in another order
    Changed,    // first to last may show something else
  };

  Kind kind = Kind::Reset;
  std::size_t first = 0;
  std::size_t last = 0;
  // Of Reordered: for each row the one that its record had before. Only as long as the change is
  // being told.
  std::span<const std::uint32_t> former_rows = {};
};

// What leads from the rows before to those after. Several records that came, went or moved apart
// from each other are a Reset. Records are only compared for being the same.
template <typename Record>
[[nodiscard]] RowsChange ChangeOfRows(const std::vector<std::shared_ptr<Record>>& before,
                                      const std::vector<std::shared_ptr<Record>>& after) {
  using Kind = RowsChange::Kind;
  const auto [old_begin, new_begin] = std::ranges::mismatch(before, after);
  const auto first = static_cast<std::size_t>(new_begin - after.begin());
  if (old_begin == before.end() && new_begin == after.end()) {
    return first == 0 ? RowsChange{} : RowsChange{Kind::Changed, 0, first - 1};
  }
  auto old_end = before.end();
  auto new_end = after.end();
  while (old_end != old_begin && new_end != new_begin && *(old_end - 1) == *(new_end - 1)) {
    --old_end;
    --new_end;
  }
  const auto removed = static_cast<std::size_t>(old_end - old_begin);
  const auto inserted = static_cast<std::size_t>(new_end - new_begin);
  if (removed == 0) return {Kind::Inserted, first, first + inserted - 1};
  if (inserted == 0) return {Kind::Removed, first, first + removed - 1};
  if (removed != inserted) return {};
  const std::size_t last = first + removed - 1;
  if (*old_begin == *(new_end - 1) && std::equal(old_begin + 1, old_end, new_begin)) {
    return {Kind::Moved, first, last};
  }
  if (*new_begin == *(old_end - 1) && std::equal(new_begin + 1, new_end, old_begin)) {
    return {Kind::Moved, last, first};
  }
  return {};
}

// Null for a row that does not exist.
template <typename Record>
[[nodiscard]] std::shared_ptr<Record> RecordOfRow(
    const std::vector<std::shared_ptr<Record>>& records, std::int32_t row) {
  const bool exists = row >= 0 && static_cast<std::size_t>(row) < records.size();
  return exists ? records[static_cast<std::size_t>(row)] : nullptr;
}

// None for null and for a record that is not among them.
template <typename Record>
[[nodiscard]] std::optional<std::int32_t> RowOfRecord(
    const std::vector<std::shared_ptr<Record>>& records, const Record* record) {
  const auto found =
      std::ranges::find(records, record, [](const auto& each) { return each.get(); });
  if (record == nullptr || found == records.end()) return std::nullopt;
  return static_cast<std::int32_t>(found - records.begin());
}

}  // namespace tallyfold
