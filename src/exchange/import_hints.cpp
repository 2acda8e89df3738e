#include "exchange/import_hints.h"

#include <algorithm>

#include "exchange/import_content.h"

namespace tallyfold {
namespace {

using Kind = ImportDoubtKind;
using Problem = ImportHints::Problem;

struct KindText {
  std::string_view title;
  ImportRemedy remedy = ImportRemedy::None;
};

// In the order of the kinds.
constexpr std::array<KindText, kImportDoubtKinds> kKinds = {{
    {"without a date"},
    {"dates that cannot be read", ImportRemedy::DateFormat},
    {"years of two digits read as they stand", ImportRemedy::DateFormat},
    {"dates of which only two digits of a longer number are read", ImportRemedy::DateFormat},
    {"without an amount, which becomes 0"},
    {"amounts that cannot be read and become 0"},
    {"amounts too large to have cents"},
    {"amounts that other separators may read otherwise", ImportRemedy::Separators},
    {"amounts whose sign is not read: behind, in parentheses or a dash"},
    {"debits of the other sign than most, read as money that comes in"},
    {"records with a second date or amount, of which only the first is read"},
    {"check numbers that are text and become 0"},
    {"check numbers too large, left out"},
    {"check numbers that are no numbers, put in the notes"},
    {"splits left out, of ten lines or more"},
    {"splits left out, of both signs"},
    {"splits left out, of lines that do not fit"},
    {"splits that do not add up to the amount, which their sum replaces", ImportRemedy::SplitLines},
    {"payees replaced by Split", ImportRemedy::SplitLines},
    {"bytes that are no text, replaced", ImportRemedy::Encoding},
    {"accounts left out, without entries to import"},
    {"lists left out"},
    {"lists whose last record has no end and is left out"},
}};

const KindText& Of(Kind kind) noexcept {
  return kKinds[static_cast<std::size_t>(kind)];
}

}  // namespace

std::string_view TitleOf(Kind kind) noexcept {
  return Of(kind).title;
}

ImportRemedy RemedyOf(Kind kind) noexcept {
  return Of(kind).remedy;
}

std::string_view TextOf(Problem problem) noexcept {
  switch (problem) {
    case Problem::None:
      return "";
    case Problem::Unreadable:
      return "the file could not be read";
    case Problem::UnendedBlock:
      return "its list of accounts, !Option:AutoSwitch, has no end, and no entry was read; put a "
             "line !Clear:AutoSwitch behind the list and import the file again";
    case Problem::Empty:
      return RefusalOf(ImportContent::Empty);
    case Problem::Table:
      return "the file seems to be a table (CSV); nothing in it can be imported";
    case Problem::WebPage:
      return "the file seems to be a web page (HTML); nothing in it can be imported";
    case Problem::Picture:
      return "the file seems to be a picture; nothing in it can be imported";
    case Problem::Foreign:
      return "the file has neither a header (!) nor the end of an entry (^); nothing in it can be "
             "imported";
  }
  return "";
}

std::size_t ImportHints::CountOf(Kind kind) const noexcept {
  const auto found = std::find_if(doubts.begin(), doubts.end(),
                                  [kind](const ImportDoubt& each) { return each.kind == kind; });
  return found != doubts.end() ? found->count : 0;
}

bool ImportHints::Needs(ImportRemedy remedy) const noexcept {
  return std::any_of(doubts.begin(), doubts.end(),
                     [remedy](const ImportDoubt& each) { return RemedyOf(each.kind) == remedy; });
}

void ImportDoubtCounter::Add(const ImportDoubtSet& doubts, std::int32_t row) {
  if (doubts.IsEmpty()) return;
  for (std::size_t i = 0; i < doubts_.size(); ++i) {
    const auto kind = static_cast<Kind>(i);
    if (!doubts.Has(kind)) continue;
    Add(kind, 1);
    AddRow(kind, row);
  }
}

void ImportDoubtCounter::Add(Kind kind, std::size_t count) {
  doubts_[static_cast<std::size_t>(kind)].count += count;
}

void ImportDoubtCounter::AddRow(Kind kind, std::int32_t row) {
  auto& rows = doubts_[static_cast<std::size_t>(kind)].rows;
  if (rows.size() < ImportDoubt::kMostRows) rows.push_back(row);
}

std::vector<ImportDoubt> ImportDoubtCounter::Told() const {
  std::vector<ImportDoubt> told;
  for (std::size_t i = 0; i < doubts_.size(); ++i) {
    if (doubts_[i].count == 0) continue;
    told.push_back(doubts_[i]);
    told.back().kind = static_cast<Kind>(i);
  }
  return told;
}

}  // namespace tallyfold
