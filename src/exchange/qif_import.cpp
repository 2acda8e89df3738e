#include "exchange/qif_import.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <memory>
#include <set>
#include <utility>

#include "exchange/import_amounts.h"
#include "exchange/qif_accounts.h"
#include "exchange/qif_fields.h"
#include "exchange/qif_record.h"
#include "exchange/qif_sections.h"
#include "model/clean_text.h"
#include "platform/ambient.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kAccountCode = "!Account";
constexpr std::string_view kNextSection = "\r!";
constexpr std::string_view kAutoSwitch = "!Option:AutoSwitch";
constexpr std::string_view kAutoSwitchEnd = "!Clear:AutoSwitch\r";

constexpr double kLargeAmount = 1e15;

// Whether a cleaned amount that was read as 0 is one.
bool SaysZero(std::string_view amount) {
  return amount.find('0') != std::string_view::npos &&
         amount.find_first_of("123456789") == std::string_view::npos;
}

// The value of an amount that was cleaned, and what is doubtful of how it stood.
double ReadAmount(std::string_view value, std::string_view cleaned, const QifOptions& options,
                  ImportDoubtSet& doubts) {
  const double amount = LeadingAmount(cleaned);
  if (amount == 0.0 && !SaysZero(cleaned)) {
    doubts.Add(ImportDoubtKind::UnreadAmount);
  } else {
    LookAtAmount(value, {options.decimal_separator, options.thousands_separator}, doubts);
  }
  if (!(std::fabs(amount) < kLargeAmount)) doubts.Add(ImportDoubtKind::LargeAmount);
  return amount;
}

std::vector<QifSplitLine> SplitLines(const QifRecord& record, const QifOptions& options,
                                     ImportDoubtSet& doubts) {
  std::vector<std::string> amounts;
  bool has_positive = false;
  bool has_negative = false;
  for (const std::string_view value : record.split_amounts()) {
    std::string amount =
        TweakAmountString(value, options.decimal_separator, options.thousands_separator);
    const bool is_negative = amount.starts_with('-');
    if (is_negative) amount.erase(0, 1);
    (is_negative ? has_negative : has_positive) = true;
    amounts.push_back(std::move(amount));
  }
  const auto& to_froms = record.split_to_froms();
  const auto& descriptions = record.split_descriptions();
  if (has_positive && has_negative) {
    doubts.Add(ImportDoubtKind::MixedSplit);
    return {};
  }
  if (amounts.empty() && to_froms.empty() && descriptions.empty()) return {};
  // One of the two lists may be missing whole.
  const auto fits = [&amounts](const auto& list, const auto& other) {
    return list.size() == amounts.size() || (list.empty() && other.size() == amounts.size());
  };
  if (amounts.empty() || !fits(to_froms, descriptions) || !fits(descriptions, to_froms)) {
    doubts.Add(ImportDoubtKind::UnevenSplit);
    return {};
  }

  std::vector<QifSplitLine> lines;
  lines.reserve(amounts.size());
  for (std::size_t i = 0; i < amounts.size(); ++i) {
    static_cast<void>(ReadAmount(record.split_amounts()[i], amounts[i], options, doubts));
    lines.push_back({std::move(amounts[i]),
                     to_froms.empty() ? std::string() : std::string(to_froms[i]),
                     descriptions.empty() ? std::string() : std::string(descriptions[i])});
  }
  return lines;
}

void ReadDay(const QifRecord& record, const QifOptions& options, QifEntry& entry) {
  const auto value = record.Value('D');
  if (!value) return entry.doubts.Add(ImportDoubtKind::MissingDate);
  const QifDayReading reading = ReadQifDay(*value, options.date_format);
  entry.date = reading.day;
  if (reading.day == 0) {
    entry.doubts.Add(ImportDoubtKind::UnreadableDate);
  } else if (reading.day < kFirstDayOfYear100) {
    entry.doubts.Add(ImportDoubtKind::ShortYear);
  } else if (reading.is_reduced) {
    entry.doubts.Add(ImportDoubtKind::ReducedDate);
  }
}

}  // namespace

// Sections that were read, by where they start: those of an account are also among all, and both
// lists share their entries.
class LDGRQIFImport::Sections {
 public:
  explicit Sections(const LDGRQIFImport& parser) : parser_(parser) {}

  const QifEntryList& Read(std::string_view section) {
    // A section that ends at another account ends one line end earlier than in the whole text.
    const std::size_t size = section.find_last_not_of('\r') + 1;
    auto& known = sections_[{section.data(), size}];
    if (!known) known = parser_.EntryListStringToEntries(section.substr(0, size));
    return *known;
  }

 private:
  struct Hash {
    std::size_t operator()(const std::pair<const char*, std::size_t>& key) const noexcept {
      return std::hash<const char*>()(key.first) ^ key.second;
    }
  };
  const LDGRQIFImport& parser_;
  std::unordered_map<std::pair<const char*, std::size_t>, std::optional<QifEntryList>, Hash>
      sections_;
};

const std::vector<std::string>& LDGRQIFImport::validListTypes() {
  static const std::vector<std::string> types = {"Bank", "CCard", "Cash", "Oth L", "Oth A"};
  return types;
}

// --- Text ---------------------------------------------------------------------------------------

void LDGRQIFImport::SetDataString(std::optional<std::string_view> text) {
  error_ = kNone;
  entry_types_list_.clear();
  has_entry_types_list_ = false;
  file_kind_ = ImportFileKind::Empty;
  left_out_accounts_ = 0;
  if (!text) {
    data_.clear();
    error_ = kNoText;
    return;
  }
  if (text->starts_with(kByteOrderMark)) text->remove_prefix(kByteOrderMark.size());
  file_kind_ = KindOfImportText(*text);
  std::string normal = '\r' + CleanText(*text);
  std::replace(normal.begin(), normal.end(), '\n', '\r');

  if (const std::size_t found = normal.find(kCategoryList); found != std::string::npos) {
    const std::size_t start = found + kCategoryList.size();
    // Another header may follow at once, behind the line end of this one.
    const std::size_t end = std::min(normal.find(kNextSection, start - 1), normal.size());
    if (end > start) entry_types_list_ = normal.substr(start, end - start);
    has_entry_types_list_ = true;
  }
  if (const std::size_t start = normal.find(kAutoSwitch); start != std::string::npos) {
    const std::size_t end = normal.find(kAutoSwitchEnd, start);
    if (end == std::string::npos) {
      Log("No end to !Option:AutoSwitch tag in [LDGRQIFImport SetDataString:].");
      error_ = kUnendedAutoSwitch;
      return;
    }
    normal.erase(start, end + kAutoSwitchEnd.size() - start);
  }
  data_ = std::move(normal);
  RemoveInvalidAccounts();
}

void LDGRQIFImport::RemoveInvalidAccounts() {
  const auto blocks = QifAccountBlocks(data_);
  if (blocks.empty()) return;
  const auto is_valid = [](std::string_view block) {
    const auto& types = validListTypes();
    return std::any_of(types.begin(), types.end(), [block](const std::string& type) {
      return block.find(std::string(kSectionCode) + type) != std::string_view::npos;
    });
  };
  // Blocks follow one another to the end of the text.
  std::string kept =
      data_.substr(0, static_cast<std::size_t>(blocks.front().data() - data_.data()));
  for (const std::string_view block : blocks) {
    if (is_valid(block)) {
      kept += block;
    } else {
      ++left_out_accounts_;
    }
  }
  data_ = std::move(kept);
}

// --- Entries ------------------------------------------------------------------------------------

std::optional<QifEntry> LDGRQIFImport::EntryStringToEntry(std::string_view text) const {
  const QifRecord record(text);
  if (record.IsBlank()) return std::nullopt;
  QifEntry entry;
  ReadDay(record, options_, entry);
  if (const auto value = record.Value('T')) {
    const std::string amount =
        TweakAmountString(*value, options_.decimal_separator, options_.thousands_separator);
    entry.amount = ReadAmount(*value, amount, options_, entry.doubts);
    entry.is_deposit =
        *entry.amount == 0.0 ? options_.zero_amounts_as_deposits : *entry.amount > 0.0;
  }
  const auto put = [&entry](std::optional<std::string_view> value, std::int32_t destination) {
    if (!value) return;
    switch (destination) {
      case QifOptions::kType:
        entry.type = *value;
        break;
      case QifOptions::kToFrom:
        entry.to_from = *value;
        break;
      case QifOptions::kDescription:
        entry.description = *value;
        break;
      default:
        break;
    }
  };
  put(record.Value('P'), options_.swap_to_from);
  put(record.Value('M'), options_.swap_description);
  put(record.Value('L'), options_.swap_type);
  entry.is_cleared = record.Line('C').has_value();
  if (const auto value = record.Value('N')) {
    const std::int32_t number = LeadingInteger(*value);
    if (number != std::numeric_limits<std::int32_t>::max()) {
      entry.number = number;
    } else {
      entry.doubts.Add(ImportDoubtKind::LostNumber);
    }
    if (number == 0 && value->find_first_not_of(" \t0") != std::string_view::npos) {
      entry.doubts.Add(ImportDoubtKind::TextNumber);
    }
  }
  if (record.IsRepeated('D') || record.IsRepeated('T')) {
    entry.doubts.Add(ImportDoubtKind::SecondRecord);
  }
  if (options_.split_line_items) entry.splits = SplitLines(record, options_, entry.doubts);
  return entry;
}

QifEntryList LDGRQIFImport::EntryListStringToEntries(std::string_view text) const {
  QifEntryList entries;
  ForEachQifRecord(text, [&](std::string_view record) {
    if (auto entry = EntryStringToEntry(record)) {
      entries.push_back(std::make_shared<const QifEntry>(*std::move(entry)));
    }
    LongOperation::Count(LongWork::Parsing, record.size() + 1);
  });
  return entries;
}

QifEntryList LDGRQIFImport::AllEntries(Sections& sections) const {
  QifEntryList entries;
  const auto add = [&](std::string_view section) {
    const QifEntryList& read = sections.Read(section);
    entries.insert(entries.end(), read.begin(), read.end());
  };
  ForEachQifSection(data_, add, [](std::string_view /*type*/) {});
  return entries;
}

QifEntryList LDGRQIFImport::AccountEntries(std::string_view block, Sections& sections) const {
  QifEntryList entries;
  for (const std::string& type : validListTypes()) {
    const std::string code = std::string(kSectionCode) + type;
    const std::size_t found = block.find(code);
    if (found == std::string_view::npos) continue;
    const std::size_t start = found + code.size();
    const std::size_t end = std::min(block.find(kNextSection, start), block.size());
    const QifEntryList& section = sections.Read(block.substr(start, end - start));
    entries.insert(entries.end(), section.begin(), section.end());
  }
  return entries;
}

QifEntryList LDGRQIFImport::Entries() const {
  Sections sections(*this);
  return AllEntries(sections);
}

QifEntryList LDGRQIFImport::EntriesForAccountWithName(std::string_view name) const {
  const auto block = AccountWithName(name);
  if (!block) return {};
  Sections sections(*this);
  return AccountEntries(*block, sections);
}

// --- Accounts and types -------------------------------------------------------------------------

std::vector<std::string> LDGRQIFImport::AccountNames() const {
  std::vector<std::string> names;
  for (const std::string_view block : QifAccountBlocks(data_)) {
    if (const auto name = QifAccountName(block)) names.emplace_back(*name);
  }
  return names;
}

namespace {

// An account's text ends at whatever begins like another account's.
std::string_view UpToNextAccount(std::string_view block) {
  return block.substr(0, block.find(kAccountCode, kAccountCode.size()));
}

}  // namespace

std::optional<std::string> LDGRQIFImport::AccountWithName(std::string_view name) const {
  const auto blocks = QifAccountBlocks(data_);
  const auto found = QifAccountIndex(blocks).FirstWithNameStarting(name);
  if (!found) return std::nullopt;
  return std::string(UpToNextAccount(blocks[*found]));
}

std::vector<QifType> LDGRQIFImport::TypesOf(const QifEntryList& entries) const {
  std::vector<QifType> types;
  std::set<std::pair<std::string_view, bool>> known;
  ForEachQifRecord(entry_types_list_, [&](std::string_view text) {
    // The list begins behind its header's line end, and lines are found by the one before them.
    const std::string line_start = '\r' + std::string(text);
    const QifRecord record(line_start);
    if (const auto name = record.Value('N')) {
      types.push_back({std::string(*name), record.Line('I').has_value()});
    }
  });
  // The category list keeps its repetitions.
  const std::vector<QifType> listed = types;
  for (const QifType& type : listed) known.emplace(type.name, type.is_deposit);
  for (const auto& entry : entries) {
    if (entry->type && known.emplace(*entry->type, entry->is_deposit).second) {
      types.push_back({*entry->type, entry->is_deposit});
    }
  }
  return types;
}

std::vector<QifType> LDGRQIFImport::EntryTypes() const {
  return TypesOf(Entries());
}

QifResult LDGRQIFImport::Parse() const {
  LongOperation operation(LongWork::Parsing, data_.size());
  QifResult result;
  Sections sections(*this);
  result.entries = AllEntries(sections);
  result.types = TypesOf(result.entries);

  const auto blocks = QifAccountBlocks(data_);
  const QifAccountIndex index(blocks);
  // Accounts of one name share the first one's entries, which are put together once.
  std::unordered_map<std::size_t, std::size_t> account_of_block;
  for (const std::string_view named : blocks) {
    const auto name = QifAccountName(named);
    if (!name) continue;
    const std::size_t block = index.FirstWithNameStarting(*name).value();
    const auto [known, is_new] = account_of_block.try_emplace(block, result.accounts.size());
    auto entries = is_new ? std::make_shared<const QifEntryList>(
                                AccountEntries(UpToNextAccount(blocks[block]), sections))
                          : result.accounts[known->second].entries;
    const auto source = QifAccountName(blocks[block]).value_or(*name);
    result.accounts.push_back({std::string(*name), std::string(source), std::move(entries)});
  }
  operation.Finish();
  return result;
}

}  // namespace tallyfold
