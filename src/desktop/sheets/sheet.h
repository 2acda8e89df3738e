#pragma once

#include <QDialog>

class QDialogButtonBox;
class QPushButton;
class QScrollArea;
class QVBoxLayout;

namespace tallyfold::desktop {

class MarkedLine;

// What all sheets of the window share: their place, the row of buttons, the line that says what is
// wrong, and that neither a key nor the frame closes them behind the application's back.
class SheetDialog : public QDialog {
 public:
  // Over `window`.
  SheetDialog(QWidget* window, const QString& title);

  // State to widgets, touching only what differs.
  virtual void ShowState() = 0;
  // As FrontEnd::EndEditing().
  [[nodiscard]] virtual bool EndEditing() { return true; }
  // What Escape and the frame's close button do: the sheet's own Cancel.
  virtual void Cancel() = 0;

  // At the top of its window, as wide and tall as it needs.
  void Open();

 protected:
  // The body reaches the edges of the sheet; the rule below it too.
  void UseWholeWidth();
  // Above the problem and the buttons.
  [[nodiscard]] QVBoxLayout& Body() noexcept { return *body_; }
  // The last one made is the one nearest to the trailing end.
  QPushButton* AddButton(const char* name, const QString& title, bool is_default = false);
  // At the leading end of the row of buttons; one behind the other.
  QPushButton* AddLeadingButton(const char* name, const QString& title);
  // In the line of the buttons at its leading end, or in a line of its own above them.
  void SetLeading(QWidget* widget, bool is_above);
  // Before the buttons at the trailing end.
  void AddBeforeButtons(QWidget* widget);
  // As wide and tall as it needs, at the top of its window.
  void Fit();
  // Wider or taller, where a part of the sheet has come to need more than there is; else the fields
  // around it would be squeezed.
  void GrowFor(QWidget* part);
  // So wide where the window leaves it the room, and wider where it needs that.
  void SetWantedWidth(int width) noexcept { wanted_width_ = width; }
  // "" for none.
  void ShowProblem(const QString& problem);

  // What may wait until the sheet is in sight.
  virtual void Painted() {}
  void paintEvent(QPaintEvent* event) override;

 private:
  void reject() override { Cancel(); }
  void closeEvent(QCloseEvent* event) override;
  // Tab goes from one to the next as they stand.
  bool focusNextPrevChild(bool next) override;

  // The middle of a sheet that is taller than its screen scrolls; what is below it stays.
  void ScrollMiddle(bool scrolls);

  // All above the problem and the buttons.
  QWidget* middle_;
  // Around it where it scrolls; else null.
  QScrollArea* scrolled_ = nullptr;
  QVBoxLayout* body_;
  QVBoxLayout* foot_;
  MarkedLine* problem_;
  QWidget* buttons_;
  int leading_count_ = 0;
  int wanted_width_ = 0;
  bool was_painted_ = false;
};

}  // namespace tallyfold::desktop
