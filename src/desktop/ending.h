#pragma once

namespace tallyfold {
class Alerts;
class LDGRController;
}  // namespace tallyfold

namespace tallyfold::desktop {

// How a program with a window ends: sheets are put away, everything is saved, and where that fails
// the user decides what becomes of it, if there still is a user.
class Ending {
 public:
  enum class Asker : unsigned char { User, Nobody };
  enum class Outcome : unsigned char {
    Saved,
    // Something is not on the disk.
    Unsaved,
  };

  // Both must outlive this.
  Ending(LDGRController& app, Alerts& alerts) noexcept : app_(app), alerts_(alerts) {}

  // May be called more than once. `asker` is Nobody where a question would find no answer.
  Outcome Save(Asker asker);

 private:
  void PutAway();
  // Whether everything is on the disk that can be.
  [[nodiscard]] bool IsSaved();

  LDGRController& app_;
  Alerts& alerts_;
  bool nobody_is_asked_ = false;
};

}  // namespace tallyfold::desktop
