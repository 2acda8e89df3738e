#pragma once

#include "desktop/register/row_model.h"
#include "registers/account_table_view_data.h"
#include "registers/schedule_table_view_data.h"

namespace tallyfold::desktop {

// Those of transfers and splits before "toFrom", that of notes behind "description".
void AddEntryGlyphs(CellLook& look, std::string_view column, const LDGRAccountEntry& entry);

// Glyphs of transfers, splits and notes in a register, and the notes themselves as tool tips.
class EntryDetails final : public RowDetails {
 public:
  // The rows must outlive this.
  explicit EntryDetails(const LDGRAccountTableViewData& rows) : rows_(rows) {}
  void AddTo(CellLook& look, std::string_view column, std::size_t row) const override;
  [[nodiscard]] QString ToolTipOf(std::string_view column, std::size_t row) const override;

 private:
  const LDGRAccountTableViewData& rows_;
};

// How many dates of a scheduled entry wait, said in words on a ground of its own.
class ScheduleDetails final : public RowDetails {
 public:
  explicit ScheduleDetails(const LDGRScheduleTableViewData& rows) : rows_(rows) {}
  void AddTo(CellLook& look, std::string_view column, std::size_t row) const override;
  [[nodiscard]] QString ToolTipOf(std::string_view column, std::size_t row) const override;

 private:
  const LDGRScheduleTableViewData& rows_;
};

}  // namespace tallyfold::desktop
