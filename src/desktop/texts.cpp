#include "desktop/texts.h"

#include <QTextDocument>

#include "platform/ambient.h"

namespace tallyfold::desktop {

QString ToQString(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string ToUtf8(const QString& text) {
  return text.toStdString();
}

QString Text(std::string_view key) {
  return ToQString(LocalizedText(key));
}

QString WithoutMnemonics(QString text) {
  return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString PlainToolTip(const QString& text) {
  return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text, Qt::WhiteSpaceNormal) : text;
}

}  // namespace tallyfold::desktop
