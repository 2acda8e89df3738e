#include "app/views/shown_entries.h"

#include "model/amounts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

std::string HiddenText(const LDGRFilter& filter, std::size_t hidden, std::size_t all) {
  const std::string sought = filter.GetType() == FilterKind::Search
                                 ? std::string(filter.GetDataForSetCategory().StringValue())
                                 : "";
  const std::string name = sought.empty() ? filter.GetName() : sought;
  if (hidden == all) {
    return Message(sought.empty() ? Plural("The filter '{1}' hides the only entry.",
                                           "The filter '{1}' hides all {2} entries.", all)
                                  : Plural("The search for '{1}' hides the only entry.",
                                           "The search for '{1}' hides all {2} entries.", all),
                   {name, std::to_string(all)});
  }
  return Message(sought.empty() ? "The filter '{1}' hides {2} of {3} entries."
                                : "The search for '{1}' hides {2} of {3} entries.",
                 {name, std::to_string(hidden), std::to_string(all)});
}

}  // namespace

bool ShownEntries::HidesAny() const {
  const auto account = desk_.SelectedAccount();
  return account != nullptr && desk_.IsUnlocked() &&
         registers_.currentTableDataSource().GetEntries().size() < account->GetEntries().size();
}

ShownEntriesState ShownEntries::State() const {
  ShownEntriesState state;
  const auto account = desk_.SelectedAccount();
  const auto filter = host_.CurrentFilter();
  if (account == nullptr || filter == nullptr || !desk_.IsUnlocked()) return state;
  const LDGRAccountTableViewData& rows = registers_.currentTableDataSource();
  state.shown = rows.GetEntries().size();
  state.sum = RoundNearZeroValue(rows.TotalOfRows());
  state.sum_text = RegisterAmountText(state.sum, desk_.preferences());
  state.filter = filter->GetName();
  if (!HidesAny()) return state;
  state.hidden = account->GetEntries().size() - state.shown;
  state.hidden_text = HiddenText(*filter, state.hidden, account->GetEntries().size());
  return state;
}

void ShownEntries::ShowAll() {
  const Announcer::Operation operation(announcer_);
  if (!HidesAny()) return;
  const auto selected = desk_.SelectedEntry();
  host_.ShowAllEntries();
  desk_.SelectEntry(selected);
}

}  // namespace tallyfold
