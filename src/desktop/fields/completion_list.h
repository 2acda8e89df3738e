#pragma once

#include <QAbstractListModel>
#include <QListView>
#include <functional>
#include <string>
#include <vector>

namespace tallyfold::desktop {

// The list below a field with what completes the text typed there. Its keys go to the field; a
// click takes a line.
class CompletionList final : public QListView {
  Q_OBJECT

 public:
  // What stands at the end of a text's line, as the day of its last use; "" for nothing.
  using NoteOf = std::function<QString(const std::string& text)>;

  explicit CompletionList(QWidget* field);

  void SetNotes(NoteOf notes);
  // Below the field, the line of that number highlighted; -1 for none. Closed where there are none.
  void Show(std::vector<std::string> texts, const QString& typed, int highlighted);
  // By that many lines, from the last to the first and back.
  void Step(int lines);
  // The highlighted text; none for a null string.
  [[nodiscard]] QString Highlighted() const;

 signals:
  void Taken(const QString& text);

 private:
  class Lines;

  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void Place();

  QWidget* field_;
  Lines* lines_;
};

}  // namespace tallyfold::desktop
