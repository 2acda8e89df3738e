#include "desktop/register/copied_rows.h"

#include <algorithm>
#include <utility>

#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

// What would begin another cell or line.
QString OnOneLine(QString text) {
  for (QChar& character : text) {
    const char16_t code = character.unicode();
    if (code < u' ' || code == 0x2028 || code == 0x2029) character = QLatin1Char(' ');
  }
  return text;
}

}  // namespace

std::unique_ptr<QMimeData> CopiedRows(const RowModel& model, const RowSelection& selection,
                                      const std::vector<int>& columns) {
  QString text;
  QString table = QStringLiteral("<table>\n");
  for (const RowSelection::Range& range : selection.Ranges()) {
    const int end = std::min(range.last + 1, model.rowCount());
    for (int row = std::max(0, range.first); row < end; ++row) {
      table += QLatin1String("<tr>");
      bool is_first = true;
      for (const int column : columns) {
        const TableCell cell = model.CellAt(row, column);
        const QString shown = OnOneLine(ToQString(cell.text));
        if (!std::exchange(is_first, false)) text += QLatin1Char('\t');
        text += shown;
        table +=
            QLatin1String(cell.alignment == TableCell::Alignment::Right ? "<td align=\"right\">"
                                                                        : "<td>") +
            shown.toHtmlEscaped() + QLatin1String("</td>");
      }
      text += QLatin1Char('\n');
      table += QLatin1String("</tr>\n");
    }
  }
  table += QLatin1String("</table>\n");
  auto data = std::make_unique<QMimeData>();
  data->setText(text);
  data->setHtml(table);
  return data;
}

}  // namespace tallyfold::desktop
