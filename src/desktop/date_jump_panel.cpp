#include "desktop/date_jump_panel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "app/desk.h"
#include "app/views/date_jump.h"
#include "desktop/fields/date_field.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {

DateJumpPanel::DateJumpPanel(DateJump& jump, const Desk& desk, QWidget* window)
    : QDialog(window), jump_(jump), desk_(desk), day_(new DateField(this)) {
  setObjectName(QLatin1String("dateJump_Panel"));
  setWindowTitle(Text("Go to Date"));
  day_->setObjectName(QLatin1String("dateJump_Field"));
  day_->setAccessibleName(Text("Date"));
  auto* caption = new QLabel(Text("Date"), this);
  caption->setTextFormat(Qt::PlainText);
  caption->setBuddy(day_);
  auto* go = new QPushButton(Text("Go"), this);
  go->setObjectName(QLatin1String("dateJump_Go_Button"));
  go->setDefault(true);
  connect(go, &QPushButton::clicked, this, &QDialog::accept);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kSheetMargin, kGroupGap, kSheetMargin, kGroupGap);
  row->setSpacing(kGap);
  row->addWidget(caption);
  row->addWidget(day_, 1);
  row->addWidget(go);
}

void DateJumpPanel::Show() {
  if (!jump_.State().is_open) return hide();
  if (!isVisible()) {
    day_->SetFormat(RegisterDateFormat(desk_.preferences()));
    day_->SetDay(jump_.State().day);
    show();
  }
  raise();
  activateWindow();
  day_->setFocus(Qt::OtherFocusReason);
  day_->selectAll();
}

void DateJumpPanel::accept() {
  const auto day = day_->Day();
  SetProblem(day_, !day);
  if (day) jump_.Go(*day);
}

void DateJumpPanel::reject() {
  jump_.Close();
}

}  // namespace tallyfold::desktop
