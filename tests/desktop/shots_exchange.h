#pragma once

#include <functional>

#include "desktop/shots.h"

namespace tallyfold::desktop {

// Takes a state of the example household: its name, and what brings it about.
using ShowState = std::function<void(const char* name, const std::function<void(TestWindow&)>&)>;

// A register that nobody reads from end to end.
void AddEntries(TestWindow& test, int count);

// All that comes in from files or goes out, to files or on paper.
void ShowExchange(const ShowState& show, const PanelTaker& take_panel);

}  // namespace tallyfold::desktop
