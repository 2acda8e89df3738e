#include "console/due_notice.h"

#include <string>

#include "app/controller.h"
#include "app/schedules/schedule_reminder.h"
#include "platform/terminal.h"

namespace tallyfold::console {
namespace {

std::string Counted(std::size_t count, const std::string& what) {
  return std::to_string(count) + (count == 1 ? " scheduled entry " : " scheduled entries ") + what;
}

}  // namespace

DueNotice::DueNotice(LDGRController& controller, Terminal& terminal)
    : controller_(controller), terminal_(terminal) {
  controller_.SetFrontEnd(this);
}

DueNotice::~DueNotice() {
  controller_.SetFrontEnd(nullptr);
}

void DueNotice::Changed(Area area) {
  if (area != Area::ScheduleReminderSheet || is_paused_ || !terminal_.ReadsFromPerson()) return;
  const ScheduleReminderState& reminder = controller_.reminder().State();
  if (!reminder.is_open) return;
  const std::string what = reminder.due > 0
                               ? Counted(reminder.due, reminder.due == 1 ? "is due" : "are due")
                               : Counted(reminder.ahead, "to come soon");
  terminal_.WriteMeanwhile(what + "; remind lists what there is.");
}

}  // namespace tallyfold::console
