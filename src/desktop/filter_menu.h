#pragma once

#include <QMenu>
#include <QObject>
#include <QString>
#include <cstdint>

namespace tallyfold {
class RegisterSearch;
}

namespace tallyfold::desktop {

// The menu of the filters, marked as the search tells; the parent of the chosen one has a mark of
// its own. `search` must outlive the menu.
class FilterMenu final : public QMenu {
 public:
  FilterMenu(RegisterSearch& search, QWidget* parent);

 private:
  void ShowMarks();

  RegisterSearch& search_;
};

// The name of a filter type in the user's language; "" for none.
[[nodiscard]] QString NameOfFilterType(std::int32_t type);

}  // namespace tallyfold::desktop
