#pragma once

#include "registers/table_data_source.h"
#include "storage/preferences.h"

namespace tallyfold {

struct FakeTableHost final : TableHost {
  [[nodiscard]] bool IsUnlocked() const override { return is_unlocked; }
  [[nodiscard]] const LDGRPreferences& preferences() const override { return wanted; }

  bool is_unlocked = true;
  LDGRPreferences wanted;
};

}  // namespace tallyfold
