#pragma once

#include <QString>

#include "desktop/register/cell_look.h"

namespace tallyfold::desktop {

// What assistive technology is told of a cell: "Amount: -31.40", and what its glyphs stand for. An
// empty title is left out.
[[nodiscard]] QString SpokenCell(const QString& title, const CellLook& look);

}  // namespace tallyfold::desktop
