#include "desktop/filter_menu.h"

#include <QAction>
#include <span>

#include "desktop/command_actions.h"
#include "desktop/texts.h"
#include "filters/filter_types.h"
#include "filters/register_search.h"

namespace tallyfold::desktop {
namespace {

// The index of the item, in the menu that the action stands in.
constexpr char kItem[] = "item";

void Fill(QMenu& menu, std::span<const FilterMenuItem> items, RegisterSearch& search) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    const FilterMenuItem& item = items[i];
    if (item.is_separator) {
      menu.addSeparator();
      continue;
    }
    QAction* action = nullptr;
    if (item.submenu.empty()) {
      action = menu.addAction(QString());
      action->setCheckable(true);
      QObject::connect(action, &QAction::triggered, &menu,
                       [&search, tag = item.tag] { search.Filter_Menu(tag); });
    } else {
      QMenu* submenu = menu.addMenu(QString());
      Fill(*submenu, item.submenu, search);
      AssignMnemonics(*submenu);
      action = submenu->menuAction();
    }
    SetTitle(*action, Text(item.title));
    action->setProperty(kItem, static_cast<int>(i));
  }
  AssignMnemonics(menu);
}

void Mark(const QMenu& menu, std::span<const FilterMenuItem> items, std::int32_t type) {
  for (QAction* action : menu.actions()) {
    const QVariant index = action->property(kItem);
    if (!index.isValid()) continue;
    const FilterMenuItem& item = items[static_cast<std::size_t>(index.toInt())];
    if (item.submenu.empty()) {
      action->setChecked(MarkOfFilterMenuItem(item, type) == MenuMark::On);
      continue;
    }
    Mark(*action->menu(), item.submenu, type);
    // Drawn as a mixed mark, and told to assistive technology as one that is set.
    const bool is_mixed = MarkOfFilterMenuItem(item, type) == MenuMark::Mixed;
    action->setCheckable(is_mixed);
    action->setChecked(is_mixed);
  }
}

}  // namespace

FilterMenu::FilterMenu(RegisterSearch& search, QWidget* parent) : QMenu(parent), search_(search) {
  setObjectName(QLatin1String("filter_Menu"));
  Fill(*this, tallyfold::FilterMenu(), search_);
  connect(this, &QMenu::aboutToShow, this, &FilterMenu::ShowMarks);
}

void FilterMenu::ShowMarks() {
  Mark(*this, tallyfold::FilterMenu(), search_.State().menu_type);
  AssignMnemonics(*this);
}

QString NameOfFilterType(std::int32_t type) {
  const FilterType* found = FilterTypeWithNumber(type);
  return found != nullptr ? Text(found->name) : QString();
}

}  // namespace tallyfold::desktop
