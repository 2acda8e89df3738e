#include "app/entries/resolved_question.h"

#include "platform/alerts.h"
#include "platform/ambient.h"

namespace tallyfold {

bool AgreesToChangeResolved(Alerts& alerts) {
  constexpr std::size_t kChangeButton = 1;
  return alerts.Run({LocalizedText("Change Resolved Entry?"),
                     LocalizedText("The entry is resolved: the bank's statement has it as it was.  "
                                   "Another amount, date or kind may upset the next "
                                   "reconciliation."),
                     {LocalizedText("Cancel"), LocalizedText("Change")}}) == kChangeButton;
}

}  // namespace tallyfold
