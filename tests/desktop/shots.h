#pragma once

#include <QString>
#include <functional>
#include <string>

#include "desktop/test_window.h"

class QWidget;

namespace tallyfold::desktop {

// Is given a state of the window: its name, the accounts file that it begins with, and what brings
// it about once the window is up.
using ShotTaker = std::function<void(const QString& name, const std::string& accounts,
                                     const std::function<void(TestWindow&)>& prepare)>;
// Is shown a panel of the toolkit's own while it is up.
using PanelTaker = std::function<void(const QString& name, QWidget& panel)>;

// All that the window can look like: every tab, every sheet and what they refuse. For pictures, and
// for tests of what holds everywhere.
void ForEachShot(const ShotTaker& take, const PanelTaker& take_panel);

}  // namespace tallyfold::desktop
