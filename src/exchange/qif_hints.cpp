#include "exchange/qif_hints.h"

#include <algorithm>
#include <string_view>

#include "exchange/qif_fields.h"
#include "exchange/qif_import.h"
#include "exchange/qif_record.h"
#include "exchange/qif_sections.h"

namespace tallyfold {
namespace {

constexpr std::size_t kMostNamedLists = 8;

void LookAtEntry(const QifEntry& entry, DateNumber today, QifHints& hints) {
  if (!entry.date) {
    ++hints.missing_dates;
  } else if (*entry.date == 0) {
    ++hints.unreadable_dates;
  } else {
    hints.first_date = std::min(hints.first_date.value_or(*entry.date), *entry.date);
    hints.last_date = std::max(hints.last_date.value_or(*entry.date), *entry.date);
    if (*entry.date > today) ++hints.after_today;
  }
  if (entry.has_text_number) ++hints.text_numbers;
  if (entry.splits.size() > kMostQifSplitLines) ++hints.long_splits;
  if (entry.split_loss == QifEntry::SplitLoss::MixedSigns) ++hints.mixed_splits;
  if (entry.split_loss == QifEntry::SplitLoss::Uneven) ++hints.uneven_splits;
}

// Drops the formats that do not read each date of the list.
void KeepFittingFormats(std::string_view list, std::vector<QifDateFormat>& formats) {
  ForEachQifRecord(list, [&formats](std::string_view text) {
    if (formats.empty()) return;
    const auto value = QifRecord(text).Value('D');
    if (!value) return;
    std::erase_if(formats,
                  [&](const QifDateFormat& each) { return QifDay(*value, each.format) == 0; });
  });
}

bool HasUnendedRecord(std::string_view list) {
  // npos + 1 is the beginning.
  return list.find_first_not_of(" \t\r", list.rfind('^') + 1) != std::string_view::npos;
}

void LookAtFile(const LDGRQIFImport& import, QifHints& hints) {
  if (hints.unreadable_dates > 0) {
    hints.fitting_formats.assign(kQifDateFormats.begin(), kQifDateFormats.end());
  }
  const auto look_at_list = [&hints](std::string_view list) {
    if (HasUnendedRecord(list)) ++hints.unended_lists;
    KeepFittingFormats(list, hints.fitting_formats);
  };
  const auto name_other = [&hints](std::string_view type) {
    auto& names = hints.left_out_lists;
    if (type == "Cat" || names.size() == kMostNamedLists) return;
    if (std::find(names.begin(), names.end(), type) == names.end()) names.emplace_back(type);
  };
  ForEachQifSection(import.dataString(), look_at_list, name_other);
}

}  // namespace

QifHints HintsFor(const LDGRQIFImport& import, const QifEntryList& entries, DateNumber today) {
  QifHints hints;
  hints.is_unended = import.GetError() == LDGRQIFImport::kUnendedAutoSwitch;
  // Whatever is read has at least the line end in front.
  hints.is_unreadable = !hints.is_unended && import.dataString().empty();
  hints.left_out_accounts = import.LeftOutAccounts();
  for (const auto& entry : entries) LookAtEntry(*entry, today, hints);
  LookAtFile(import, hints);
  return hints;
}

}  // namespace tallyfold
