#pragma once

#include <QLineEdit>
#include <string>

#include "app/entries/completion.h"
#include "desktop/fields/completion_list.h"

namespace tallyfold::desktop {

// A field that completes what is typed. The first text that begins with it is completed in the
// field with its rest selected, which typing replaces and leaving the field takes; Down opens the
// list of all that hold it, in the core's order.
class LDGRComboBoxCell final : public QLineEdit {
  Q_OBJECT

 public:
  explicit LDGRComboBoxCell(QWidget* parent = nullptr);

  // In the order in which they are to be offered.
  void SetTexts(FormerTexts texts);
  void SetNotes(CompletionList::NoteOf notes);
  [[nodiscard]] bool IsListOpen() const { return list_->isVisible(); }
  // What the text was completed with stays, as it is spelled in the list. The keys and clicks that
  // leave the field take it.
  void TakeCompletion();
  // What is highlighted in an open list, else the completion.
  void TakeOffered();

 signals:
  // The user took a completion.
  void Completed(const QString& text);

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void TakeEdit(const QString& text);
  // What the user typed, without the rest that was completed.
  [[nodiscard]] QString Typed() const;
  void OpenList();
  void Take(const QString& text);

  FormerTexts texts_;
  CompletionList* list_;
  // The text that the field was completed to; null for none.
  QString completed_;
  qsizetype typed_length_ = 0;
};

}  // namespace tallyfold::desktop
