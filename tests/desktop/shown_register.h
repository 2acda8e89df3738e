#pragma once

#include <QWidget>
#include <cstddef>
#include <memory>
#include <vector>

#include "desktop/register/entry_details.h"
#include "desktop/register/register_view.h"
#include "fakes/fake_ambient.h"
#include "model/account.h"
#include "model/current_account.h"
#include "registers/account_table_view_data.h"
#include "storage/account_preferences.h"
#include "storage/preferences.h"

namespace tallyfold::desktop {

struct ShownRegisterTerms {
  // None for those of the example household; else so many made up.
  std::size_t entries = 0;
  std::vector<int> selected = {};
  bool is_reconcile = false;
  bool is_right_to_left = false;
};

// An account in a register, in English, on 22 February 2026.
class ShownRegister final : public QWidget, private TableHost {
 public:
  explicit ShownRegister(const ShownRegisterTerms& terms);
  ~ShownRegister() override;

  [[nodiscard]] RegisterView& View() noexcept { return *view_; }
  [[nodiscard]] LDGRAccountTableViewData& Rows() noexcept { return rows_; }
  [[nodiscard]] TableState& Table() noexcept { return table_; }
  [[nodiscard]] const std::shared_ptr<LDGRAccount>& Account() const noexcept { return account_; }

 private:
  [[nodiscard]] bool IsUnlocked() const override { return true; }
  [[nodiscard]] const LDGRPreferences& preferences() const override { return preferences_; }

  FakeAmbient ambient_;
  LDGRPreferences preferences_;
  std::shared_ptr<LDGRAccount> account_;
  std::unique_ptr<ScopedCurrentAccount> current_;
  LDGRAccountTableViewData rows_{*this};
  TableState table_;
  EntryDetails details_{rows_};
  RegisterView* view_;
};

[[nodiscard]] inline ShownRegister* MakeRegister(const ShownRegisterTerms& terms) {
  return new ShownRegister(terms);
}

}  // namespace tallyfold::desktop
