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
constexpr DateNumber kFirstDayOfYear100 = 1000101;
constexpr std::string_view kSectionCode = "!Type:";
constexpr std::string_view kCategoryList = "!Type:Cat\r";

void LookAtEntry(const QifEntry& entry, DateNumber today, QifHints& hints) {
  if (!entry.date) {
    ++hints.missing_dates;
  } else if (*entry.date == 0) {
    ++hints.unreadable_dates;
  } else {
    hints.first_date = std::min(hints.first_date.value_or(*entry.date), *entry.date);
    hints.last_date = std::max(hints.last_date.value_or(*entry.date), *entry.date);
    if (*entry.date > today) ++hints.after_today;
    if (*entry.date < kFirstDayOfYear100) ++hints.short_years;
  }
  if (entry.has_unread_amount) ++hints.unread_amounts;
  if (entry.has_text_number) ++hints.text_numbers;
  if (entry.has_lost_number) ++hints.lost_numbers;
  if (entry.splits.size() > kMostQifSplitLines) ++hints.long_splits;
  if (entry.split_loss == QifEntry::SplitLoss::MixedSigns) ++hints.mixed_splits;
  if (entry.split_loss == QifEntry::SplitLoss::Uneven) ++hints.uneven_splits;
}

// Drops the formats that do not read each date of the list, as one of a full year.
void KeepFittingFormats(std::string_view list, std::vector<QifDateFormat>& formats) {
  ForEachQifRecord(list, [&formats](std::string_view text) {
    if (formats.empty()) return;
    const auto value = QifRecord(text).Value('D');
    if (!value) return;
    std::erase_if(formats, [&](const QifDateFormat& each) {
      return QifDay(*value, each.format) < kFirstDayOfYear100;
    });
  });
}

bool HasUnendedRecord(std::string_view list) {
  // npos + 1 is the beginning.
  return list.find_first_not_of(" \t\r", list.rfind('^') + 1) != std::string_view::npos;
}

void LookAtFile(const LDGRQIFImport& import, QifHints& hints) {
  const std::string_view text = import.dataString();
  const std::string_view categories = import.entryTypesListString();
  if (HasUnendedRecord(categories)) ++hints.unended_lists;
  if (hints.unreadable_dates > 0 || hints.short_years > 0) {
    hints.fitting_formats.assign(kQifDateFormats.begin(), kQifDateFormats.end());
  }
  const auto look_at_list = [&hints](std::string_view list) {
    if (HasUnendedRecord(list)) ++hints.unended_lists;
    KeepFittingFormats(list, hints.fitting_formats);
  };
  // Of several category lists, or of one whose header is not exact, not all were read.
  bool may_be_categories = !categories.empty();
  const auto was_read = [&](std::string_view type) {
    const auto type_start = static_cast<std::size_t>(type.data() - text.data());
    const std::string_view section = text.substr(type_start - kSectionCode.size());
    return section.starts_with(kCategoryList) &&
           section.substr(kCategoryList.size()).starts_with(categories);
  };
  const auto name_other = [&](std::string_view type) {
    auto& names = hints.left_out_lists;
    if (may_be_categories && type == "Cat" && was_read(type)) {
      may_be_categories = false;
      return;
    }
    if (names.size() == kMostNamedLists) return;
    if (std::find(names.begin(), names.end(), type) == names.end()) names.emplace_back(type);
  };
  ForEachQifSection(text, look_at_list, name_other);
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
