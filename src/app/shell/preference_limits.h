#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "plist/value.h"

namespace tallyfold {

// What the settings of the preferences sheet may be. Settings go by the names they are stored
// under.

// Both ends included.
struct PreferenceLimits {
  double least = 0.0;
  double most = 0.0;
};
// Stands for the ends of what a whole number can hold.
inline constexpr double kAnyPreferenceNumber = 2147483647.0;

// Of a setting that is a number, or one of a few things that are numbered from 0 on.
[[nodiscard]] PreferenceLimits LimitsOfPreference(std::string_view name);
// The texts that a setting may be which is one of a few texts; empty for any other.
[[nodiscard]] std::vector<std::string> TextsOfPreference(std::string_view name);
// Whether the setting may have the value; false for a name that is no setting, and for "version",
// which is not the user's.
[[nodiscard]] bool PreferenceTakes(std::string_view name, const plist::Value& value);

}  // namespace tallyfold
