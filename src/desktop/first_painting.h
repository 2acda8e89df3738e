#pragma once

class QWidget;

namespace tallyfold::desktop {

// Returns when a window that has just been shown has been painted, or at the latest after a fifth
// of a second. What the user does meanwhile waits.
void AwaitFirstPainting(QWidget& window);

}  // namespace tallyfold::desktop
