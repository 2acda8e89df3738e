#include "desktop/sheets/review_facts.h"

#include <cstddef>
#include <string_view>

#include "app/exchange/qif_import_state.h"
#include "desktop/sheets/fact_line.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {

std::string ReviewFacts(const QifImportReviewState& state, const TableFormat& format) {
  const ImportHints& hints = state.hints;
  std::string facts;
  if (hints.problem != ImportHints::Problem::None) {
    facts = FactLine(LocalizedText(TextOf(hints.problem)));
  } else if (state.entry_count == 0) {
    facts = LocalizedText("The file has no entries for this account.");
  } else if (hints.first_date && hints.last_date) {
    facts =
        Message(Plural("{1} of {2} entry is marked, {3} to {4}.",
                       "{1} of {2} entries are marked, {3} to {4}.", state.entry_count),
                {std::to_string(state.marked_count), std::to_string(state.entry_count),
                 DayCell(*hints.first_date, format).text, DayCell(*hints.last_date, format).text});
  } else {
    facts = Message(
        Plural("{1} of {2} entry is marked.", "{1} of {2} entries are marked.", state.entry_count),
        {std::to_string(state.marked_count), std::to_string(state.entry_count)});
  }
  if (hints.elsewhere > 0) {
    facts =
        Message(Plural("{1} One entry of the file belongs to another account and is not shown.",
                       "{1} {2} entries of the file belong to other accounts and are not shown.",
                       hints.elsewhere),
                {facts, std::to_string(hints.elsewhere)});
  }
  // Kinds that have a chip are left to it.
  for (const ImportDoubt& doubt : hints.doubts) {
    facts += '\n' + Message("{1}: {2}", {FactLine(LocalizedText(TitleOf(doubt.kind))),
                                         std::to_string(doubt.count)});
  }
  const auto add = [&facts](std::string_view what, std::size_t count) {
    if (count > 0) {
      facts += '\n' + Message("{1}: {2}", {FactLine(LocalizedText(what)), std::to_string(count)});
    }
  };
  // The chip of them counts rows.
  if (state.entry_count == 0) add("new types, which come in all the same", state.new_type_count);
  add("rows that the file has twice, not marked", state.repeated_count);
  add("in another currency, not marked", state.foreign_count);
  add("not booked yet, not marked", state.pending_count);
  add("identifiers that several rows have", state.reused_identifiers);
  return facts;
}

}  // namespace tallyfold::desktop
