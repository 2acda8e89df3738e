#pragma once

#include <string>
#include <string_view>

#include "plist/value.h"

namespace tallyfold {

class LDGRPreferences;

}  // namespace tallyfold

namespace tallyfold::console {

// Settings as they are typed and shown here. A setting that is one of a few goes by its name
// ("weeks"), a yes or no by "yes" or "no", everything else as it stands.

// "" for a name that is no setting.
[[nodiscard]] std::string PreferenceText(const LDGRPreferences& preferences, std::string_view name);
// What the setting takes, in words: "yes or no", "a whole number from 0 to 3650". "" for a name
// that is no setting, and for "version", which is not the user's.
[[nodiscard]] std::string ExpectedOfPreference(std::string_view name);
// The value that the text stands for, which the setting may still refuse; none for no value of its
// kind.
[[nodiscard]] plist::Value PreferenceValue(std::string_view name, std::string_view text);

}  // namespace tallyfold::console
