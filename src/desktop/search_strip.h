#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;

namespace tallyfold {
class Desk;
class RegisterSearch;
class Tabs;
class TextEditing;
struct SearchFieldState;
}  // namespace tallyfold

namespace tallyfold::desktop {

class SearchField;

// The search of the registers: its label, the filter menu, the field and what empties it. In the
// Reconcile tab also the check box that shows what is unresolved.
class SearchStrip final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    RegisterSearch& search;
    TextEditing& text_editing;
    const Tabs& tabs;
    const Desk& desk;
  };
  SearchStrip(const Parts& parts, QWidget* parent);

  void Show();
  void FocusField();

 signals:
  // The user is done with the field and goes on in the rows.
  void Left();

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  [[nodiscard]] const SearchFieldState& State() const;
  void ShowLabel();

  Parts parts_;
  QCheckBox* unresolved_;
  QLabel* label_;
  SearchField* field_;
};

}  // namespace tallyfold::desktop
