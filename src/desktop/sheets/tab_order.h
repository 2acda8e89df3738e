#pragma once

class QWidget;

namespace tallyfold::desktop {

// Tab walks the fields inside `whole` in the order in which its layouts hold them, whichever was
// made first.
void TabInReadingOrder(QWidget& whole);

}  // namespace tallyfold::desktop
