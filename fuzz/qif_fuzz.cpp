// Any bytes, read with any options, give a review that can be marked, edited and committed. The
// first bytes choose the options, the encoding and what the account holds already.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

#include "benchmarks/quiet_store.h"
#include "exchange/qif_date_formats.h"
#include "exchange/qif_hints.h"
#include "exchange/qif_import.h"
#include "exchange/qif_review.h"
#include "exchange/qif_simple_converter.h"
#include "ledger/change.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "plist/utf8.h"
#include "system/iconv_encodings.h"

using namespace tallyfold;  // NOLINT(google-build-using-namespace): a program of one file

namespace {

constexpr std::size_t kOptionBytes = 6;

QifOptions OptionsOf(std::string_view bytes) {
  const auto at = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  QifOptions options;
  options.date_format = kQifDateFormats[at(0) % kQifDateFormats.size()].format;
  options.decimal_separator = at(1) % 4 == 0 ? "," : at(1) % 4 == 1 ? "" : ".";
  options.thousands_separator = at(2) % 4 == 0 ? "." : at(2) % 4 == 1 ? "" : ",";
  options.zero_amounts_as_deposits = (at(3) & 1) != 0;
  options.split_line_items = (at(3) & 2) != 0;
  options.all_types = (at(3) & 4) != 0;
  options.swap_type = at(4) % 5 - 1;
  options.swap_to_from = at(4) / 5 % 5 - 1;
  options.swap_description = at(4) / 25 % 5 - 1;
  return options;
}

// A text that is not what it was said to be must still come out as text.
std::string Decoded(std::string_view bytes, unsigned choice) {
  static const IconvEncodings encodings;
  static const auto list = encodings.List();
  return encodings.Decode(bytes, list[choice % list.size()]).value_or(std::string(bytes));
}

void Check(bool holds) {
  if (!holds) std::abort();
}

void Review(const LDGRQIFImport& import, const QifEntryList& chosen, const QifResult& result,
            LDGRAccount& account) {
  QifReview review(result, chosen, account);
  Check(review.entries().size() == chosen.size());
  const std::size_t before = account.GetEntries().size();
  for (const auto& entry : review.entries()) {
    Check(plist::IsValidUtf8(entry->GetDescription()) && plist::IsValidUtf8(entry->GetToFrom()));
    const auto match = review.MatchOf(*entry);
    const bool is_duplicate = match && match->reason != QifMatch::Reason::NearDate;
    Check(entry->GetImport() != is_duplicate);
  }
  for (const ImportDoubt& doubt : HintsFor(import, chosen, 20260101).doubts) {
    Check(doubt.count > 0 && doubt.rows.size() <= ImportDoubt::kMostRows);
    for (const std::int32_t row : doubt.rows) {
      Check(row >= 1 && static_cast<std::size_t>(row) <= chosen.size());
    }
  }
  review.ToggleAll();
  if (!review.entries().empty()) {
    review.Toggle(review.entries().front());
    review.Remove({review.entries().back()});
  }
  const std::size_t marked = review.MarkedCount();
  const std::shared_ptr<LDGRAccount> shared(std::shared_ptr<LDGRAccount>(), &account);
  benchmarks::QuietStore store;
  Ledger ledger(*store);
  Change change(ledger, "Import", shared);
  review.Commit(change, shared, import.GetOptions().all_types);
  change.Close();
  Check(account.GetEntries().size() == before + marked);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kOptionBytes) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto last_option = static_cast<unsigned char>(bytes[kOptionBytes - 1]);
  LDGRQIFImport import(Decoded(bytes.substr(kOptionBytes), last_option / 2));
  import.SetOptions(OptionsOf(bytes));
  const QifResult result = import.Parse();
  Check(import.AccountNames().size() == result.accounts.size());

  LDGRAccount account;
  Review(import, result.entries, result, account);
  // The second time the first are there already.
  Review(import, result.entries, result, account);
  for (const QifAccount& each : result.accounts) {
    Review(import, *each.entries, result, account);
    if (account.GetEntries().size() > 1000) break;
  }
  if ((last_option & 1) != 0) {
    QifSimpleConverter converter(import.GetOptions(), account);
    static_cast<void>(converter.EntryListStringToLDGREntries(import.dataString()));
    static_cast<void>(
        converter.EntryTypeListStringToLDGRAccountEntryTypes(import.entryTypesListString()));
  }
  return 0;
}
