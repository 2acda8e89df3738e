#include "desktop/first_painting.h"

#include <QEvent>
#include <QEventLoop>
#include <QTimer>
#include <QWidget>
#include <chrono>

namespace tallyfold::desktop {
namespace {

// A display that takes longer than that shows the window with the accounts in it.
constexpr std::chrono::milliseconds kLongestFirstPainting(200);

class PaintFilter final : public QObject {
 public:
  PaintFilter(QWidget& window, QEventLoop& loop) : loop_(loop) { window.installEventFilter(this); }

 private:
  bool eventFilter(QObject* /*receiver*/, QEvent* event) override {
    // It ends when what is being painted has gone to the display.
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, &loop_, &QEventLoop::quit);
    return false;
  }

  QEventLoop& loop_;
};

}  // namespace

void AwaitFirstPainting(QWidget& window) {
  QEventLoop loop;
  const PaintFilter filter(window, loop);
  QTimer::singleShot(kLongestFirstPainting, &loop, &QEventLoop::quit);
  loop.exec(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace tallyfold::desktop
