#pragma once

#include <QList>

class QWidget;

namespace tallyfold::desktop {

// The widgets inside `whole` at which Tab stops, in the order in which its layouts hold them, which
// is that of the eye: whichever was made first, can be used or is in sight. Of several choices it
// is the chosen one.
[[nodiscard]] QList<QWidget*> TabStopsInReadingOrder(const QWidget& whole);

// Tab walks them in that order.
void TabInReadingOrder(const QWidget& whole);

}  // namespace tallyfold::desktop
