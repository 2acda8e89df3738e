#pragma once

#include <cstddef>
#include <optional>
#include <string>

#include "app/face/announcer.h"
#include "platform/alerts.h"
#include "platform/file_panels.h"

namespace tallyfold {

// Passes alerts and file panels on and knows whether one is up: timers go on firing while the user
// makes up his mind.
class ModalWatch final : public Alerts, public FilePanels {
 public:
  // All must outlive the watch. The announcer tells what has changed before the user is asked.
  ModalWatch(Alerts& alerts, FilePanels& panels, Announcer& announcer) noexcept
      : alerts_(alerts), panels_(panels), announcer_(announcer) {}
  ModalWatch(const ModalWatch&) = delete;
  ModalWatch& operator=(const ModalWatch&) = delete;

  [[nodiscard]] bool IsUp() const noexcept { return depth_ > 0; }
  // Something modal of our own is up for as long as this lives.
  class Up {
   public:
    explicit Up(ModalWatch& watch) noexcept : watch_(watch) { ++watch_.depth_; }
    ~Up() { --watch_.depth_; }
    Up(const Up&) = delete;
    Up& operator=(const Up&) = delete;

   private:
    ModalWatch& watch_;
  };

  std::size_t Run(const AlertRequest& request) override;
  [[nodiscard]] std::optional<std::string> Save(const FilePanelRequest& request) override;
  [[nodiscard]] std::optional<std::string> Open(const FilePanelRequest& request) override;

 private:
  Alerts& alerts_;
  FilePanels& panels_;
  Announcer& announcer_;
  int depth_ = 0;
};

}  // namespace tallyfold
