#include "desktop/services/qt_alerts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <algorithm>
#include <vector>

#include "desktop/texts.h"

namespace tallyfold::desktop {

std::size_t QtAlerts::Run(const AlertRequest& request) {
  QMessageBox box(QApplication::activeWindow());
  box.setObjectName(QLatin1String("alert"));
  box.setTextFormat(Qt::PlainText);
  box.setIcon(QMessageBox::Warning);
  // A title bar of its own few desktops show: the title stands in the box as well.
  box.setWindowTitle(Text("Tallyfold"));
  box.setText(ToQString(request.title));
  box.setInformativeText(ToQString(request.message));

  const QString cancel = Text("Cancel");
  std::vector<QPushButton*> buttons;
  for (const std::string& title : request.buttons) {
    const QString text = ToQString(title);
    const auto role = text == cancel ? QMessageBox::RejectRole : QMessageBox::AcceptRole;
    buttons.push_back(box.addButton(WithoutMnemonics(text), role));
    if (text == cancel) box.setEscapeButton(buttons.back());
  }
  if (buttons.empty()) return 0;
  box.setDefaultButton(buttons.front());
  if (box.escapeButton() == nullptr) box.setEscapeButton(buttons.front());

  ++depth_;
  box.exec();
  --depth_;
  // A box that was taken away with the program's end is answered as by Escape.
  const QAbstractButton* const answer =
      box.clickedButton() != nullptr ? box.clickedButton() : box.escapeButton();
  const auto found = std::find(buttons.begin(), buttons.end(), answer);
  return static_cast<std::size_t>(found - buttons.begin());
}

}  // namespace tallyfold::desktop
