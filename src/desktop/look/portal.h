#pragma once

#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <functional>
#include <utility>

#include "desktop/look/palette_watch.h"

namespace tallyfold::desktop {

// The desktop's portal as it answers over the session bus.
class Portal final : public QObject, public ColorScheme {
  Q_OBJECT

 public:
  Portal();

  [[nodiscard]] Wish Current() const override { return wish_; }
  void WhenChanged(std::function<void()> changed) override { changed_ = std::move(changed); }

 private slots:
  void SettingChanged(const QString& area, const QString& key, const QDBusVariant& value);

 private:
  Wish wish_ = Wish::None;
  std::function<void()> changed_;
};

}  // namespace tallyfold::desktop
