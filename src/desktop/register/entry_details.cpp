#include "desktop/register/entry_details.h"

#include <string>

#include "desktop/texts.h"
#include "model/account_entry.h"
#include "model/account_schedule.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr std::string_view kToFrom = "toFrom";
constexpr std::string_view kDescription = "description";
constexpr std::string_view kOverdue = "overdue";

QString NotesOf(std::string_view column, const LDGRAccountEntry& entry) {
  return column == kDescription ? ToQString(entry.GetNotes()) : QString();
}

}  // namespace

void AddEntryGlyphs(CellLook& look, std::string_view column, const LDGRAccountEntry& entry) {
  if (column == kToFrom) {
    if (entry.IsTransfer()) {
      look.glyph_before = QLatin1String("transfer");
    } else if (entry.GetSplit() != nullptr) {
      look.glyph_before = QLatin1String("split");
    }
  } else if (column == kDescription && !entry.GetNotes().empty()) {
    look.glyph_behind = QLatin1String("note");
  }
}

void EntryDetails::AddTo(CellLook& look, std::string_view column, std::size_t row) const {
  if (const auto entry = rows_.RowToEntry(static_cast<std::int32_t>(row))) {
    AddEntryGlyphs(look, column, *entry);
  }
}

QString EntryDetails::ToolTipOf(std::string_view column, std::size_t row) const {
  const auto entry = rows_.RowToEntry(static_cast<std::int32_t>(row));
  return entry != nullptr ? NotesOf(column, *entry) : QString();
}

void ScheduleDetails::AddTo(CellLook& look, std::string_view column, std::size_t row) const {
  const auto& schedules = rows_.Schedules();
  if (row >= schedules.size()) return;
  AddEntryGlyphs(look, column, *schedules[row]);
  if (column == kOverdue && !look.text.isEmpty()) {
    look.text = ToQString(Message("{1} late", {ToUtf8(look.text)}));
    look.word = CellLook::Word::Warning;
    look.is_figure = false;
  }
}

QString ScheduleDetails::ToolTipOf(std::string_view column, std::size_t row) const {
  const auto& schedules = rows_.Schedules();
  return row < schedules.size() ? NotesOf(column, *schedules[row]) : QString();
}

}  // namespace tallyfold::desktop
