#include "app/exchange/qif_import_proof.h"

#include <algorithm>

#include "app/exchange/qif_date_items.h"
#include "app/exchange/qif_import_table_data.h"
#include "exchange/qif_fields.h"
#include "model/account_entry.h"
#include "model/entry_type.h"
#include "platform/ambient.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

QifImportProof::Row RowOf(const QifEntry& entry, const TableFormat& format) {
  QifImportProof::Row row;
  row.date = DayCellOfFile(entry.date.value_or(0), format);
  row.type = entry.type.value_or("");
  row.description = entry.description.value_or("");
  row.is_split = !entry.splits.empty() && entry.splits.size() <= kMostQifSplitLines;
  row.to_from = row.is_split ? LocalizedText("Split") : entry.to_from.value_or("");
  row.amount = AmountCell(entry.amount.value_or(0.0), format);
  LDGRAccountEntry drawn;
  drawn.SetDate(entry.date.value_or(0));
  if (entry.is_deposit) {
    drawn.SetIsDeposit(true);
  } else {
    drawn.SetIsDebit(true);
  }
  row.look = LookOfEntry(drawn, format.preferences, TodaysDateNumber());
  return row;
}

}  // namespace

QifImportProof::Row ProofRowOf(const LDGRQIFImportEntry& entry, const TableFormat& format) {
  const auto& type = entry.GetActualType();
  return {.date = DayCellOfFile(entry.GetDate(), format),
          .type = type != nullptr ? type->GetName() : std::string(),
          .description = entry.GetDescription(),
          .to_from = entry.GetToFrom(),
          .amount = AmountCell(entry.GetAmount(), format),
          .look = LookOfEntry(entry, format.preferences, TodaysDateNumber())};
}

QifImportProof ProofOf(const QifResult& result, const QifEntryList& chosen,
                       const QifDateProof& dates, const TableFormat& format) {
  QifImportProof proof;
  proof.chosen_count = chosen.size();
  proof.entry_count = result.entries.size();
  proof.account_count = result.accounts.size();
  std::optional<DateNumber> first;
  std::optional<DateNumber> last;
  for (const auto& entry : chosen) {
    if (proof.rows.size() < kMostProofRows) proof.rows.push_back(RowOf(*entry, format));
    const DateNumber day = entry->date.value_or(0);
    if (day == 0) continue;
    first = std::min(first.value_or(day), day);
    last = std::max(last.value_or(day), day);
  }
  if (first) proof.first_day = DayCell(*first, format).text;
  if (last) proof.last_day = DayCell(*last, format).text;
  proof.dates = dates.dates;
  const std::vector<PopUpItem> titles = QifDateItems();
  for (const QifFormatProof& each : dates.formats) {
    QifImportProof::Format shown;
    shown.tag = each.format.tag;
    const std::int32_t place = IndexOfItemTagged(titles, each.format.tag);
    if (place != kNoItem) shown.title = titles[static_cast<std::size_t>(place)].title;
    shown.read = each.read;
    const TableFormat long_years{each.has_short_years ? "%Y-%m-%d" : format.date_format,
                                 format.preferences};
    if (each.first) shown.first = DayCell(*each.first, long_years).text;
    if (each.last) shown.last = DayCell(*each.last, long_years).text;
    shown.has_short_years = each.has_short_years && each.read == dates.dates;
    shown.fits = each.read == dates.dates && dates.dates > 0 && !each.has_short_years;
    proof.formats.push_back(std::move(shown));
  }
  return proof;
}

std::vector<QifImportProof::Sample> SamplesOf(const std::string& foreign,
                                              const std::vector<std::int32_t>& offered,
                                              const TextEncodings& encodings) {
  std::vector<QifImportProof::Sample> samples;
  if (foreign.empty()) return samples;
  for (const std::int32_t tag : offered) {
    const auto encoding = static_cast<TextEncoding>(tag);
    samples.push_back({tag, encodings.Name(encoding), encodings.Decode(foreign, encoding)});
  }
  return samples;
}

}  // namespace tallyfold
