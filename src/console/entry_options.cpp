#include "console/entry_options.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "app/entries/entry_editing.h"
#include "console/command_error.h"
#include "console/lookup.h"
#include "console/values.h"
#include "model/account.h"
#include "model/amounts.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

constexpr Option kDate = {
    .name = "date",
    .value = "DATE",
    .help = "YYYY-MM-DD, your short form, with or without the year, today, yesterday or -3"};
constexpr Option kAmount = {.name = "amount", .value = "AMOUNT", .help = "such as 12.50"};
constexpr Option kDescription = {.name = "description", .value = "TEXT", .help = "what it is for"};
constexpr Option kType = {
    .name = "type", .value = "NAME", .help = "a type of the account, or none"};
constexpr Option kCheck = {
    .name = "check", .value = "NUMBER|next|no", .help = "the check's number, or the next free one"};
constexpr Option kCleared = {
    .name = "cleared", .value = "yes|no", .help = "whether the bank has it"};
constexpr Option kTax = {.name = "tax", .value = "yes|no", .help = "whether it is tax deductible"};
constexpr Option kNotes = {.name = "notes", .value = "TEXT", .help = "anything else"};
constexpr Option kSplit = {.name = "split",
                           .value = "DESCRIPTION|TO|AMOUNT",
                           .help =
                               "one line of a split, up to ten, an AMOUNT of rest taking what "
                               "is left of amount=; split=none takes a split away",
                           .is_repeatable = true};
constexpr Option kTo = {.name = "to", .value = "TEXT", .help = "who was paid"};
constexpr Option kFrom = {.name = "from", .value = "TEXT", .help = "who paid"};
constexpr Option kToAccount = {
    .name = "to", .value = "ACCOUNT", .help = "the account that the money goes to"};
constexpr Option kFromAccount = {
    .name = "from", .value = "ACCOUNT", .help = "the account that the money comes from"};

constexpr std::array kDebitOptions = {kAmount, kDate,    kTo,  kDescription, kType,
                                      kCheck,  kCleared, kTax, kNotes,       kSplit};
constexpr std::array kDepositOptions = {kAmount,  kDate, kFrom,  kDescription, kType,
                                        kCleared, kTax,  kNotes, kSplit};
constexpr std::array kTransferOptions = {kAmount,      kDate,    kToAccount, kFromAccount,
                                         kDescription, kCleared, kTax,       kNotes};
constexpr std::array kEntryEditOptions = {
    kAmount,
    kDate,
    Option{
        .name = "to", .value = "TEXT|ACCOUNT", .help = "who was paid; of a transfer the account"},
    Option{.name = "from", .value = "TEXT|ACCOUNT", .help = "who paid; of a transfer the account"},
    kDescription,
    kType,
    kCheck,
    kCleared,
    kTax,
    kNotes,
    kSplit};

// The fields that every sheet has.
template <typename Typed>
void TypeCommonFields(Typed& typed, const Arguments& arguments) {
  SetIfGiven(typed.date, arguments.Date("date"));
  SetIfGiven(typed.amount, arguments.Amount("amount"));
  SetIfGiven(typed.description, arguments.Text("description"));
  SetIfGiven(typed.cleared, arguments.YesNo("cleared"));
  SetIfGiven(typed.tax_deductible, arguments.YesNo("tax"));
  SetIfGiven(typed.notes, arguments.Text("notes"));
}

void Refuse(const Arguments& arguments, std::span<const std::string_view> options,
            std::string_view kind) {
  for (const std::string_view option : options) {
    if (!arguments.Has(option)) continue;
    throw CommandError(std::string(option) + ": " + std::string(kind) + " has none");
  }
}

// Of a line of a split that takes what the others leave.
constexpr std::string_view kRest = "|rest";

// "none" of the type pop-up is its last item.
std::int32_t TypeItem(const std::vector<PopUpItem>& items, std::string_view name) {
  if (name == "none") return static_cast<std::int32_t>(items.size()) - 1;
  return ItemTitled(items, name, "type");
}

void TypeSplit(EntrySheet& sheet, const Arguments& arguments) {
  const bool clears = arguments.AllTexts("split") == std::vector<std::string>{"none"};
  if (clears && !arguments.Has("amount")) {
    throw CommandError("amount: expected one, as the lines that made it up go");
  }
  std::vector<std::string> lines =
      clears ? std::vector<std::string>() : arguments.AllTexts("split");
  const auto amount = arguments.Amount("amount");
  const auto rest =
      std::ranges::find_if(lines, [](const std::string& line) { return line.ends_with(kRest); });
  if (rest != lines.end()) {
    if (!amount) throw CommandError("amount: expected one, of which a line is to take the rest");
    rest->replace(rest->size() - kRest.size(), kRest.size(), "|0");
  }
  const SplitRows rows = ReadSplit(lines);
  sheet.ClearSplit();
  EntrySheetState::Typed typed = sheet.State().typed;
  typed.amount = amount.value_or(0.0);
  typed.split = rows;
  sheet.Read(typed);
  sheet.Split_Table_Field();
  if (clears || !amount) return;
  if (rest != lines.end()) {
    typed = sheet.State().typed;
    typed.selected_split_row = static_cast<std::int32_t>(rest - lines.begin());
    sheet.Read(typed);
    sheet.Split_FillWithRest();
  }
  if (const double left = RoundedAmount(*amount - sheet.State().split_total); left != 0.0) {
    throw CommandError("amount: the lines of the split come to " +
                       WriteAmount(sheet.State().split_total) + ", which leaves " +
                       WriteAmount(left) + " of " + WriteAmount(*amount));
  }
}

void TypeIntoEntrySheet(EntrySheet& sheet, const Arguments& arguments, std::string_view to_from) {
  if (arguments.Has("split")) TypeSplit(sheet, arguments);
  const EntrySheetState& state = sheet.State();
  if (!state.amount_is_enabled && arguments.Has("amount") && !arguments.Has("split")) {
    throw CommandError("amount: the amount of a split is the sum of its lines");
  }
  if (!state.to_from_is_enabled && arguments.Has(to_from)) {
    throw CommandError(std::string(to_from) + ": each line of a split has its own");
  }
  EntrySheetState::Typed typed = state.typed;
  TypeCommonFields(typed, arguments);
  SetIfGiven(typed.to_from, arguments.Text(to_from));
  if (const auto type = arguments.Text("type")) typed.type = TypeItem(state.type_items, *type);
  sheet.Read(std::move(typed));
}

void TypeCheck(LDGRController& controller, std::string_view text) {
  EntrySheetState::Typed typed = controller.entries().Debit().State().typed;
  typed.check_number.clear();
  typed.check = text != "no";
  if (typed.check && text != "next") {
    typed.check_number =
        std::to_string(ReadNumber(text, "check", 0, std::numeric_limits<std::int32_t>::max() - 1));
  }
  controller.entries().Debit().Read(std::move(typed));
  controller.entries().CheckNumber_Button();
  const EntrySheetState::Typed& numbered = controller.entries().Debit().State().typed;
  if (numbered.check && numbered.check_number.empty()) {
    throw CommandError("check: there are no numbers left");
  }
}

std::size_t EndOfField(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && text[end] != '|') end += text[end] == '\\' ? 2U : 1U;
  return std::min(end, text.size());
}

std::string WithoutBackslashes(std::string_view text) {
  std::string plain;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_escape = text[i] == '\\' && i + 1 < text.size();
    if (is_escape) ++i;
    plain += text[i];
  }
  return plain;
}

}  // namespace

std::span<const Option> DebitOptions() {
  return kDebitOptions;
}
std::span<const Option> DepositOptions() {
  return kDepositOptions;
}
std::span<const Option> TransferOptions() {
  return kTransferOptions;
}
std::span<const Option> EditOptions() {
  return kEntryEditOptions;
}

void TypeIntoDebitSheet(Console& console, const Arguments& arguments) {
  constexpr std::string_view kMissing[] = {"from"};
  Refuse(arguments, kMissing, "a debit");
  TypeIntoEntrySheet(console.controller.entries().Debit(), arguments, "to");
  if (const auto check = arguments.Text("check")) TypeCheck(console.controller, *check);
}

void TypeIntoDepositSheet(Console& console, const Arguments& arguments) {
  constexpr std::string_view kMissing[] = {"to", "check"};
  Refuse(arguments, kMissing, "a deposit");
  TypeIntoEntrySheet(console.controller.entries().Deposit(), arguments, "from");
}

void TypeIntoTransferSheet(Console& console, const Arguments& arguments) {
  constexpr std::string_view kMissing[] = {"type", "check", "split"};
  Refuse(arguments, kMissing, "a transfer");
  const auto to = arguments.Text("to");
  const auto from = arguments.Text("from");
  const EditedEntry& edited = console.controller.entries().Edited();
  if (to && from && !edited.is_for_any_account) {
    throw CommandError("expected to= or from=, not both");
  }
  const TransferSheetState& state = console.controller.entries().Transfer().State();
  TransferSheetState::Typed typed = state.typed;
  TypeCommonFields(typed, arguments);
  const auto item_tagged = [](const std::vector<PopUpItem>& items, std::int32_t tag) {
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].tag == tag) return static_cast<std::int32_t>(i);
    }
    return kNoItem;
  };
  if (to || from) {
    const auto other = AccountNamed(console, to ? *to : *from);
    typed.account = item_tagged(state.account_items, other->GetNumber());
    if (typed.account == kNoItem) {
      throw CommandError(to && from ? "a transfer needs two accounts"
                                    : "a transfer needs another account than the selected one");
    }
    typed.direction = item_tagged(state.direction_items, to ? kTransferToTag : kTransferFromTag);
  }
  console.controller.entries().Transfer().Read(std::move(typed));
}

std::int32_t ItemTitled(const std::vector<PopUpItem>& items, std::string_view name,
                        std::string_view what) {
  // Some titles come from files and may be of any length.
  constexpr std::size_t kMostCharactersOfTitle = 60;
  for (const bool exactly : {true, false}) {
    std::int32_t found = kNoItem;
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (items[i].is_separator) continue;
      const bool is_titled =
          exactly ? items[i].title == name : CompareIgnoringCase(items[i].title, name) == 0;
      if (is_titled && found == kNoItem) found = static_cast<std::int32_t>(i);
    }
    if (found != kNoItem) return found;
  }
  std::string titles;
  for (const PopUpItem& item : items) {
    if (item.is_separator) continue;
    titles += titles.empty() ? "" : ", ";
    titles += FirstCharacters(item.title, kMostCharactersOfTitle);
  }
  throw CommandError(std::string(what) + ": expected one of " + titles + ", not " + Quoted(name));
}

SplitRow ReadSplitRow(std::string_view text) {
  std::vector<std::string_view> fields;
  std::string_view rest = text;
  while (true) {
    const std::size_t end = EndOfField(rest);
    fields.push_back(rest.substr(0, end));
    if (end == rest.size()) break;
    rest.remove_prefix(end + 1);
  }
  if (fields.size() != 3) {
    throw CommandError("split: expected DESCRIPTION|TO|AMOUNT, not " + Quoted(text));
  }
  return {WithoutBackslashes(fields[0]), WithoutBackslashes(fields[1]),
          ReadAmount(fields[2], "split")};
}

SplitRows ReadSplit(const std::vector<std::string>& lines) {
  SplitRows rows;
  if (lines.size() > rows.size()) {
    throw CommandError("split: a split has at most " + std::to_string(rows.size()) + " lines");
  }
  for (std::size_t i = 0; i < lines.size(); ++i) rows[i] = ReadSplitRow(lines[i]);
  return rows;
}

}  // namespace tallyfold::console
