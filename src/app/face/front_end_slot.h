#pragma once

#include "app/face/front_end.h"

namespace tallyfold {

// The front end in use, for components that are made before it. Without one, the quiet answers of
// FrontEnd itself.
class FrontEndSlot final : public FrontEnd {
 public:
  // Null for none. It must outlive its stay here.
  void Set(FrontEnd* front_end) noexcept { front_end_ = front_end; }

  void Changed(Area area) override {
    if (front_end_ != nullptr) front_end_->Changed(area);
  }
  [[nodiscard]] bool EndEditing(Sheet sheet) override {
    return front_end_ == nullptr || front_end_->EndEditing(sheet);
  }

 private:
  FrontEnd* front_end_ = nullptr;
};

}  // namespace tallyfold
