#include "exchange/qif_hints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "exchange/import_amounts.h"
#include "exchange/qif_fields.h"
#include "exchange/qif_import.h"
#include "exchange/qif_record.h"
#include "exchange/qif_sections.h"
#include "model/amounts.h"
#include "platform/ambient.h"

namespace tallyfold {
namespace {

using Kind = ImportDoubtKind;
using Problem = ImportHints::Problem;

constexpr std::size_t kMostNamedLists = 8;
constexpr double kHalfACent = 0.005;
constexpr std::string_view kReplacement = "\uFFFD";

// Reading drops blanks and apostrophes between digits, so that these two read whatever there is.
constexpr std::array<ImportSeparators, 2> kSeparators = {{{".", ","}, {",", "."}}};

// --- Entries ------------------------------------------------------------------------------------

void LookAtDay(const QifEntry& entry, DateNumber today, ImportHints& hints) {
  if (entry.date.value_or(0) == 0) return;
  hints.first_date = std::min(hints.first_date.value_or(*entry.date), *entry.date);
  hints.last_date = std::max(hints.last_date.value_or(*entry.date), *entry.date);
  if (*entry.date > today) ++hints.after_today;
}

void LookAtSplit(const QifEntry& entry, ImportDoubtSet& doubts) {
  if (entry.splits.size() > kMostQifSplitLines) doubts.Add(Kind::LongSplit);
  if (entry.splits.empty() || entry.splits.size() > kMostQifSplitLines) {
    if (!entry.amount) doubts.Add(Kind::MissingAmount);
    return;
  }
  double sum = 0.0;
  for (const QifSplitLine& line : entry.splits) sum += RoundedAmount(LeadingAmount(line.amount));
  // The signs of a split follow those of its entry.
  const double stood = RoundedAmount(std::fabs(entry.amount.value_or(0.0)));
  if (!(std::fabs(sum - stood) < kHalfACent)) doubts.Add(Kind::SplitSum);
  if (entry.to_from && *entry.to_from != LocalizedText("Split")) doubts.Add(Kind::SplitPayee);
}

bool HoldsReplacement(const QifEntry& entry) {
  const auto holds = [](const std::optional<std::string>& text) {
    return text && text->find(kReplacement) != std::string::npos;
  };
  return holds(entry.to_from) || holds(entry.description) || holds(entry.type) ||
         std::any_of(entry.splits.begin(), entry.splits.end(), [&](const QifSplitLine& line) {
           return holds(line.to_from) || holds(line.description);
         });
}

// --- The file -----------------------------------------------------------------------------------

// Drops the choices that do not read a value well, unless none at all does: no choice is to blame
// for that value.
template <typename Choice, std::size_t size, typename Reads>
void Narrow(std::vector<Choice>& choices, const std::array<Choice, size>& all, Reads reads,
            bool& has_hopeless) {
  const auto fails = [&reads](const Choice& each) { return !reads(each); };
  // As most values go.
  if (std::none_of(choices.begin(), choices.end(), fails)) return;
  if (std::all_of(choices.begin(), choices.end(), fails) &&
      std::all_of(all.begin(), all.end(), fails)) {
    has_hopeless = true;
    return;
  }
  std::erase_if(choices, fails);
}

void NarrowFormats(std::string_view day, ImportHints& hints) {
  const auto reads = [day](const QifDateFormat& each) {
    const QifDayReading reading = ReadQifDay(day, each.format);
    return reading.day >= kFirstDayOfYear100 && !reading.is_reduced;
  };
  Narrow(hints.fitting_formats, kQifDateFormats, reads, hints.has_hopeless_dates);
}

void NarrowSeparators(std::string_view amount, ImportHints& hints) {
  const auto reads = [amount](const ImportSeparators& each) {
    ImportDoubtSet doubts;
    LookAtAmount(amount, each, doubts);
    return !doubts.Has(Kind::AmountSeparators);
  };
  Narrow(hints.fitting_separators, kSeparators, reads, hints.has_hopeless_amounts);
}

bool HasUnendedRecord(std::string_view list) {
  // npos + 1 is the beginning.
  return list.find_first_not_of(" \t\r", list.rfind('^') + 1) != std::string_view::npos;
}

// The lists of the text, and with which other choices all of it could be read.
class FileLook {
 public:
  FileLook(const LDGRQIFImport& import, ImportHints& hints) : import_(import), hints_(hints) {
    if (hints.Needs(ImportRemedy::DateFormat)) {
      hints.fitting_formats.assign(kQifDateFormats.begin(), kQifDateFormats.end());
    }
    if (hints.Needs(ImportRemedy::Separators)) {
      hints.fitting_separators.assign(kSeparators.begin(), kSeparators.end());
    }
  }

  void Run(ImportDoubtCounter& counter) {
    const std::string_view categories = import_.entryTypesListString();
    std::size_t unended = HasUnendedRecord(categories) ? 1 : 0;
    // Of several category lists, or of one whose header is not exact, not all were read.
    bool may_be_categories = import_.HasEntryTypesList();
    std::size_t left_out = 0;
    const auto look_at_list = [&](std::string_view list) {
      if (HasUnendedRecord(list)) ++unended;
      if (hints_.fitting_formats.empty() && hints_.fitting_separators.empty()) return;
      ForEachQifRecord(list, [this](std::string_view text) { LookAtRecord(text); });
    };
    const auto look_at_other = [&](std::string_view type) {
      if (may_be_categories && type == "Cat" && WasRead(type)) {
        may_be_categories = false;
        return;
      }
      ++left_out;
      auto& names = hints_.left_out_lists;
      if (names.size() == kMostNamedLists) return;
      if (std::find(names.begin(), names.end(), type) == names.end()) names.emplace_back(type);
    };
    ForEachQifSection(import_.dataString(), look_at_list, look_at_other);
    counter.Add(Kind::LeftOutList, left_out);
    counter.Add(Kind::UnendedList, unended);
  }

 private:
  void LookAtRecord(std::string_view text) {
    const QifRecord record(text);
    if (const auto day = record.Value('D')) NarrowFormats(*day, hints_);
    if (const auto amount = record.Value('T')) NarrowSeparators(*amount, hints_);
    if (!import_.GetOptions().split_line_items) return;
    for (const std::string_view amount : record.split_amounts()) NarrowSeparators(amount, hints_);
  }

  bool WasRead(std::string_view type) const {
    const std::string_view text = import_.dataString();
    const auto type_start = static_cast<std::size_t>(type.data() - text.data());
    const std::string_view section = text.substr(type_start - kSectionCode.size());
    return section.starts_with(kCategoryList) &&
           section.substr(kCategoryList.size()).starts_with(import_.entryTypesListString());
  }

  const LDGRQIFImport& import_;
  ImportHints& hints_;
};

}  // namespace

ImportHints::Problem ProblemOf(const LDGRQIFImport& import) {
  if (import.GetError() == LDGRQIFImport::kUnendedAutoSwitch) return Problem::UnendedBlock;
  // Whatever is read has at least the line end in front.
  if (import.dataString().empty()) return Problem::Unreadable;
  if (import.Reading().is_picture) return Problem::Picture;
  switch (import.FileKind()) {
    case ImportFileKind::Qif:
      return Problem::None;
    case ImportFileKind::Empty:
      return Problem::Empty;
    case ImportFileKind::Table:
      return Problem::Table;
    case ImportFileKind::WebPage:
      return Problem::WebPage;
    default:
      return Problem::Foreign;
  }
}

ImportHints HintsFor(const LDGRQIFImport& import, const QifEntryList& entries, DateNumber today) {
  ImportHints hints;
  hints.problem = ProblemOf(import);
  ImportDoubtCounter counter;
  const std::size_t replaced_bytes = import.Reading().replaced_bytes;
  std::int32_t row = 0;
  for (const auto& entry : entries) {
    ++row;
    LookAtDay(*entry, today, hints);
    ImportDoubtSet doubts = entry->doubts;
    LookAtSplit(*entry, doubts);
    counter.Add(doubts, row);
    if (replaced_bytes > 0 && HoldsReplacement(*entry)) {
      counter.AddRow(Kind::ReplacedBytes, row);
    }
  }
  counter.Add(Kind::ReplacedBytes, replaced_bytes);
  counter.Add(Kind::LeftOutAccount, import.LeftOutAccounts());
  // What other choices are looked for depends on the doubts of the entries.
  hints.doubts = counter.Told();
  if (hints.problem == Problem::None) FileLook(import, hints).Run(counter);
  hints.doubts = counter.Told();
  return hints;
}

}  // namespace tallyfold
