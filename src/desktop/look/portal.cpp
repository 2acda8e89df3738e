#include "desktop/look/portal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>
#include <memory>

namespace tallyfold::desktop {
namespace {

constexpr QLatin1String kService("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kInterface("org.freedesktop.portal.Settings");
constexpr QLatin1String kArea("org.freedesktop.appearance");
constexpr QLatin1String kKey("color-scheme");
// A portal that does not answer must not keep the window waiting.
constexpr int kPatience = 250;  // milliseconds

ColorScheme::Wish WishOf(QVariant value) {
  // A variant may stand in a variant.
  for (int depth = 0; depth < 4 && value.userType() == qMetaTypeId<QDBusVariant>(); ++depth) {
    value = value.value<QDBusVariant>().variant();
  }
  switch (value.toUInt()) {
    case 1:
      return ColorScheme::Wish::Dark;
    case 2:
      return ColorScheme::Wish::Light;
    default:
      return ColorScheme::Wish::None;
  }
}

}  // namespace

Portal::Portal() {
  QDBusConnection bus = QDBusConnection::sessionBus();
  QDBusMessage question =
      QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
  question << QString(kArea) << QString(kKey);
  const QDBusMessage answer = bus.call(question, QDBus::Block, kPatience);
  if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
    wish_ = WishOf(answer.arguments().constFirst());
  }
  bus.connect(kService, kPath, kInterface, QStringLiteral("SettingChanged"), this,
              SLOT(SettingChanged(QString, QString, QDBusVariant)));
}

void Portal::SettingChanged(const QString& area, const QString& key, const QDBusVariant& value) {
  if (area != kArea || key != kKey) return;
  wish_ = WishOf(value.variant());
  if (changed_) changed_();
}

std::unique_ptr<ColorScheme> PortalColorScheme() {
  if (!QDBusConnection::sessionBus().isConnected()) return nullptr;
  return std::make_unique<Portal>();
}

}  // namespace tallyfold::desktop
