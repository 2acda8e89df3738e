#include "desktop/status_line.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <string>

#include "app/desk.h"
#include "app/entries/entry_reveal.h"
#include "app/face/message.h"
#include "app/shell/recovery.h"
#include "app/shell/tabs.h"
#include "app/views/balance_field.h"
#include "app/views/registers.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/texts.h"
#include "registers/account_table_view_data.h"
#include "registers/register_look.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::desktop {
namespace {

QLabel* PlainLabel(QWidget* parent, const char* name) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

void SetColor(QLabel& label, Role role) {
  QPalette palette;
  palette.setColor(QPalette::WindowText, ColorsOf(palette)[role]);
  label.setPalette(palette);
}

}  // namespace

StatusLine::StatusLine(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      mode_(new QToolButton(this)),
      value_(PlainLabel(this, "accountBalance_Field")),
      rows_(PlainLabel(this, "rows_Label")),
      notice_image_(new QLabel(this)),
      notice_(PlainLabel(this, "notice_Label")),
      notice_button_(new QToolButton(this)) {
  mode_->setObjectName(QLatin1String("accountBalance_PopUp"));
  mode_->setAutoRaise(true);
  mode_->setPopupMode(QToolButton::InstantPopup);
  mode_->setFocusPolicy(Qt::TabFocus);
  mode_->setMenu(new QMenu(mode_));
  value_->setFont(DemiBoldFont(LargerFont(font(), kStatusFigurePoints)));
  notice_button_->setObjectName(QLatin1String("notice_Button"));
  notice_button_->setAutoRaise(true);
  notice_button_->setFocusPolicy(Qt::TabFocus);
  connect(notice_button_, &QToolButton::clicked, this, [this] { NoticeClicked(); });

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kGap, 0, kGroupGap, 0);
  row->setSpacing(kGap);
  row->addWidget(mode_);
  row->addWidget(value_);
  row->addSpacing(kGap);
  row->addWidget(rows_);
  row->addStretch(1);
  row->addWidget(notice_image_);
  row->addWidget(notice_);
  row->addWidget(notice_button_);
  setFixedHeight(kStatusHeight);
  FillModes();
}

void StatusLine::FillModes() {
  auto* group = new QActionGroup(mode_);
  for (const PopUpItem& item : parts_.balance.State().mode_items) {
    QAction* action = mode_->menu()->addAction(WithoutMnemonics(ToQString(item.title)));
    action->setCheckable(true);
    action->setData(item.tag);
    group->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, tag = item.tag] { parts_.balance.AccountBalance_PopUp(tag); });
  }
}

void StatusLine::ShowBalance() {
  const BalanceFieldState state = parts_.balance.State();
  const bool is_shown = parts_.tabs.State().selected == Tab::Entry;
  mode_->setVisible(is_shown);
  value_->setVisible(is_shown);
  for (QAction* action : mode_->menu()->actions()) {
    if (action->data().toInt() != static_cast<int>(state.mode)) continue;
    action->setChecked(true);
    mode_->setText(action->text());
    mode_->setAccessibleName(action->text());
  }
  mode_->setEnabled(parts_.desk.SelectedAccount() != nullptr);
  value_->setText(ToQString(state.text));
  ShowRows();
}

void StatusLine::ShowRows() {
  const auto account = parts_.desk.SelectedAccount();
  const bool is_register = parts_.tabs.ShownRegister() != RegisterKind::Other;
  rows_->setVisible(is_register && account != nullptr);
  if (!is_register || account == nullptr) return;
  const LDGRAccountTableViewData& table = parts_.registers.Current();
  const std::size_t shown = table.numberOfRowsInTableView();
  const std::size_t all = account->GetEntries().size();
  const std::string sum = RegisterAmountText(table.TotalOfRows(), parts_.desk.preferences());
  SetColor(*rows_, selected_ > 1 ? Role::Text : Role::Dim);
  rows_->setFont(selected_ > 1 ? MediumFont(font()) : font());
  if (selected_ > 1) {
    rows_->setText(
        ToQString(Message("{1} of {2} selected, sum {3}",
                          {std::to_string(selected_), std::to_string(shown),
                           RegisterAmountText(selected_sum_, parts_.desk.preferences())})));
  } else if (all == 0) {
    rows_->setText(Text("No entries"));
  } else if (shown != all) {
    rows_->setText(ToQString(
        Message("{1} of {2} entries, sum {3}", {std::to_string(shown), std::to_string(all), sum})));
  } else {
    rows_->setText(ToQString(Message(Plural("{1} entry, sum {2}", "{1} entries, sum {2}", shown),
                                     {std::to_string(shown), sum})));
  }
}

void StatusLine::ShowSelection(std::size_t count, double sum) {
  selected_ = count;
  selected_sum_ = sum;
  ShowRows();
}

std::pair<StatusLine::Notice, QString> StatusLine::WorstNotice() const {
  for (const auto* failure : {&parts_.accounts.Failure(), &parts_.preferences.Failure()}) {
    if (*failure) {
      return {Notice::NotSaved, ToQString(Message("Not saved: {1}", {(*failure)->Text()}))};
    }
  }
  if (parts_.recovery.protection() == RecoveryLog::Protection::Off) {
    return {Notice::NotProtected,
            Text("Not protected: an interruption before the next save would lose changes")};
  }
  if (const std::string& hidden = parts_.reveal.State().text; !hidden.empty()) {
    return {Notice::Hidden, ToQString(hidden)};
  }
  if (const std::string& back = parts_.recovery.Notice(); !back.empty()) {
    return {Notice::Recovered, ToQString(back)};
  }
  return {Notice::None, QString()};
}

void StatusLine::ShowNotice() {
  const auto [kind, text] = WorstNotice();
  const Role role = kind == Notice::NotSaved    ? Role::Problem
                    : kind == Notice::Recovered ? Role::Good
                                                : Role::Warning;
  const bool is_shown = kind != Notice::None;
  const bool has_button = kind == Notice::Hidden || kind == Notice::Recovered;
  if (is_shown) {
    const QLatin1String image(kind == Notice::Recovered ? "tick"
                              : kind == Notice::Hidden  ? "filter"
                                                        : "warning");
    notice_image_->setPixmap(
        PixmapNamed(image, kIconSize, devicePixelRatioF(), ColorsOf(palette())[role]));
    SetColor(*notice_, role);
  }
  notice_kind_ = kind;
  notice_->setText(text);
  notice_->setToolTip(text);
  notice_button_->setText(kind == Notice::Recovered ? Text("Close") : Text("Show"));
  notice_button_->setAccessibleName(notice_button_->text());
  notice_image_->setVisible(is_shown);
  notice_->setVisible(is_shown);
  notice_button_->setVisible(has_button);
}

void StatusLine::FocusFirst() {
  for (QToolButton* button : {mode_, notice_button_}) {
    if (button->isVisible() && button->isEnabled()) return button->setFocus(Qt::TabFocusReason);
  }
}

void StatusLine::NoticeClicked() {
  if (notice_kind_ == Notice::Hidden) parts_.reveal.ShowHiddenEntry();
  if (notice_kind_ == Notice::Recovered) parts_.recovery.CloseNotice();
}

}  // namespace tallyfold::desktop
