#include "desktop/services/qt_alerts.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
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
  for (std::size_t i = 0; i < buttons.size(); ++i) {
    if (box.clickedButton() == buttons[i]) return i;
  }
  // The box was taken away with the program's end: the answer that does least.
  return buttons.size() - 1;
}

}  // namespace tallyfold::desktop
