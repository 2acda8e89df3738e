#pragma once

#include <QMimeData>
#include <memory>
#include <vector>

#include "desktop/register/row_model.h"
#include "desktop/register/row_selection.h"

namespace tallyfold::desktop {

// The rows as text, a line each with tabs between its cells, and as a table. `columns` are places
// in the model, in the order shown. Cells are as the core writes them, but on one line.
[[nodiscard]] std::unique_ptr<QMimeData> CopiedRows(const RowModel& model,
                                                    const RowSelection& selection,
                                                    const std::vector<int>& columns);

}  // namespace tallyfold::desktop
