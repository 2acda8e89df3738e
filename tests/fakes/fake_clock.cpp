#include "fakes/fake_clock.h"

namespace tallyfold {

ZoneOffset FixedZone(std::chrono::minutes ahead) {
  return [ahead](std::chrono::sys_seconds) { return std::chrono::seconds{ahead}; };
}

ZoneOffset ZoneWithoutAMidnight() {
  return [](std::chrono::sys_seconds moment) -> std::chrono::seconds {
    using std::chrono::hours;
    using std::chrono::sys_days;
    constexpr sys_days kForward = std::chrono::year{2018} / 11 / 4;
    constexpr sys_days kBack = std::chrono::year{2019} / 2 / 17;
    const bool summer = moment >= kForward + hours{3} && moment < kBack + hours{2};
    return summer ? hours{-2} : hours{-3};
  };
}

}  // namespace tallyfold
