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

// The pages of a sheet: their names at the leading edge, beside them, on the ground of pages, the
// one that shows. They reach the edges of the sheet. The user goes from one to another in the list,
// or by Ctrl+Tab and Ctrl+Page Down from anywhere in the sheet.
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
  void paintEvent(QPaintEvent* event) override;
  void Select(int row);
  void GoBy(int pages);

  QListWidget* list_;
  QStackedWidget* pages_;
  std::vector<std::string> identifiers_;
  std::function<bool(std::string_view identifier)> may_;
};

}  // namespace tallyfold::desktop
