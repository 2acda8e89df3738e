#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "registers/rows_change.h"

namespace tallyfold::desktop {

// Which rows of a table are selected, as stretches, so that all of 100,000 are as cheap as one.
class RowSelection {
 public:
  struct Range {
    int first = 0;
    int last = 0;
    friend bool operator==(const Range&, const Range&) = default;
  };

  void Clear() noexcept { ranges_.clear(); }
  void SelectOnly(int row) { SelectOnly(Range{row, row}); }
  // The two ends may stand in either order.
  void SelectOnly(Range range);
  // In any order, some of them twice.
  void SelectThese(std::vector<int> rows);
  // Beside what is selected.
  void Add(Range range);
  // Whether the row is selected after it.
  bool Toggle(int row);

  [[nodiscard]] bool Contains(int row) const noexcept;
  [[nodiscard]] std::size_t Count() const noexcept;
  // In order, no two of them touching.
  [[nodiscard]] const std::vector<Range>& Ranges() const noexcept { return ranges_; }

  // Follows the rows through a change of them; a Reset selects none. `row_count` is that after it.
  void Follow(const RowsChange& change, std::size_t row_count);

  friend bool operator==(const RowSelection&, const RowSelection&) = default;

 private:
  void Remove(Range range);
  void MakeRoom(int first, int count);
  void CloseUp(int first, int count);
  void Move(int from, int to);
  void Reorder(std::span<const std::uint32_t> former_rows);
  // Behind all that are selected.
  void Append(Range range);

  std::vector<Range> ranges_;
};

}  // namespace tallyfold::desktop
