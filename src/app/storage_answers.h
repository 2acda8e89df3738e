#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold {

struct ApplicationParts;

// What the two files ask: what is shown and stored with the preferences, and who lets go of the
// accounts before others take their place. Asked only once all parts are there.
class StorageAnswers final : public AccountsStore::Host, public PreferencesStore::Host {
 public:
  explicit StorageAnswers(ApplicationParts& parts) noexcept : parts_(parts) {}

  void ForgetSelectedAccount() override;
  void CloseMainWindow() override;

  [[nodiscard]] std::optional<LiveTable> TableShown(std::string_view identifier) override;
  [[nodiscard]] const LDGRAccount* AccountShown() override;
  [[nodiscard]] std::int32_t BalanceMode() override;
  [[nodiscard]] float AccountsDrawerWidth() override;
  [[nodiscard]] std::int32_t AccountsDrawerPreferredEdge() override;
  [[nodiscard]] bool AccountsHoldUnsavedTypes() override;

 private:
  ApplicationParts& parts_;
};

}  // namespace tallyfold
