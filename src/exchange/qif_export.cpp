// The QIF text of an account: a header, the opening balance unless a filter chooses the entries,
// then a record an entry. Fields are written as stored.

#include <array>
#include <charconv>
#include <cstddef>
#include <string>
#include <string_view>

#include "exchange/exported_entries.h"
#include "model/account.h"
#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

class QifText {
 public:
  explicit QifText(std::string_view line_ending) : line_ending_(line_ending) {}

  void Reserve(std::size_t size) { text_.reserve(size); }
  void Line(std::string_view content) {
    text_ += content;
    text_ += line_ending_;
  }
  void Field(char letter, std::string_view content) {
    text_ += letter;
    Line(content);
  }
  void Amount(char letter, double amount) { Field(letter, FixedAmountString(amount)); }
  void Number(char letter, std::int32_t number) {
    std::array<char, 12> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    Field(letter, {digits.data(), static_cast<std::size_t>(end - digits.data())});
  }
  void EndRecord() { Line("^"); }
  [[nodiscard]] std::string Take() { return std::move(text_); }

 private:
  std::string_view line_ending_;
  std::string text_;
};

void WriteHeader(const LDGRAccount& account, QifText& text) {
  text.Line("!Account");
  text.Field('N', account.GetName());
  text.Line("TBank");
  text.Amount('B', account.GetBalance());
  text.EndRecord();
  text.Line("!Type:Bank");
}

// A line counts when it has a text or a positive amount, and its amount keeps its sign.
void WriteSplit(const LDGRAccountEntrySplit& split, QifText& text) {
  for (std::size_t line = 0; line < LDGRAccountEntrySplit::kLines; ++line) {
    const std::string& to_from = split.GetToFrom(line);
    const std::string& description = split.GetDescription(line);
    const double amount = split.GetAmount(line);
    if (to_from.empty() && description.empty() && !(amount > 0.0)) continue;
    text.Field('S', to_from);
    text.Field('E', description);
    text.Amount('$', amount);
  }
}

// A rough size of a record, to spare the text from growing by doubling.
constexpr std::size_t kUsualRecordSize = 96;

}  // namespace

std::string LDGRAccount::asQIFStringWithOptions(const ExportOptions& options) const {
  const std::string_view cleared_mark = options.resolved_means_reconciled ? "X" : "*";
  const EntryList entries = ExportedEntries(*this, options);
  LongOperation operation(LongWork::Exporting, entries.size());
  DayTexts days(options.date_format);
  EntryTypeNames types(*this);

  QifText text(options.line_ending);
  text.Reserve(entries.size() * kUsualRecordSize);
  WriteHeader(*this, text);
  if (!options.export_filter) {
    text.Field('D', days.Text(OpeningDate(*this)));
    text.Field('M', LocalizedText("Starting Balance"));
    text.Amount('T', GetStartingBalance());
    text.Field('C', cleared_mark);
    text.EndRecord();
  }
  for (const auto& entry : entries) {
    text.Field('D', days.Text(entry->GetDate()));
    if (entry->GetCheckNumber() >= 0) text.Number('N', entry->GetCheckNumber());
    text.Field('P', entry->GetToFrom());
    text.Field('M', entry->GetDescription());
    text.Amount('T', entry->GetAmount());
    if (entry->GetCleared()) text.Field('C', cleared_mark);
    text.Field('L', types.Name(entry->GetType()));
    if (const auto& split = entry->GetSplit()) WriteSplit(*split, text);
    text.EndRecord();
    LongOperation::Count(LongWork::Exporting);
  }
  operation.Finish();
  return text.Take();
}

}  // namespace tallyfold
