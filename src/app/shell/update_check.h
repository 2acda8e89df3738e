#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

#include "app/face/announcer.h"
#include "platform/application_host.h"
#include "platform/update_service.h"

namespace tallyfold {

struct UpdateState {
  enum class Status : std::uint8_t {
    NotChecked,
    NoAddress,  // this build knows nobody to ask
    Checking,
    UpToDate,
    NewerVersion,
    NoAnswer,
  };

  Status status = Status::NotChecked;
  // The latest version as far as it is known; "" otherwise.
  std::string latest_version;
  // Whether the window that tells of it is open.
  bool window_is_open = false;
};

// Looks whether there is a newer version of the program. Nothing is fetched or installed.
class UpdateCheck {
 public:
  // `service` is null where nobody can be asked; both must outlive the check.
  UpdateCheck(ApplicationHost& host, UpdateService* service, Announcer& announcer) noexcept
      : host_(host), service_(service), announcer_(announcer) {}
  UpdateCheck(const UpdateCheck&) = delete;
  UpdateCheck& operator=(const UpdateCheck&) = delete;
  ~UpdateCheck();

  [[nodiscard]] const UpdateState& State() const noexcept { return state_; }

  // Where to ask; "", as at first, asks nobody.
  void SetAddress(std::string address) { address_ = std::move(address); }
  // In the background: the window opens only for a newer version.
  void CheckForUpdates_Auto() { Begin(false); }
  // Asked for by the user: the window tells whatever comes of it.
  void CheckForUpdates() { Begin(true); }
  void CloseWindow();

 private:
  void Begin(bool tell_all);
  void Finish(UpdateState::Status status, std::string latest_version, bool tell_all);

  ApplicationHost& host_;
  UpdateService* service_;
  Announcer& announcer_;
  std::string address_;
  UpdateState state_;
};

// The address that was built in; "" for none.
[[nodiscard]] std::string_view BuiltInUpdateAddress() noexcept;

// 1 when `a` is the later version, -1 when `b` is, else 0. Versions are compared number by number;
// a part that is missing counts as 0, what follows a part's digits ("2.0b1") is disregarded.
[[nodiscard]] int CompareVersions(std::string_view a, std::string_view b) noexcept;

}  // namespace tallyfold
