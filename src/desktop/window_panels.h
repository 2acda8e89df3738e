#pragma once

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::desktop {

class QtFilePanels;

// Tells the panels which rows to show beside files. The application must outlive their use.
void SetUpPanels(QtFilePanels& panels, LDGRController& app);

}  // namespace tallyfold::desktop
