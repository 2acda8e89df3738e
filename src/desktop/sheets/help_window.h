#pragma once

#include <QDialog>
#include <QPointer>

namespace tallyfold {
struct GuideChapter;
}

namespace tallyfold::desktop {

class PageList;

// The guide: its chapters at the leading edge, beside them the one that is read. A window by
// itself, so that it can be used while a sheet is open.
class HelpWindow final : public QDialog {
 public:
  HelpWindow();

 private:
  void Add(const GuideChapter& chapter);

  PageList* pages_;
};

// Opens the guide by F1 wherever the keys are, in front of a sheet too.
class HelpKey final : public QObject {
 public:
  HelpKey();
  ~HelpKey() override;

  void Open();

 private:
  bool eventFilter(QObject* receiver, QEvent* event) override;

  QPointer<HelpWindow> shown_;
};

}  // namespace tallyfold::desktop
