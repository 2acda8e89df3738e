// The tab-delimited text of an account: a header line, the opening line unless a filter chooses the
// entries, then a line an entry with the balance so far.

#include <string>
#include <string_view>

#include "exchange/exported_entries.h"
#include "model/account.h"
#include "model/amounts.h"
#include "platform/ambient.h"
#include "platform/progress.h"

namespace tallyfold {
namespace {

constexpr std::string_view kHeader =
    "Date\tType\tDescription\tTo/From\tResolved\tTax-Deductible\tAmount\tKind\tCheck #\tID\t"
    "Balance\n";

std::string_view YesOrNo(bool yes) {
  return yes ? "Yes" : "No";
}

std::string_view KindText(const LDGRAccountEntry& entry) {
  if (entry.IsDebit()) return "Debit";
  if (entry.IsDeposit()) return "Deposit";
  if (entry.IsTransfer()) return "Transfer";
  return "";
}

// A rough size of a line, to spare the text from growing by doubling.
constexpr std::size_t kUsualLineSize = 112;

}  // namespace

std::string LDGRAccount::asTabDelimitedStringWithOptions(const ExportOptions& options) const {
  const EntryList entries = ExportedEntries(*this, options);
  LongOperation operation(LongWork::Exporting, entries.size());
  DayTexts days(CurrentLocale().ShortDateFormat());
  EntryTypeNames types(*this);

  std::string text;
  text.reserve(entries.size() * kUsualLineSize);
  const auto field = [&text](std::string_view content) {
    text += content;
    text += '\t';
  };
  const auto end_line = [&text](std::string_view content) {
    text += content;
    text += '\n';
  };

  text += kHeader;
  double balance = GetStartingBalance();
  if (!options.export_filter) {
    field(days.Text(OpeningDate(*this)));
    field("");
    field(LocalizedText("Starting Balance"));
    field("");
    field(YesOrNo(true));
    field("");
    field(FixedAmountString(balance));
    field("");
    field("");
    field("");
    // This line alone ends with a tab.
    field(FixedAmountString(balance));
    end_line("");
  }
  for (const auto& entry : entries) {
    balance += entry->GetAmount();
    field(days.Text(entry->GetDate()));
    field(types.Name(entry->GetType()));
    field(entry->GetDescription());
    field(entry->GetToFrom());
    field(YesOrNo(entry->GetCleared()));
    field(YesOrNo(entry->GetTaxDeductible()));
    field(FixedAmountString(entry->GetAmount()));
    field(KindText(*entry));
    field(entry->GetCheckNumber() >= 0 ? std::to_string(entry->GetCheckNumber()) : "");
    field(std::to_string(entry->GetNumber()));
    end_line(FixedAmountString(balance));
    LongOperation::Count(LongWork::Exporting);
  }
  operation.Finish();
  return text;
}

}  // namespace tallyfold
