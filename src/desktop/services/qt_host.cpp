#include "desktop/services/qt_host.h"

#include <QCoreApplication>
#include <QTimer>

namespace tallyfold::desktop {

void QtHost::Terminate() {
  if (is_terminating_ || status_) return;
  is_terminating_ = true;
  QTimer::singleShot(0, QCoreApplication::instance(), [this] {
    if (terminate_ && !status_) terminate_();
  });
}

void QtHost::EndProcess(int status) {
  if (status_) return;
  status_ = status;
  QTimer::singleShot(0, QCoreApplication::instance(), [status] { QCoreApplication::exit(status); });
}

void QtHost::FlushUserDefaults() {
  if (flush_) flush_();
}

}  // namespace tallyfold::desktop
