#include "app/shell/update_check.h"

#include <charconv>
#include <optional>
#include <utility>

// Set by whoever builds the program for others; "" asks nobody.
#ifndef TALLYFOLD_UPDATE_ADDRESS
#define TALLYFOLD_UPDATE_ADDRESS ""
#endif

namespace tallyfold {
namespace {

// The number at the front of `version`, which then begins after the next full stop.
std::uint64_t TakeNumber(std::string_view& version) noexcept {
  std::uint64_t number = 0;
  std::from_chars(version.data(), version.data() + version.size(), number);
  const auto stop = version.find('.');
  version = stop == std::string_view::npos ? std::string_view() : version.substr(stop + 1);
  return number;
}

bool IsVersion(std::string_view text) noexcept {
  return !text.empty() && text.front() >= '0' && text.front() <= '9';
}

}  // namespace

std::string_view BuiltInUpdateAddress() noexcept {
  return TALLYFOLD_UPDATE_ADDRESS;
}

int CompareVersions(std::string_view a, std::string_view b) noexcept {
  while (!a.empty() || !b.empty()) {
    const auto number_of_a = TakeNumber(a);
    const auto number_of_b = TakeNumber(b);
    if (number_of_a != number_of_b) return number_of_a > number_of_b ? 1 : -1;
  }
  return 0;
}

UpdateCheck::~UpdateCheck() {
  if (service_ != nullptr) service_->Cancel();
}

void UpdateCheck::Begin(bool tell_all) {
  if (service_ == nullptr || address_.empty()) {
    return Finish(UpdateState::Status::NoAddress, "", tell_all);
  }
  state_.status = UpdateState::Status::Checking;
  announcer_.Changed(Area::Updates);
  service_->FetchLatestVersion(address_, [this, tell_all](std::optional<std::string> version) {
    if (!version || !IsVersion(*version)) {
      return Finish(UpdateState::Status::NoAnswer, "", tell_all);
    }
    const bool is_newer = CompareVersions(*version, host_.BundleVersion()) > 0;
    Finish(is_newer ? UpdateState::Status::NewerVersion : UpdateState::Status::UpToDate,
           std::move(*version), tell_all);
  });
}

void UpdateCheck::Finish(UpdateState::Status status, std::string latest_version, bool tell_all) {
  state_.status = status;
  state_.latest_version = std::move(latest_version);
  if (tell_all || status == UpdateState::Status::NewerVersion) state_.window_is_open = true;
  announcer_.Changed(Area::Updates);
}

void UpdateCheck::CloseWindow() {
  if (!state_.window_is_open) return;
  state_.window_is_open = false;
  announcer_.Changed(Area::Updates);
}

}  // namespace tallyfold
