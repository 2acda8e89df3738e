#include "desktop/tabs/details_line.h"

#include <QStringList>

#include "app/desk.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "model/account_entry.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

QString DetailsOf(const LDGRAccountEntry& entry, const LDGRPreferences& preferences) {
  QStringList parts;
  if (!entry.GetNotes().empty()) parts.append(ToQString(entry.GetNotes()).simplified());
  const auto& split = entry.GetSplit();
  for (std::size_t i = 0; split != nullptr && i < LDGRAccountEntrySplit::kLines; ++i) {
    QStringList line;
    for (const auto& text : {split->GetDescription(i), split->GetToFrom(i)}) {
      if (!text.empty()) line.append(ToQString(text).simplified());
    }
    if (line.isEmpty() && split->GetAmount(i) == 0.0) continue;
    line.append(ToQString(RegisterAmountText(split->GetAmount(i), preferences)));
    parts.append(line.join(QLatin1String("  ")));
  }
  return parts.join(QStringLiteral("   \u00b7   "));
}

}  // namespace

DetailsLine::DetailsLine(const Desk& desk, QWidget* parent) : QLabel(parent), desk_(desk) {
  setObjectName(QLatin1String("details_Label"));
  setTextFormat(Qt::PlainText);
  setContentsMargins(kOuterCellPadding, 0, kOuterCellPadding, 0);
  setFixedHeight(RowHeight(fontMetrics()) + 7);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  setBackgroundRole(QPalette::Base);
  setAutoFillBackground(true);
}

void DetailsLine::Show() {
  const auto entry = desk_.SelectedEntry();
  const QString details = entry != nullptr ? DetailsOf(*entry, desk_.preferences()) : QString();
  const bool is_dim = entry != nullptr && details.isEmpty();
  setForegroundRole(is_dim ? QPalette::PlaceholderText : QPalette::WindowText);
  setText(is_dim ? Text("No notes, no split") : details);
  setToolTip(details);
}

}  // namespace tallyfold::desktop
