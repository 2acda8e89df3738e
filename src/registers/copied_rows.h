#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "registers/table_data_source.h"

namespace tallyfold {

// Rows of a table as other programs take them, with a line of titles before them. The columns are
// those that are shown, in their order; rows that do not exist are left out.

// Cells with tabs between them, lines with line ends behind them. Within a cell either of them is a
// blank.
[[nodiscard]] std::string RowsAsText(const TableDataSource& source,
                                     std::span<const TableColumn> columns,
                                     std::span<const std::size_t> rows);
// A table in HTML.
[[nodiscard]] std::string RowsAsHtml(const TableDataSource& source,
                                     std::span<const TableColumn> columns,
                                     std::span<const std::size_t> rows);

}  // namespace tallyfold
