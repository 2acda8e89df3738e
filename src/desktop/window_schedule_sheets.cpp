#include "app/controller.h"
#include "app/desk.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "desktop/sheets/reminder_dialog.h"
#include "desktop/sheets/schedule_dialog.h"
#include "desktop/sheets/sheet_host.h"
#include "desktop/window_sheets.h"

namespace tallyfold::desktop {

void SetUpScheduleSheets(SheetHost& host, LDGRController& app) {
  host.Set(Sheet::Schedule, [&app](QWidget* window) {
    return new ScheduleDialog(app.scheduleSheet(), app.desk(), window);
  });
  host.Set(Sheet::ScheduleReminder, [&app](QWidget* window) {
    return new ReminderDialog(app.reminder(), app.desk(), window);
  });
}

}  // namespace tallyfold::desktop
