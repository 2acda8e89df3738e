#pragma once

#include <QWidget>

class QLineEdit;
class QMenu;
class QToolButton;

namespace tallyfold::desktop {

// One field of three parts: the menu of filters with the name of the one in force, the text, and a
// button that empties it while there is some.
class SearchField final : public QWidget {
  Q_OBJECT

 public:
  explicit SearchField(QWidget* parent = nullptr);

  // Takes the menu over.
  void SetFilterMenu(QMenu* menu);
  // The user's word for the filter in force.
  void SetFilterName(const QString& name);
  // Shown by whoever owns this; at first while there is a text.
  void SetCanClear(bool can_clear);
  // A filter that takes no text.
  void SetTakesText(bool takes_text);

  [[nodiscard]] QLineEdit& Field() const noexcept { return *field_; }
  [[nodiscard]] QToolButton& FilterButton() const noexcept { return *filter_; }
  [[nodiscard]] QToolButton& ClearButton() const noexcept { return *clear_; }
  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;
  void LayOut();
  [[nodiscard]] int Height() const;
  // Where the rule behind the filter stands.
  [[nodiscard]] int FilterWidth() const;

  QToolButton* filter_;
  QLineEdit* field_;
  QToolButton* clear_;
};

}  // namespace tallyfold::desktop
