#pragma once

#include <cstdint>
#include <vector>

#include "app/face/front_end.h"

namespace tallyfold {

// Tells the front end what has changed, each area once an operation, however many steps it takes:
// after the last of them, so that every state is complete by then, or earlier where the user is
// about to be asked something. Without a front end nobody is told.
class Announcer {
 public:
  Announcer() = default;
  Announcer(const Announcer&) = delete;
  Announcer& operator=(const Announcer&) = delete;

  // Null for none. It must outlive its stay here.
  void Set(FrontEnd* front_end) noexcept { front_end_ = front_end; }

  // The state of that area has changed. Told at once when no operation is under way.
  void Changed(Area area);
  // As FrontEnd::EndEditing().
  [[nodiscard]] bool EndEditing(Sheet sheet) {
    return front_end_ == nullptr || front_end_->EndEditing(sheet);
  }
  // Tells what has been collected so far.
  void HandOver();

  // An operation is under way as long as this lives. Operations that are part of it tell nothing by
  // themselves.
  class Operation {
   public:
    explicit Operation(Announcer& announcer) noexcept : announcer_(announcer) {
      ++announcer_.depth_;
    }
    ~Operation() {
      if (--announcer_.depth_ == 0) announcer_.HandOver();
    }
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

   private:
    Announcer& announcer_;
  };

 private:
  FrontEnd* front_end_ = nullptr;
  int depth_ = 0;
  // In the order in which they changed first.
  std::vector<Area> collected_;
};

}  // namespace tallyfold
