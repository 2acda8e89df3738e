#include "platform/ambient.h"

#include <cstdint>

#include "platform/zone_rules.h"

namespace tallyfold {
namespace {

class PlainLocale final : public UserLocale {
 public:
  [[nodiscard]] std::string ShortDateFormat() const override { return "%m/%d/%y"; }
  [[nodiscard]] std::string DecimalSeparator() const override { return "."; }
  [[nodiscard]] std::string ThousandsSeparator() const override { return ","; }
  [[nodiscard]] std::int32_t DefaultTextEncoding() const override { return 4; }
};

// Universal time, standing still.
class StoppedClock final : public Clock {
 public:
  [[nodiscard]] Instant Now() const override { return Instant{}; }
  [[nodiscard]] CivilTime LocalTime(Instant instant) const override {
    return WallTimeOf(instant, NoOffset);
  }
  [[nodiscard]] Instant InstantOf(const CivilTime& time) const override {
    return InstantOfWallTime(time, NoOffset);
  }
};

AmbientServices& InForce() noexcept {
  static AmbientServices services;
  return services;
}

}  // namespace

ScopedAmbient::ScopedAmbient(const AmbientServices& services) noexcept : former_(InForce()) {
  AmbientServices& current = InForce();
  if (services.log != nullptr) current.log = services.log;
  if (services.localizer != nullptr) current.localizer = services.localizer;
  if (services.locale != nullptr) current.locale = services.locale;
  if (services.clock != nullptr) current.clock = services.clock;
}

ScopedAmbient::~ScopedAmbient() {
  InForce() = former_;
}

void Log(std::string_view line) {
  if (SystemLog* log = CurrentLog()) log->Write(line);
}

SystemLog* CurrentLog() noexcept {
  return InForce().log;
}

std::string LocalizedText(std::string_view key) {
  const Localizer* localizer = InForce().localizer;
  return localizer != nullptr ? localizer->Text(key) : std::string(key);
}

const UserLocale& CurrentLocale() {
  static const PlainLocale plain;
  const UserLocale* locale = InForce().locale;
  return locale != nullptr ? *locale : plain;
}

const Clock& CurrentClock() {
  static const StoppedClock stopped;
  const Clock* clock = InForce().clock;
  return clock != nullptr ? *clock : stopped;
}

}  // namespace tallyfold
