#include "console/statement_figures.h"

#include <cstddef>
#include <cstdint>
#include <string>

#include "console/joined.h"
#include "console/statement_options.h"
#include "console/values.h"
#include "console/words.h"
#include "model/text.h"

namespace tallyfold::console {
namespace {

constexpr std::size_t kMostOfMessage = 60;

void AddCount(Table& table, std::string what, std::size_t count) {
  if (count > 0) table.Add({std::move(what), WriteNumber(static_cast<std::int64_t>(count))});
}

std::string ContentText(ImportContent content) {
  switch (content) {
    case ImportContent::Ofx:
      return "OFX";
    case ImportContent::Camt:
      return "CAMT";
    default:
      return "table (CSV)";
  }
}

std::string ColumnsAsTyped(const StatementOptionsState& options) {
  std::string text;
  for (std::size_t i = 0; i < options.columns.size(); ++i) {
    const auto field = static_cast<std::int32_t>(options.columns[i].field);
    if (i > 0) text += ' ';
    text += WriteNumber(static_cast<std::int64_t>(i) + 1) + ':' +
            std::string(WordFor(FieldWords(), field));
  }
  return text;
}

}  // namespace

void AddStatementSettings(Table& table, const StatementOptionsState& options) {
  table.Add({"kind of file", ContentText(options.content)});
  if (!options.columns.empty()) table.Add({"columns", ColumnsAsTyped(options)});
  std::string settings;
  for (const auto& each : options.settings) {
    if (each.selected == kNoItem) continue;
    if (!settings.empty()) settings += ' ';
    settings += SettingAsTyped(options, each.setting,
                               each.items[static_cast<std::size_t>(each.selected)].tag);
  }
  if (!settings.empty()) table.Add({"read with", settings});
  table.Add({"suggested types", WriteYesNo(options.typed.suggests_types)});
}

void AddStatementFacts(Table& table, const StatementOptionsState& options,
                       const QifImportReviewState& review) {
  if (!options.message.empty()) {
    table.Add({"the bank says", FirstCharacters(options.message, kMostOfMessage)});
  }
  if (options.is_cut_short) table.Add({"the file ends in the middle of an entry", "yes"});
  if (const std::string proof = TextOf(options.proof); !proof.empty()) {
    table.Add({"balances", proof});
  }
  if (const auto& rows = options.proof.disagreeing; !rows.empty()) {
    table.Add({"rows whose balance does not agree", Joined(rows, [](std::size_t row) {
                 return WriteNumber(static_cast<std::int64_t>(row) + 1);
               })});
  }
  if (review.balance) {
    const auto& day = review.balance->day;
    table.Add({"balance of the statement",
               WriteAmount(review.balance->amount) + (day ? " on " + WriteDate(*day) : "")});
    table.Add({"to take it over", "commit statement=yes"});
  }
  AddCount(table, "unmarked, repeating a row of the file", review.repeated_count);
  AddCount(table, "unmarked, in another currency", review.foreign_count);
  AddCount(table, "unmarked, not booked yet", review.pending_count);
  AddCount(table, "left out, not booked yet", options.pending);
  AddCount(table, "identifiers used again", review.reused_identifiers);
  AddCount(table, "lines of balances, left out", options.balance_lines);
  AddCount(table, "lines added to the entry above", options.continuation_lines);
  AddCount(table, "other lines, left out", options.other_lines);
}

}  // namespace tallyfold::console
