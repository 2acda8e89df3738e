#include "app/face/announcer.h"

#include <algorithm>
#include <utility>

namespace tallyfold {

void Announcer::Changed(Area area) {
  if (std::find(collected_.begin(), collected_.end(), area) == collected_.end()) {
    collected_.push_back(area);
  }
  if (depth_ == 0) HandOver();
}

void Announcer::HandOver() {
  const std::vector<Area> areas = std::exchange(collected_, {});
  if (front_end_ == nullptr) return;
  for (const Area area : areas) front_end_->Changed(area);
}

}  // namespace tallyfold
