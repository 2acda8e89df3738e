#pragma once

#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/localizer.h"
#include "platform/system_log.h"
#include "platform/user_locale.h"

namespace tallyfold {

// The four services that records made anywhere need. One set is in force at a time; a front end
// installs the real one before anything else, a test its own.
struct AmbientServices {
  SystemLog* log = nullptr;
  Localizer* localizer = nullptr;
  UserLocale* locale = nullptr;
  Clock* clock = nullptr;
};

// Puts a set in force for its own lifetime, then restores the former one. The services must
// outlive it. Null members keep those of the set in force before.
class ScopedAmbient {
 public:
  explicit ScopedAmbient(const AmbientServices& services) noexcept;
  ~ScopedAmbient();
  ScopedAmbient(const ScopedAmbient&) = delete;
  ScopedAmbient& operator=(const ScopedAmbient&) = delete;

 private:
  AmbientServices former_;
};

// Writes a line to the log in force; without one, nowhere.
void Log(std::string_view line);
// The log in force, for one that stands before it and passes lines on; null for none.
[[nodiscard]] SystemLog* CurrentLog() noexcept;
// The text for an English key; the key itself without a localizer.
[[nodiscard]] std::string LocalizedText(std::string_view key);
// Without a locale: "%m/%d/%y", ".", "," and UTF-8.
[[nodiscard]] const UserLocale& CurrentLocale();
// Without a clock: 1970-01-01 00:00 in a zone without an offset.
[[nodiscard]] const Clock& CurrentClock();

}  // namespace tallyfold
