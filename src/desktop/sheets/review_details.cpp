#include "desktop/sheets/review_details.h"

#include "app/exchange/qif_import_controller.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {

void ReviewDetails::AddTo(CellLook& look, std::string_view column, std::size_t row) const {
  const auto entry = import_.tableDataSource().RowToEntry(static_cast<std::int32_t>(row));
  if (entry == nullptr) return;
  if (column == "import") {
    look.mark_is_box = true;
  } else if (column == "toFrom") {
    if (entry->GetSplit() != nullptr) look.glyph_before = QLatin1String("split");
  } else if (column == "description") {
    if (!entry->GetNotes().empty()) look.glyph_behind = QLatin1String("note");
  } else if (column == "match") {
    const auto match = import_.MatchOf(*entry);
    if (!match) return;
    const bool is_near = match->reason == QifMatch::Reason::NearDate;
    look.text = Text(is_near ? "May repeat" : "Repeats");
    look.word = CellLook::Word::Warning;
    look.is_italic = false;
  }
}

QString ReviewDetails::ToolTipOf(std::string_view column, std::size_t row) const {
  const auto entry = import_.tableDataSource().RowToEntry(static_cast<std::int32_t>(row));
  return entry != nullptr && column == "description" ? ToQString(entry->GetNotes()) : QString();
}

}  // namespace tallyfold::desktop
