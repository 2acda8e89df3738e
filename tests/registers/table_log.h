#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "registers/table_state.h"

namespace tallyfold {

// What a table told, a word for each: "+0-2" rows inserted, "-1" a row removed, "2>0" a row moved,
// "sort 2 1 0" reordered, "=0-2" changed, "reset", "row 1" selected.
struct TableLog final : TableState::Observer {
  void TableChanged(const TableState& table, TableState::Change change) override {
    if (change == TableState::Change::SelectedRow) {
      text += "row " + std::to_string(table.SelectedRow()) + "; ";
    }
  }
  void RowsChanged(const TableState& table, const RowsChange& change) override {
    using Kind = RowsChange::Kind;
    const std::string first = std::to_string(change.first);
    const std::string last = std::to_string(change.last);
    const std::string rows = change.first == change.last ? first : first + "-" + last;
    std::string sorted;
    for (const std::uint32_t row : change.former_rows) sorted += " " + std::to_string(row);
    text += change.kind == Kind::Reset       ? "reset"
            : change.kind == Kind::Inserted  ? "+" + rows
            : change.kind == Kind::Removed   ? "-" + rows
            : change.kind == Kind::Moved     ? first + ">" + last
            : change.kind == Kind::Reordered ? "sort" + sorted
                                             : "=" + rows;
    text += "; ";
    EXPECT_LT(table.SelectedRow(),
              static_cast<std::int32_t>(table.DataSource()->numberOfRowsInTableView()));
  }
  std::string Take() { return std::exchange(text, ""); }

  std::string text;
};

}  // namespace tallyfold
