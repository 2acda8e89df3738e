#include "desktop/sheets/unmade_sheet.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/face/sheet_slot.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {

UnmadeSheet::UnmadeSheet(SheetSlot& slot, QWidget* window)
    : SheetDialog(window, Text("Tallyfold")), slot_(slot) {
  auto* label = new QLabel(Text("This can only be done at the console so far."), this);
  label->setTextFormat(Qt::PlainText);
  Body().addWidget(label);
  connect(AddButton("unmadeSheet_Cancel_Button", Text("Cancel"), true), &QPushButton::clicked, this,
          [this] { Cancel(); });
}

void UnmadeSheet::Cancel() {
  slot_.CancelOpen();
}

}  // namespace tallyfold::desktop
