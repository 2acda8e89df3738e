#include <optional>
#include <string>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_selection.h"
#include "app/controller.h"
#include "app/shell/application_lock.h"
#include "app/shell/preferences_sheet.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/password_sheets.h"
#include "console/printer.h"
#include "console/questions.h"
#include "console/save_notes.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

// The new password: the word behind the command, or what a person types twice. None when the
// person gives up.
std::optional<std::string> NewPassword(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() > 0) return arguments.WordAt(0);
  if (!console.questions.AsksPerson()) throw CommandError("expected the password, \"\" for none");
  const auto first = console.questions.AskSecret("New password, empty for none: ");
  const auto second = first ? console.questions.AskSecret("The same again: ") : std::nullopt;
  if (!second) return std::nullopt;
  if (*first != *second) throw CommandError("the two passwords differ; nothing has changed");
  return first;
}

void SetPassword(Console& console, const Arguments& arguments) {
  const auto password = NewPassword(console, arguments);
  if (!password) return;
  LDGRController& controller = console.controller;
  if (!controller.preferencesSheet().Open()) throw CommandError("the password cannot be set now");
  controller.preferencesSheet().preferencesSheet_PasswordValidate(*password, *password);
  if (!controller.preferencesSheet().OK()) throw CommandError("the password was not taken");
  console.printer.Confirm(password->empty() ? "No password protects the application."
                                            : "The password protects the application.");
}

void SetAccountPassword(Console& console, const Arguments& arguments) {
  (void)SelectedAccount(console);
  const auto password = NewPassword(console, arguments);
  if (!password) return;
  LDGRController& controller = console.controller;
  if (!controller.accountSheet().Account_Edit())
    throw CommandError("the account cannot be changed now");
  AccountEditSheetState::Typed typed = controller.accountSheet().State().typed;
  typed.password = *password;
  typed.password_again = *password;
  controller.accountSheet().Read(std::move(typed));
  if (!controller.accountSheet().AccountEditSheet_OK())
    throw CommandError("the password was not taken");
  console.printer.Confirm(password->empty() ? "No password protects the account."
                                            : "The password protects the account.");
}

void Lock(Console& console, const Arguments& arguments) {
  if (const auto name = arguments.Text("account")) {
    const auto account = AccountNamed(console, *name);
    if (!account->HasPassword()) throw CommandError(account->GetName() + " has no password");
    console.controller.accountPasswords().Account_Lock(account);
    return console.printer.Confirm("Locked " + account->GetName() + ".");
  }
  ApplicationLock& lock = console.controller.applicationLock();
  if (lock.password().empty()) throw CommandError("the application has no password");
  lock.lock();
  if (lock.authenticated()) throw CommandError("the application cannot be locked now");
  const std::string unsaved = UnsavedText(console.controller);
  if (!unsaved.empty()) {
    const std::string held = HeldText(console.controller);
    throw CommandError("locked, but " + unsaved +
                       "; what is not saved stays in memory and is there again after unlock" +
                       (held.empty() ? "" : "; " + held));
  }
  console.printer.Confirm("Saved and locked.");
}

void Unlock(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  if (arguments.WordCount() == 0 && !console.questions.AsksPerson()) {
    throw CommandError("expected unlock PASSWORD");
  }
  if (const auto name = arguments.Text("account")) {
    if (!controller.applicationLock().authenticated())
      throw CommandError("the application itself is locked");
    const auto account = AccountNamed(console, *name);
    if (!account->IsLocked()) throw CommandError(account->GetName() + " is not locked");
    // What the launch asked for may be another account.
    controller.accountPasswords().AccountAuthenticationSheet_Cancel();
    controller.selection().Account_Select(account);
  } else if (controller.applicationLock().authenticated()) {
    throw CommandError("the application is not locked; account= unlocks an account");
  }
  if (arguments.WordCount() == 0) return ServePasswordSheet(console);
  if (GivePassword(console, arguments.WordAt(0))) return;
  controller.accountPasswords().AccountAuthenticationSheet_Cancel();
  throw CommandError("the password is wrong");
}

constexpr Option kLockOptions[] = {
    {.name = "account",
     .value = "NUMBER|NAME",
     .help = "one account rather than the whole application"},
};

constexpr Command kCommands[] = {
    {.name = "lock",
     .options = kLockOptions,
     .help = "saves everything and hides it, or hides one account, until the password is given",
     .example = "lock",
     .run = Lock},
    {.name = "unlock",
     .words = "[PASSWORD]",
     .most_words = 1,
     .options = kLockOptions,
     .help = "gives a password; at a terminal it is better asked for than typed behind the command",
     .example = "unlock account=Savings",
     .run = Unlock,
     .needs = Needs::Launch},
    {.name = "password",
     .words = "[PASSWORD]",
     .most_words = 1,
     .help = "sets the password of the application, \"\" for none; it hides, but does not encrypt",
     .example = "password",
     .run = SetPassword},
    {.name = "account password",
     .words = "[PASSWORD]",
     .most_words = 1,
     .help = "sets the password of the selected account, \"\" for none",
     .example = "account password",
     .run = SetAccountPassword},
};

}  // namespace

std::span<const Command> PasswordCommands() {
  return kCommands;
}

}  // namespace tallyfold::console
