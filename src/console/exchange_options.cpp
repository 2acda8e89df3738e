#include "console/exchange_options.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "app/controller.h"
#include "app/exchange/qif_import_controller.h"
#include "console/command_error.h"
#include "console/entry_options.h"
#include "console/values.h"
#include "exchange/qif_date_formats.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

using SwapPopUp = LDGRQIFImportController::SwapPopUp;

// "payee:description".
std::pair<SwapPopUp, std::int32_t> ReadSwap(std::string_view text) {
  constexpr std::pair<std::string_view, SwapPopUp> kSources[] = {
      {"category", SwapPopUp::Categories},
      {"payee", SwapPopUp::Payees},
      {"memo", SwapPopUp::Memos}};
  constexpr std::pair<std::string_view, std::int32_t> kDestinations[] = {
      {"type", QifOptions::kType},
      {"tofrom", QifOptions::kToFrom},
      {"description", QifOptions::kDescription}};
  const std::size_t colon = std::min(text.find(':'), text.size());
  const auto* const source = std::ranges::find(kSources, text.substr(0, colon),
                                               [](const auto& each) { return each.first; });
  const auto* const destination =
      std::ranges::find(kDestinations, text.substr(std::min(colon + 1, text.size())),
                        [](const auto& each) { return each.first; });
  if (source == std::end(kSources) || destination == std::end(kDestinations)) {
    throw CommandError(
        "swap: expected category, payee or memo, a colon, and type, tofrom or description, not " +
        Quoted(text));
  }
  return {source->second, destination->second};
}

}  // namespace

std::int32_t AccountItem(const std::vector<PopUpItem>& items, std::string_view name) {
  if (name == "all") return static_cast<std::int32_t>(items.size()) - 1;
  return ItemTitled(items, name, "account");
}

std::int32_t DateFormatNamed(const std::vector<PopUpItem>& items, std::string_view text) {
  if (const auto tag = QifDateFormatTag(text)) return IndexOfItemTagged(items, *tag);
  return ItemTitled(items, text, "format");
}

std::int32_t EncodingNamed(const std::vector<PopUpItem>& items, std::string_view text) {
  std::int32_t number = 0;
  const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error == std::errc() && rest == text.data() + text.size() &&
      IndexOfItemTagged(items, number) != kNoItem) {
    return number;
  }
  const PopUpItem* found = nullptr;
  bool is_clear = true;
  for (const PopUpItem& item : items) {
    if (item.is_separator || text.empty()) continue;
    if (CompareIgnoringCase(item.title, text) == 0) return item.tag;
    if (FoldCase(item.title).find(FoldCase(text)) == std::string::npos) continue;
    is_clear = found == nullptr;
    found = &item;
  }
  if (found != nullptr && is_clear) return found->tag;
  std::string choices;
  for (const PopUpItem& item : items) {
    if (item.is_separator) continue;
    choices += (choices.empty() ? "" : ", ") + std::to_string(item.tag) + ' ' + item.title;
  }
  throw CommandError("encoding: expected one of " + choices + ", not " + Quoted(text));
}

bool ReadZero(std::string_view text) {
  if (text == "deposit") return true;
  if (text == "debit") return false;
  throw CommandError("zero: expected deposit or debit, not " + Quoted(text));
}

ImportChoices ReadImportChoices(const QifImportOptionsState& shown, const Arguments& arguments) {
  ImportChoices choices{shown.typed, {}, {}};
  auto& typed = choices.typed;
  if (const auto account = arguments.Text("account")) {
    typed.account = AccountItem(shown.account_items, *account);
  }
  if (const auto format = arguments.Text("format")) {
    typed.date_format = DateFormatNamed(shown.date_format_items, *format);
  }
  SetIfGiven(typed.decimal_separator, arguments.Text("decimal"));
  SetIfGiven(typed.thousands_separator, arguments.Text("thousands"));
  if (const auto zero = arguments.Text("zero")) {
    typed.zero_amounts_as_deposits = ReadZero(*zero);
  }
  SetIfGiven(typed.all_types, arguments.YesNo("types"));
  SetIfGiven(typed.split_line_items, arguments.YesNo("splits"));
  for (const std::string& swap : arguments.AllTexts("swap")) {
    choices.swaps.push_back(ReadSwap(swap));
  }
  return choices;
}

void ConfirmImportOptions(Console& console, const ImportChoices& choices) {
  auto& import = console.controller.sharedQIFImportController();
  import.ImportOptions_Read(choices.typed);
  for (const auto& [pop_up, destination] : choices.swaps) {
    import.ImportOptions_SwapOptions(pop_up, destination);
  }
  const bool is_read = !choices.encoding || import.ImportOptions_SetEncoding(*choices.encoding);
  if (!import.ImportOptions_OK()) throw CommandError("the options cannot be taken now");
  if (!is_read) {
    throw CommandError("the file can no longer be read; the review shows what it held before");
  }
}

}  // namespace tallyfold::console
