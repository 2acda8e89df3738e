#include "desktop/sheets/review_details.h"

#include "app/exchange/qif_import_controller.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

QString StandingWord(ReviewStanding standing, UnmarkedReason reason) {
  if (standing == ReviewStanding::Matched) return Text("Matched");
  if (standing == ReviewStanding::Repeats) return Text("Repeats");
  if (standing == ReviewStanding::MayRepeat) return Text("May repeat");
  switch (reason) {
    case UnmarkedReason::None:
      return {};
    case UnmarkedReason::Repeated:
      return Text("Twice in file");
    case UnmarkedReason::ForeignCurrency:
      return Text("Other currency");
    case UnmarkedReason::Pending:
      break;
  }
  return Text("Not booked");
}

}  // namespace

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
    look.is_italic = false;
    const ReviewStanding standing = import_.StandingOf(*entry);
    if (standing == ReviewStanding::New) return;
    look.text = StandingWord(standing, entry->GetUnmarkedReason());
    const bool is_matched = standing == ReviewStanding::Matched;
    look.word = is_matched ? CellLook::Word::Good : CellLook::Word::Warning;
  }
}

QString ReviewDetails::ToolTipOf(std::string_view column, std::size_t row) const {
  const auto entry = import_.tableDataSource().RowToEntry(static_cast<std::int32_t>(row));
  if (entry == nullptr) return {};
  if (column == "description") return ToQString(entry->GetNotes());
  return column == "match" ? Text(TextOf(entry->GetUnmarkedReason())) : QString();
}

}  // namespace tallyfold::desktop
