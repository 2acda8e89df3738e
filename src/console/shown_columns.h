#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "console/table.h"
#include "registers/table_data_source.h"

namespace tallyfold::console {

// Columns of one of the window's tables as commands print them: the same cells, but days and
// amounts as they are typed, whatever the preferences, and "yes" for a mark that is set.
class ShownColumns {
 public:
  struct Shown {
    Column printed;
    std::string_view identifier;  // of a column of the table
  };

  ShownColumns(std::initializer_list<Shown> columns, const std::vector<TableColumn>& of_table);

  void AddTo(std::vector<Column>& columns) const;
  // `cell_of` gives the cell of a column.
  void AddTo(std::vector<std::string>& cells,
             const std::function<TableCell(std::string_view)>& cell_of) const;

 private:
  struct Each {
    Column printed;
    TableColumn column;
  };
  std::vector<Each> columns_;
};

}  // namespace tallyfold::console
