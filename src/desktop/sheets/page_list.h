#pragma once

#include <QWidget>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class QListWidget;
class QStackedWidget;

namespace tallyfold::desktop {

// The pages of a sheet: their names at the leading edge, beside them the page that shows.
class PageList final : public QWidget {
 public:
  // `name` is that of the list.
  PageList(QWidget* parent, const char* name);

  // The page belongs to the list from then on. The first one added shows at first.
  void Add(std::string_view identifier, const QString& title, QWidget* page);
  // Asked when the user goes to another page; false keeps the one that shows. None allows each.
  void SetMay(std::function<bool(std::string_view identifier)> may) { may_ = std::move(may); }
  // Without asking.
  void ShowPage(std::string_view identifier);
  // "" for a widget that stands on none.
  [[nodiscard]] std::string PageOf(const QWidget* widget) const;

 private:
  void Select(int row);

  QListWidget* list_;
  QStackedWidget* pages_;
  std::vector<std::string> identifiers_;
  std::function<bool(std::string_view identifier)> may_;
};

}  // namespace tallyfold::desktop
