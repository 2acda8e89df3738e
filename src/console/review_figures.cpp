#include "console/review_figures.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "app/controller.h"
#include "app/exchange/qif_import_controller.h"
#include "console/joined.h"
#include "console/printer.h"
#include "console/statement_figures.h"
#include "console/table.h"
#include "console/values.h"
#include "console/words.h"
#include "exchange/import_hints.h"
#include "exchange/qif_date_formats.h"
#include "model/entry_type.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

std::string CountOf(std::size_t number) {
  return WriteNumber(static_cast<std::int64_t>(number));
}

// A text of the file, which may be of any length.
std::string FromFile(std::string_view text) {
  constexpr std::size_t kMostCharacters = 60;
  return FirstCharacters(text, kMostCharacters);
}

// --- What is in force, as the options of the commands are typed ---------------------------------

std::string AsTyped(const ImportSeparators& separators) {
  const auto value = [](std::string_view text) {
    return text.empty() || text.find_first_of(" \t\"\\") != std::string_view::npos
               ? Quoted(text)
               : std::string(text);
  };
  return "decimal=" + value(separators.decimal) + " thousands=" + value(separators.thousands);
}

std::string FieldsAsTyped(const QifImportOptionsState& options) {
  const auto destination = [](std::int32_t tag) {
    return tag == QifOptions::kType     ? "type"
           : tag == QifOptions::kToFrom ? "tofrom"
                                        : "description";
  };
  return std::string("category:") + destination(options.swap_type) +
         " payee:" + destination(options.swap_to_from) +
         " memo:" + destination(options.swap_description);
}

std::string DateFormatInForce(const QifImportOptionsState& options) {
  const std::int32_t index = options.typed.date_format;
  return index == kNoItem ? "" : options.date_format_items[static_cast<std::size_t>(index)].title;
}

std::string SeparatorsInForce(const QifImportOptionsState& options) {
  return AsTyped({options.typed.decimal_separator, options.typed.thousands_separator});
}

void AddSettings(Table& table, const QifImportOptionsState& options) {
  table.Add({"date format", DateFormatInForce(options)});
  table.Add({"separators", SeparatorsInForce(options)});
  table.Add({"fields", FieldsAsTyped(options)});
  table.Add({"encoding", options.refused_encoding.empty()
                             ? options.encoding
                             : options.encoding + ", as it is no " + options.refused_encoding});
}

const std::string& ChosenTitle(const std::vector<PopUpItem>& items, std::int32_t index) {
  return items[static_cast<std::size_t>(index)].title;
}

// --- What was found -----------------------------------------------------------------------------

void AddFacts(Table& table, const ImportHints& hints) {
  if (!hints.source.empty()) table.Add({"entries are those of", FromFile(hints.source)});
  if (hints.elsewhere > 0) {
    table.Add({"entries of the file that are not under review", CountOf(hints.elsewhere)});
  }
  if (hints.first_date) {
    table.Add({"dates", WriteDate(*hints.first_date) + " to " + WriteDate(*hints.last_date)});
  }
  if (hints.after_today > 0) table.Add({"after today", CountOf(hints.after_today)});
}

// "12 (rows 1, 4, 5, 7, 9, ...)".
std::string CountAndRows(const ImportDoubt& doubt) {
  std::string text = CountOf(doubt.count);
  if (doubt.rows.empty()) return text;
  text += doubt.rows.size() == 1 ? " (row " : " (rows ";
  text += Joined(doubt.rows, [](std::int32_t row) { return WriteNumber(row); });
  // A count of bytes is no count of rows.
  const bool has_more =
      doubt.rows.size() == ImportDoubt::kMostRows && doubt.count > doubt.rows.size();
  return text + (has_more ? ", ...)" : ")");
}

void AddDoubts(Table& table, const ImportHints& hints) {
  for (const ImportDoubt& doubt : hints.doubts) {
    table.Add({std::string(TitleOf(doubt.kind)), doubt.kind == ImportDoubtKind::LeftOutList
                                                     ? Joined(hints.left_out_lists, FromFile)
                                                     : CountAndRows(doubt)});
  }
}

// Nothing where what is in force is as good as any other.
void AddChoices(Table& table, const char* what, const std::vector<std::string>& choices,
                const std::string& in_force) {
  if (std::find(choices.begin(), choices.end(), in_force) != choices.end()) return;
  std::string joined;
  for (const std::string& each : choices) joined += (joined.empty() ? "" : " or ") + each;
  table.Add({what, joined.empty() ? "none" : joined});
}

void AddRemedies(Table& table, const ImportHints& hints, const QifImportOptionsState& options) {
  if (hints.Needs(ImportRemedy::DateFormat)) {
    std::vector<std::string> formats;
    for (const auto& each : hints.fitting_formats) {
      formats.emplace_back(each.title);
    }
    AddChoices(table,
               hints.has_hopeless_dates ? "formats that read all other dates"
                                        : "formats that read every date",
               formats, DateFormatInForce(options));
  }
  if (hints.Needs(ImportRemedy::Separators)) {
    std::vector<std::string> separators;
    for (const auto& each : hints.fitting_separators) separators.push_back(AsTyped(each));
    AddChoices(table,
               hints.has_hopeless_amounts ? "separators that read all other amounts"
                                          : "separators that read every amount",
               separators, SeparatorsInForce(options));
  }
  if (hints.Needs(ImportRemedy::SplitLines)) {
    table.Add({"to keep amounts and payees of splits", "back splits=no"});
  }
  if (hints.Needs(ImportRemedy::Encoding)) {
    table.Add({"to read the text in another way", "back encoding=NAME"});
  }
}

}  // namespace

void ShowReviewFigures(const Console& console) {
  const auto& import = console.controller.sharedQIFImportController();
  const QifImportReviewState& review = import.Review();
  const QifImportOptionsState& options = import.Options();
  Table table({{"review"}, {"value", Column::Align::Left, Column::Long::GoesOn}});
  if (const std::string_view problem = TextOf(review.hints.problem); !problem.empty()) {
    table.Add({"problem", std::string(problem)});
  }
  const std::string& account = import.IsStatement()
                                   ? ChosenTitle(import.StatementOptions().account_items,
                                                 import.StatementOptions().typed.account)
                                   : ChosenTitle(options.account_items, options.typed.account);
  table.Add({"account in the file", FromFile(account)});
  if (import.IsStatement()) {
    AddStatementSettings(table, import.StatementOptions());
  } else {
    AddSettings(table, options);
  }
  table.Add({"marked", CountOf(review.marked_count) + " of " + CountOf(review.entry_count)});
  if (review.matched_count > 0) table.Add({"matched", CountOf(review.matched_count)});
  table.Add({"total", WriteAmount(review.total)});
  if (!import.types().empty()) {
    table.Add({"new types", Joined(import.types(), [](const auto& type) {
                 return FromFile(type->GetName()) +
                        (type->GetIsDeposit() ? " (deposit)" : " (debit)");
               })});
  }
  AddFacts(table, review.hints);
  AddDoubts(table, review.hints);
  if (import.IsStatement()) {
    AddStatementFacts(table, import.StatementOptions(), review);
  } else {
    AddRemedies(table, review.hints, options);
  }
  if (review.marked_undated > 0) table.Add({"to leave out what has no date", "unmark undated"});
  console.printer.Show(table);
}

}  // namespace tallyfold::console
