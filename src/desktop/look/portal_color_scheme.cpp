#include "desktop/look/palette_watch.h"

#ifdef TALLYFOLD_DBUS
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QObject>
#include <QString>
#include <utility>
#endif

namespace tallyfold::desktop {

#ifdef TALLYFOLD_DBUS

namespace {

constexpr QLatin1String kService("org.freedesktop.portal.Desktop");
constexpr QLatin1String kPath("/org/freedesktop/portal/desktop");
constexpr QLatin1String kInterface("org.freedesktop.portal.Settings");
constexpr QLatin1String kNamespace("org.freedesktop.appearance");
constexpr QLatin1String kKey("color-scheme");
// A portal that does not answer must not keep the window waiting.
constexpr int kPatience = 250;  // milliseconds

// A variant may stand in a variant.
QVariant Unwrapped(QVariant value) {
  for (int depth = 0; depth < 4 && value.userType() == qMetaTypeId<QDBusVariant>(); ++depth) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}

ColorScheme::Wish WishOf(const QVariant& value) {
  switch (Unwrapped(value).toUInt()) {
    case 1:
      return ColorScheme::Wish::Dark;
    case 2:
      return ColorScheme::Wish::Light;
    default:
      return ColorScheme::Wish::None;
  }
}

class Portal final : public QObject, public ColorScheme {
  Q_OBJECT

 public:
  Portal() {
    QDBusMessage question =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Read"));
    question << QString(kNamespace) << QString(kKey);
    const QDBusMessage answer =
        QDBusConnection::sessionBus().call(question, QDBus::Block, kPatience);
    if (answer.type() == QDBusMessage::ReplyMessage && !answer.arguments().isEmpty()) {
      wish_ = WishOf(answer.arguments().constFirst());
    }
    QDBusConnection::sessionBus().connect(kService, kPath, kInterface,
                                          QStringLiteral("SettingChanged"), this,
                                          SLOT(SettingChanged(QString, QString, QDBusVariant)));
  }

  [[nodiscard]] Wish Current() const override { return wish_; }
  void WhenChanged(std::function<void()> changed) override { changed_ = std::move(changed); }

 private slots:
  void SettingChanged(const QString& area, const QString& key, const QDBusVariant& value) {
    if (area != kNamespace || key != kKey) return;
    wish_ = WishOf(value.variant());
    if (changed_) changed_();
  }

 private:
  Wish wish_ = Wish::None;
  std::function<void()> changed_;
};

}  // namespace

std::unique_ptr<ColorScheme> PortalColorScheme() {
  if (!QDBusConnection::sessionBus().isConnected()) return nullptr;
  return std::make_unique<Portal>();
}

#else

std::unique_ptr<ColorScheme> PortalColorScheme() {
  return nullptr;
}

#endif

}  // namespace tallyfold::desktop

#ifdef TALLYFOLD_DBUS
#include "portal_color_scheme.moc"
#endif
