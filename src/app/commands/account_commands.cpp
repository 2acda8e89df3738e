#include "app/accounts/account_editing.h"
#include "app/accounts/account_passwords.h"
#include "app/accounts/account_removal.h"
#include "app/accounts/accounts_drawer.h"
#include "app/commands/command_tables.h"
#include "app/controller.h"
#include "app/desk.h"

namespace tallyfold::command_tables {
namespace {

bool HasProtectedAccount(LDGRController& app) {
  return HasAccount(app) && app.desk().SelectedAccount()->HasPassword();
}
bool SheetIsOpen(LDGRController& app) {
  return app.accountSheet().State().is_open;
}
bool Asks(LDGRController& app) {
  return app.accountPasswords().State().is_open;
}
bool PasswordIsRight(LDGRController& app) {
  return Asks(app) && app.accountPasswords().State().ok_is_enabled;
}

constexpr Command kCommands[] = {
    {.name = "Account_Add",
     .title = "Add Account...",
     .menu = Menu::Account,
     .controls = "account_Add_MenuItem",
     .can = IsFree,
     .run = [](LDGRController& app) { app.accountSheet().Account_Add(); }},
    {.name = "Account_Edit",
     .title = "Edit Account...",
     .menu = Menu::Account,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.accountSheet().Account_Edit(); }},
    {.name = "Account_Remove",
     .title = "Remove Account...",
     .menu = Menu::Account,
     .can = HasAccount,
     .run = [](LDGRController& app) { app.accountRemoval().Account_Remove(); }},
    {.name = "Account_Lock",
     .title = "Lock Account",
     .menu = Menu::Account,
     .can = HasProtectedAccount,
     .run =
         [](LDGRController& app) {
           app.accountPasswords().Account_Lock(app.desk().SelectedAccount());
         }},
    {.name = "ToggleAccountsDrawer",
     // The state of the drawer has the title: "Show Accounts" or "Hide Accounts".
     .title = "Show Accounts",
     .menu = Menu::View,
     .can = IsFree,
     .run = [](LDGRController& app) { app.accountsDrawer().ToggleAccountsDrawer(); }},
    {.name = "AccountEditSheet_OK",
     .can = SheetIsOpen,
     .run = [](LDGRController& app) { app.accountSheet().AccountEditSheet_OK(); }},
    {.name = "AccountEditSheet_Cancel",
     .can = SheetIsOpen,
     .run = [](LDGRController& app) { app.accountSheet().AccountEditSheet_Cancel(); }},
    {.name = "AccountAuthenticationSheet_OK",
     .controls = "accountAuthenticationSheet_OK_Button",
     .can = PasswordIsRight,
     .run = [](LDGRController& app) { app.accountPasswords().AccountAuthenticationSheet_OK(); }},
    {.name = "AccountAuthenticationSheet_Cancel",
     .controls = "accountAuthenticationSheet_Cancel_Button",
     .can = Asks,
     .run =
         [](LDGRController& app) { app.accountPasswords().AccountAuthenticationSheet_Cancel(); }},
};

}  // namespace

std::span<const Command> Account() {
  return kCommands;
}

}  // namespace tallyfold::command_tables
