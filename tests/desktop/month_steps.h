#pragma once

#include <span>

#include "desktop/hand.h"

namespace tallyfold::desktop {

// A step of a month: what is typed at the console, and the same done in the window.
struct Step {
  const char* typed;
  void (*done)(Hand& hand);
};

// What is imported in the month, and what is exported.
inline constexpr const char* kMonthImport = "/home/user/household.qif";
inline constexpr const char* kMonthExport = "/home/user/march.qif";

// The work with entries, and what comes behind it: settings, summaries and files.
[[nodiscard]] std::span<const Step> EntrySteps();
[[nodiscard]] std::span<const Step> SettingSteps();

}  // namespace tallyfold::desktop
