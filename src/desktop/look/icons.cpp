#include "desktop/look/icons.h"

#include <QBuffer>
#include <QByteArray>
#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImageReader>
#include <QPaintDevice>
#include <QPixmapCache>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <iterator>

// The files are compiled into a library that is linked in whole programs only.
static void InitializeIconFiles() {
  Q_INIT_RESOURCE(icons);
}

namespace tallyfold::desktop {
namespace {

// What points along the line of reading.
constexpr QLatin1String kMirrored[] = {
    QLatin1String("accounts"), QLatin1String("chevron-left"), QLatin1String("chevron-right"),
    QLatin1String("edit"),     QLatin1String("entries"),      QLatin1String("import"),
    QLatin1String("list"),     QLatin1String("note"),         QLatin1String("skip"),
    QLatin1String("speak"),    QLatin1String("split")};
// Below this many logical pixels the clock hand of the calendar is but a spot.
constexpr int kLeastSchedule = 16;

QString PathOf(QLatin1String name) {
  [[maybe_unused]] static const bool is_initialized = (InitializeIconFiles(), true);
  return QLatin1String(":/look/icons/") + name + QLatin1String(".svg");
}

QImage Rendered(QByteArray svg, QSize size) {
  QBuffer buffer(&svg);
  QImageReader reader(&buffer, "svg");
  reader.setScaledSize(size);
  return reader.read();
}

QByteArray BytesOf(QLatin1String name) {
  QFile file(PathOf(name));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class NamedIconEngine final : public QIconEngine {
 public:
  NamedIconEngine(QLatin1String name, Role role) : name_(name), role_(role) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    DrawIcon(*painter, rect, name_, ColorOf(mode), QGuiApplication::layoutDirection());
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    return scaledPixmap(size, mode, state, 1.0);
  }
  QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                       qreal scale) override {
    // The size is in device pixels here.
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.scale(scale, scale);
    const QRectF rect(QPointF(0, 0), QSizeF(size) / scale);
    paint(&painter, rect.toRect(), mode, state);
    painter.end();
    return pixmap;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new NamedIconEngine(*this); }
  QString iconName() override { return name_; }
  bool isNull() override { return false; }

 private:
  [[nodiscard]] QColor ColorOf(QIcon::Mode mode) const {
    return ColorsOf(QGuiApplication::palette())[RoleIn(mode)];
  }
  // Selected is what lies on the accent.
  [[nodiscard]] Role RoleIn(QIcon::Mode mode) const {
    if (mode == QIcon::Disabled) return Role::Off;
    return mode == QIcon::Selected ? Role::OnAccent : role_;
  }

  QLatin1String name_;
  Role role_;
};

}  // namespace

QIcon IconNamed(QLatin1String name, Role role) {
  return QFile::exists(PathOf(name)) ? QIcon(new NamedIconEngine(name, role)) : QIcon();
}

QPixmap PixmapNamed(QLatin1String name, int size, double scale, const QColor& color) {
  if (name == QLatin1String("schedule") && size < kLeastSchedule) {
    name = QLatin1String("schedule-small");
  }
  const int pixels = static_cast<int>(std::lround(size * scale));
  const QString key = QStringLiteral("tallyfold/%1/%2/%3/%4")
                          .arg(name)
                          .arg(pixels)
                          .arg(scale)
                          .arg(color.rgba(), 0, 16);
  QPixmap pixmap;
  if (QPixmapCache::find(key, &pixmap)) return pixmap;
  const QByteArray svg = BytesOf(name).replace("currentColor", color.name().toLatin1());
  pixmap = QPixmap::fromImage(Rendered(svg, {pixels, pixels}));
  pixmap.setDevicePixelRatio(scale);
  QPixmapCache::insert(key, pixmap);
  return pixmap;
}

void DrawIcon(QPainter& painter, const QRect& rect, QLatin1String name, const QColor& color,
              Qt::LayoutDirection direction) {
  const int size = std::min(rect.width(), rect.height());
  const QTransform transform = painter.deviceTransform();
  const double scale = std::abs(transform.m11());
  QPixmap pixmap = PixmapNamed(name, size, scale, color);
  if (pixmap.isNull()) return;
  if (direction == Qt::RightToLeft &&
      std::find(std::begin(kMirrored), std::end(kMirrored), name) != std::end(kMirrored)) {
    pixmap = pixmap.transformed(QTransform::fromScale(-1, 1));
  }
  // A picture between two device pixels would be stretched over both.
  const QPointF corner = transform.map(
      QPointF(rect.x() + (rect.width() - size) / 2, rect.y() + (rect.height() - size) / 2));
  painter.drawPixmap(transform.inverted().map(QPointF(corner.toPoint())), pixmap);
}

QIcon ApplicationIcon() {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    const QLatin1String name(size < 48 ? "tallyfold-small" : "tallyfold");
    icon.addPixmap(QPixmap::fromImage(Rendered(BytesOf(name), {size, size})));
  }
  return icon;
}

}  // namespace tallyfold::desktop
