#include "desktop/sheets/take_from_button.h"

#include <QMenu>
#include <algorithm>

#include "app/accounts/account_editing.h"
#include "app/desk.h"
#include "desktop/look/icons.h"
#include "desktop/texts.h"
#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold::desktop {

TakeFromButton::TakeFromButton(const Desk& desk, const AccountEditing& editing, QWidget* parent)
    : QPushButton(Text("Take from Account..."), parent), desk_(desk), editing_(editing) {
  setAutoDefault(false);
  SetUsable(true);
  connect(this, &QPushButton::clicked, this, [this] { ShowMenu(); });
}

void TakeFromButton::SetUsable(bool is_usable) {
  const bool has_other = std::ranges::any_of(
      desk_.accounts(), [this](const auto& each) { return each != editing_.editAccount(); });
  setEnabled(is_usable && has_other);
}

void TakeFromButton::ShowMenu() {
  auto* menu = new QMenu(this);
  menu->setObjectName(objectName() + QLatin1String("_Menu"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const auto& account : desk_.accounts()) {
    if (account == editing_.editAccount()) continue;
    const bool is_locked = account->IsLocked();
    const std::string title =
        is_locked ? Message("{1} ({2})", {account->GetName(), LocalizedText("Locked")})
                  : account->GetName();
    QAction* action = menu->addAction(WithoutMnemonics(ToQString(title)));
    if (is_locked) action->setIcon(IconNamed(QLatin1String("lock"), Role::Dim));
    action->setEnabled(!is_locked);
    connect(action, &QAction::triggered, this, [this, account] { take_(*account); });
  }
  menu->popup(mapToGlobal(rect().bottomLeft()));
}

}  // namespace tallyfold::desktop
