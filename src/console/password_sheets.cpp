#include "console/password_sheets.h"

#include <optional>

#include "app/controller.h"
#include "console/command_error.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void CancelPasswordSheet(LDGRController& controller) {
  if (controller.OpenSheet() == Sheet::Authentication) controller.authenticationSheet_Cancel();
  controller.AccountAuthenticationSheet_Cancel();
}

}  // namespace

bool GivePassword(Console& console, const std::string& password) {
  LDGRController& controller = console.controller;
  switch (controller.OpenSheet()) {
    case Sheet::Authentication:
      controller.authenticationSheet_ValidatePassword(password);
      return controller.authenticationSheet().ok_is_enabled && controller.authenticationSheet_OK();
    case Sheet::AccountAuthentication:
      controller.accountAuthenticationSheet_ValidatePassword(password);
      return controller.AccountAuthenticationSheet().ok_is_enabled &&
             controller.AccountAuthenticationSheet_OK();
    default:
      return false;
  }
}

void ServePasswordSheet(Console& console) {
  LDGRController& controller = console.controller;
  if (!console.questions.AsksPerson()) {
    if (controller.OpenSheet() == Sheet::AccountAuthentication) CancelPasswordSheet(controller);
    return;
  }
  while (controller.OpenSheet() == Sheet::Authentication ||
         controller.OpenSheet() == Sheet::AccountAuthentication) {
    const std::string title = controller.AccountAuthenticationSheet().title;
    const auto typed =
        console.questions.AskSecret(title.empty() ? "Password: " : title + " Password: ");
    if (!typed || typed->empty()) return CancelPasswordSheet(controller);
    if (!GivePassword(console, *typed)) console.printer.Note("The password is wrong.");
  }
}

void RequireSelected(Console& console, const std::shared_ptr<LDGRAccount>& account) {
  ServePasswordSheet(console);
  if (console.controller.SelectedAccount() == account) return;
  throw CommandError(account->GetName() + " is locked; unlock PASSWORD account=" +
                     WriteNumber(account->GetNumber()) + " opens it");
}

}  // namespace tallyfold::console
