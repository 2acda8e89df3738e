#include "console/password_sheets.h"

#include <optional>

#include "app/accounts/account_passwords.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/face/sheet_slot.h"
#include "app/shell/application_lock.h"
#include "console/command_error.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void CancelPasswordSheet(LDGRController& controller) {
  if (controller.sheets().Current() == Sheet::Authentication) controller.applicationLock().Cancel();
  controller.accountPasswords().AccountAuthenticationSheet_Cancel();
}

}  // namespace

bool GivePassword(Console& console, const std::string& password) {
  LDGRController& controller = console.controller;
  switch (controller.sheets().Current()) {
    case Sheet::Authentication:
      controller.applicationLock().authenticationSheet_ValidatePassword(password);
      return controller.applicationLock().State().ok_is_enabled &&
             controller.applicationLock().OK();
    case Sheet::AccountAuthentication:
      controller.accountPasswords().accountAuthenticationSheet_ValidatePassword(password);
      return controller.accountPasswords().State().ok_is_enabled &&
             controller.accountPasswords().AccountAuthenticationSheet_OK();
    default:
      return false;
  }
}

void ServePasswordSheet(Console& console) {
  LDGRController& controller = console.controller;
  if (!console.questions.AsksPerson()) {
    if (controller.sheets().Current() == Sheet::AccountAuthentication)
      CancelPasswordSheet(controller);
    return;
  }
  while (controller.sheets().Current() == Sheet::Authentication ||
         controller.sheets().Current() == Sheet::AccountAuthentication) {
    const std::string title = controller.accountPasswords().State().title;
    const auto typed =
        console.questions.AskSecret(title.empty() ? "Password: " : title + " Password: ");
    if (!typed || typed->empty()) return CancelPasswordSheet(controller);
    if (!GivePassword(console, *typed)) console.printer.Note("The password is wrong.");
  }
}

void RequireSelected(Console& console, const std::shared_ptr<LDGRAccount>& account) {
  ServePasswordSheet(console);
  if (console.controller.desk().SelectedAccount() == account) return;
  throw CommandError(account->GetName() + " is locked; unlock PASSWORD account=" +
                     WriteNumber(account->GetNumber()) + " opens it");
}

}  // namespace tallyfold::console
