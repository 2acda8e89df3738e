#include "console/register_filter.h"

#include "app/controller.h"
#include "app/shell/tabs.h"
#include "app/views/registers.h"
#include "console/command_error.h"
#include "console/lookup.h"
#include "model/account.h"

namespace tallyfold::console {

RegisterFilter FilterInForce(const Console& console) {
  const auto account = SelectedAccount(console);
  if (console.controller.registers().CurrentKind() == RegisterKind::Reconcile) {
    return {account->reconcileFilterType(),
            std::string(account->reconcileFilterData().StringValue()), account->reconcileFilter()};
  }
  return {account->entryFilterType(), std::string(account->entryFilterData().StringValue()),
          account->entryFilter()};
}

void RequireShownRegister(const Console& console, std::string_view command) {
  if (console.controller.tabs().ShownRegister() != RegisterKind::Other) return;
  throw CommandError(std::string(command) + ": the tab of the window shows no register; see 'tab'");
}

}  // namespace tallyfold::console
