#pragma once

#include "desktop/register/row_model.h"

namespace tallyfold {
class LDGRQIFImportController;
class LDGRQIFImportEntry;
}  // namespace tallyfold

namespace tallyfold::desktop {

// What the table of a review shows beside its cells: whether an entry repeats one of the account,
// in a word, and the glyphs of splits and notes.
class ReviewDetails final : public RowDetails {
 public:
  explicit ReviewDetails(const LDGRQIFImportController& import) noexcept : import_(import) {}
  void AddTo(CellLook& look, std::string_view column, std::size_t row) const override;
  [[nodiscard]] QString ToolTipOf(std::string_view column, std::size_t row) const override;

 private:
  const LDGRQIFImportController& import_;
};

}  // namespace tallyfold::desktop
