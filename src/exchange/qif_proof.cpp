#include "exchange/qif_proof.h"

#include <algorithm>

#include "exchange/qif_fields.h"
#include "exchange/qif_record.h"
#include "exchange/qif_sections.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

constexpr std::size_t kLongestSample = 200;

void Look(QifFormatProof& proof, std::string_view text) {
  const DateNumber day = QifDay(text, proof.format.format);
  if (day == 0) return;
  ++proof.read;
  proof.first = std::min(proof.first.value_or(day), day);
  proof.last = std::max(proof.last.value_or(day), day);
  if (day < kFirstDayOfYear100) proof.has_short_years = true;
}

}  // namespace

QifDateProof DateProofOf(const LDGRQIFImport& import) {
  QifDateProof proof;
  for (const QifDateFormat& each : kQifDateFormats) {
    QifFormatProof format;
    format.format = each;
    proof.formats.push_back(format);
  }
  LongOperation operation(LongWork::Parsing, import.dataString().size());
  const auto look_at_list = [&proof](std::string_view list) {
    ForEachQifRecord(list, [&proof](std::string_view text) {
      LongOperation::Count(LongWork::Parsing, text.size() + 1);
      const auto day = QifRecord(text).Value('D');
      if (!day) return;
      ++proof.dates;
      for (QifFormatProof& format : proof.formats) Look(format, *day);
    });
  };
  ForEachQifSection(import.dataString(), look_at_list, [](std::string_view) {});
  operation.Finish();
  std::stable_sort(proof.formats.begin(), proof.formats.end(),
                   [](const QifFormatProof& a, const QifFormatProof& b) {
                     if (a.read != b.read) return a.read > b.read;
                     return !a.has_short_years && b.has_short_years;
                   });
  return proof;
}

std::string FirstForeignText(std::string_view bytes) {
  const auto is_foreign = [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; };
  // A byte-order mark is no text.
  for (const std::string_view mark : {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"}) {
    if (bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  }
  const auto found = std::find_if(bytes.begin(), bytes.end(), is_foreign);
  if (found == bytes.end()) return {};
  const auto place = static_cast<std::size_t>(found - bytes.begin());
  constexpr std::string_view kLineEnds = "\r\n";
  // npos + 1 is the beginning.
  const std::size_t line = bytes.find_last_of(kLineEnds, place) + 1;
  const std::size_t start = line < place ? line + 1 : line;
  const std::size_t end = std::min(bytes.find_first_of(kLineEnds, place), bytes.size());
  const std::size_t from = place - start > kLongestSample ? place : start;
  return std::string(bytes.substr(from, std::min(end - from, kLongestSample)));
}

}  // namespace tallyfold
