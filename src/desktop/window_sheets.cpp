#include "desktop/window_sheets.h"

#include <utility>

#include "app/accounts/account_passwords.h"
#include "app/controller.h"
#include "app/entries/entry_removal.h"
#include "app/face/problem.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/application_lock.h"
#include "app/shell/text_editing.h"
#include "desktop/sheets/password_dialog.h"
#include "desktop/sheets/question_sheet.h"
#include "desktop/sheets/sheet_host.h"

namespace tallyfold::desktop {
namespace {

using TypedField = TextEditing::TypedField;

SheetHost::Make Asks(QuestionSheet::Question question) {
  return [question = std::move(question)](QWidget* window) {
    return new QuestionSheet(question, window);
  };
}

SheetHost::Make AsksForPassword(PasswordDialog::Parts parts) {
  return [parts = std::move(parts)](QWidget* window) { return new PasswordDialog(parts, window); };
}

}  // namespace

void SetUpSheets(SheetHost& host, LDGRController& app) {
  host.Set(Sheet::Authentication,
           AsksForPassword(
               {.name = QStringLiteral("authenticationSheet"),
                .title = "Tallyfold Is Locked",
                .question = "Type the password to go on.",
                .cancel = "Quit",
                .state = [&app]() -> const auto& { return app.applicationLock().State();
}
,
    .typed =
        [&app](const std::string& typed) {
          app.textEditing().controlTextDidChange(TypedField::Password, typed);
        },
    .ok = [&app] { app.applicationLock().OK(); },
    .cancelled = [&app] { app.applicationLock().Cancel(); }
}  // namespace tallyfold::desktop
));
  host.Set(Sheet::AccountAuthentication,
           AsksForPassword(
               {.name = QStringLiteral("accountAuthenticationSheet"),
                .title = "Account Password",
                .question = "Password",
                .cancel = "Cancel",
                .state = [&app]() -> const auto& { return app.accountPasswords().State();
  }
  ,
      .typed =
          [&app](const std::string& typed) {
            app.textEditing().controlTextDidChange(TypedField::AccountPassword, typed);
          },
      .ok = [&app] { app.accountPasswords().AccountAuthenticationSheet_OK(); },
      .cancelled = [&app] { app.accountPasswords().AccountAuthenticationSheet_Cancel(); }
  }));

  EntryRemoval& removal = app.entryRemoval();
  host.Set(Sheet::EntryRemoveConfirm,
           Asks({.title = "Remove Entry",
                 .text = [&removal] { return removal.Confirm().question; },
                 .problem = [&removal] { return TextOf(removal.Confirm().problem); },
                 .answers = {{"entryRemoveConfirm_Cancel_Button", "Cancel",
                              [&removal] { removal.EntryRemoveConfirm_Cancel(); }},
                             {"entryRemoveConfirm_OK_Button", "OK",
                              [&removal] { removal.EntryRemoveConfirm_OK(); }, true}}}));
  host.Set(Sheet::TransferEntryRemoveConfirm,
           Asks({.title = "Remove Transfer",
                 .text = [&removal] { return removal.Transfer().question; },
                 .problem = [&removal] { return TextOf(removal.Transfer().problem); },
                 .answers = {{"transferEntryRemoveConfirm_Cancel_Button", "Cancel",
                              [&removal] { removal.TransferEntryRemoveConfirm_Cancel(); }},
                             {"transferEntryRemoveConfirm_No_Button", "No",
                              [&removal] { removal.TransferEntryRemoveConfirm_No(); }},
                             {"transferEntryRemoveConfirm_Yes_Button", "Yes",
                              [&removal] { removal.TransferEntryRemoveConfirm_Yes(); }, true}}}));
  SchedulesTab& schedules = app.schedules();
  host.Set(Sheet::ScheduleRemoveConfirm,
           Asks({.title = "Remove Schedule",
                 .text = [&schedules] { return schedules.Confirm().question; },
                 .problem = [&schedules] { return TextOf(schedules.Confirm().problem); },
                 .answers = {{"scheduleRemoveConfirm_Cancel_Button", "Cancel",
                              [&schedules] { schedules.ScheduleRemoveConfirm_Cancel(); }},
                             {"scheduleRemoveConfirm_OK_Button", "OK",
                              [&schedules] { schedules.ScheduleRemoveConfirm_OK(); }, true}}}));
  }

  }  // namespace tallyfold::desktop
