#include "desktop/window_sheets.h"

#include <string>
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
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

using TypedField = TextEditing::TypedField;
using Question = QuestionSheet::Question;

SheetDialog* NewPasswordOfApplication(LDGRController& app, QWidget* window) {
  ApplicationLock& lock = app.applicationLock();
  PasswordDialog::Parts parts;
  parts.name = QStringLiteral("authenticationSheet");
  parts.heading = Text("Tallyfold is locked");
  parts.sentence = Text("Your accounts are shown once the password is right.");
  parts.cancel = Text("Quit");
  parts.state = [&lock]() -> const PasswordSheetState& { return lock.State(); };
  parts.typed = [&app](const std::string& typed) {
    app.textEditing().controlTextDidChange(TypedField::authenticationSheet_Password, typed);
  };
  parts.ok = [&lock] { lock.OK(); };
  parts.cancelled = [&lock] { lock.Cancel(); };
  return new PasswordDialog(std::move(parts), window);
}

SheetDialog* NewPasswordOfAccount(LDGRController& app, QWidget* window) {
  AccountPasswords& passwords = app.accountPasswords();
  PasswordDialog::Parts parts;
  parts.name = QStringLiteral("accountAuthenticationSheet");
  const auto& account = passwords.authenticatingAccount();
  if (account != nullptr) parts.heading = ToQString(account->GetName());
  parts.cancel = Text("Cancel");
  parts.state = [&passwords]() -> const PasswordSheetState& { return passwords.State(); };
  parts.typed = [&app](const std::string& typed) {
    app.textEditing().controlTextDidChange(TypedField::accountAuthenticationSheet_Password, typed);
  };
  parts.ok = [&passwords] { passwords.AccountAuthenticationSheet_OK(); };
  parts.cancelled = [&passwords] { passwords.AccountAuthenticationSheet_Cancel(); };
  return new PasswordDialog(std::move(parts), window);
}

// What the answers come to, behind what else there is to know.
std::string NoteOnUndoing(const std::string& note) {
  const std::string undoing = ToUtf8(Text("Undo brings back what is removed."));
  return note.empty() ? undoing : note + "\n" + undoing;
}

SheetDialog* NewEntryRemoval(EntryRemoval& removal, QWidget* window) {
  Question question;
  question.title = Text("Remove Entry");
  question.text = [&removal] { return removal.Confirm().question; };
  question.problem = [&removal] { return TextOf(removal.Confirm().problem); };
  question.note = [&removal] { return NoteOnUndoing(removal.Confirm().note); };
  question.answers = {{"entryRemoveConfirm_Cancel_Button", Text("Cancel"),
                       [&removal] { removal.EntryRemoveConfirm_Cancel(); }},
                      {"entryRemoveConfirm_OK_Button", Text("OK"),
                       [&removal] { removal.EntryRemoveConfirm_OK(); }, true}};
  return new QuestionSheet(std::move(question), window);
}

SheetDialog* NewTransferRemoval(EntryRemoval& removal, QWidget* window) {
  Question question;
  question.title = Text("Remove Transfer");
  question.text = [&removal] { return removal.Transfer().question; };
  question.problem = [&removal] { return TextOf(removal.Transfer().problem); };
  question.note = [] { return NoteOnUndoing(""); };
  question.answers = {{"transferEntryRemoveConfirm_Cancel_Button", Text("Cancel"),
                       [&removal] { removal.TransferEntryRemoveConfirm_Cancel(); }},
                      {"transferEntryRemoveConfirm_No_Button", Text("No"),
                       [&removal] { removal.TransferEntryRemoveConfirm_No(); }},
                      {"transferEntryRemoveConfirm_Yes_Button", Text("Yes"),
                       [&removal] { removal.TransferEntryRemoveConfirm_Yes(); }, true}};
  return new QuestionSheet(std::move(question), window);
}

SheetDialog* NewScheduleRemoval(SchedulesTab& schedules, QWidget* window) {
  Question question;
  question.title = Text("Remove Schedule");
  question.text = [&schedules] { return schedules.Confirm().question; };
  question.problem = [&schedules] { return TextOf(schedules.Confirm().problem); };
  question.note = [] { return NoteOnUndoing(""); };
  question.answers = {{"scheduleRemoveConfirm_Cancel_Button", Text("Cancel"),
                       [&schedules] { schedules.ScheduleRemoveConfirm_Cancel(); }},
                      {"scheduleRemoveConfirm_OK_Button", Text("OK"),
                       [&schedules] { schedules.ScheduleRemoveConfirm_OK(); }, true}};
  return new QuestionSheet(std::move(question), window);
}

}  // namespace

void SetUpSheets(SheetHost& host, LDGRController& app, const std::function<void()>& open_help) {
  SetUpEntrySheets(host, app);
  SetUpExchangeSheets(host, app);
  SetUpPreferenceSheets(host, app, open_help);
  SetUpScheduleSheets(host, app);
  host.Set(Sheet::Authentication,
           [&app](QWidget* window) { return NewPasswordOfApplication(app, window); });
  host.Set(Sheet::AccountAuthentication,
           [&app](QWidget* window) { return NewPasswordOfAccount(app, window); });
  host.Set(Sheet::EntryRemoveConfirm,
           [&app](QWidget* window) { return NewEntryRemoval(app.entryRemoval(), window); });
  host.Set(Sheet::TransferEntryRemoveConfirm,
           [&app](QWidget* window) { return NewTransferRemoval(app.entryRemoval(), window); });
  host.Set(Sheet::ScheduleRemoveConfirm,
           [&app](QWidget* window) { return NewScheduleRemoval(app.schedules(), window); });
}

}  // namespace tallyfold::desktop
