#pragma once

#include "app/face/front_end.h"

namespace tallyfold {
class LDGRController;
class Terminal;
}  // namespace tallyfold

namespace tallyfold::console {

// Tells a person at the terminal in a line when scheduled entries have fallen due while nothing was
// typed. The reminder then waits for `remind`; any other command puts it off.
class DueNotice final : public FrontEnd {
 public:
  // Silent while a command runs, which shows what it does itself.
  class Pause {
   public:
    explicit Pause(DueNotice& notice) noexcept : notice_(notice) { notice_.is_paused_ = true; }
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
    ~Pause() { notice_.is_paused_ = false; }

   private:
    DueNotice& notice_;
  };

  // Becomes the controller's front end as long as it lives. Both must outlive it.
  DueNotice(LDGRController& controller, Terminal& terminal);
  DueNotice(const DueNotice&) = delete;
  DueNotice& operator=(const DueNotice&) = delete;
  ~DueNotice() override;

  void Changed(Area area) override;

 private:
  LDGRController& controller_;
  Terminal& terminal_;
  bool is_paused_ = false;
};

}  // namespace tallyfold::console
