#include "platform/ambient.h"

#include <chrono>
#include <cstdint>

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
    const auto seconds = std::chrono::floor<std::chrono::seconds>(instant);
    const auto days = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day date{days};
    const std::chrono::hh_mm_ss time{seconds - days};
    return {static_cast<int>(date.year()),
            static_cast<int>(static_cast<unsigned>(date.month())),
            static_cast<int>(static_cast<unsigned>(date.day())),
            static_cast<int>(time.hours().count()),
            static_cast<int>(time.minutes().count()),
            static_cast<int>(time.seconds().count())};
  }
  [[nodiscard]] Instant InstantOf(const CivilTime& time) const override {
    const std::chrono::sys_days days =
        std::chrono::year{time.year} / std::chrono::month{static_cast<unsigned>(time.month)} / 1;
    return days + std::chrono::days{time.day - 1} + std::chrono::hours{time.hour} +
           std::chrono::minutes{time.minute} + std::chrono::seconds{time.second};
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
  if (SystemLog* log = InForce().log) log->Write(line);
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
