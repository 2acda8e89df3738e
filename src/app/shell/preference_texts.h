#pragma once

#include <string>
#include <string_view>

namespace tallyfold {

class LDGRPreferences;

// Settings as texts: what the fields of the preferences sheet show, take and refuse. A setting that
// is one of a few goes by its name there ("weeks"), a yes or no by "yes" or "no", everything else
// as it stands.

// "" for a name that is no setting.
[[nodiscard]] std::string PreferenceText(const LDGRPreferences& preferences, std::string_view name);
// What the setting takes, in words: "yes or no", "a whole number from 0 to 3650". "" for a name
// that is no setting, and for "version", which is not the user's.
[[nodiscard]] std::string ExpectedOfPreference(std::string_view name);
// False, and nothing has changed, when the setting does not take the text.
[[nodiscard]] bool SetPreferenceText(LDGRPreferences& preferences, std::string_view name,
                                     std::string_view text);

}  // namespace tallyfold
