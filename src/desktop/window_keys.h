#pragma once

namespace tallyfold {
class Tabs;
}

namespace tallyfold::desktop {

class MainWindow;

// Keys that are no commands: F6 and Shift+F6 walk through the areas of the window, Ctrl+Page Up and
// Ctrl+Page Down through its tabs. Both must outlive the window.
void AddWindowKeys(MainWindow& window, Tabs& tabs);

}  // namespace tallyfold::desktop
