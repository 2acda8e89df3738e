#pragma once

#include "desktop/look/colors.h"

class QWidget;

namespace tallyfold::desktop {

// The colour in which a label writes, on whatever ground.
void SetTextInk(QWidget& label, const QColor& ink);
void SetTextInk(QWidget& label, Role role);

}  // namespace tallyfold::desktop
