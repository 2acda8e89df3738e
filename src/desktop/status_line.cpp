#include "desktop/status_line.h"

#include <QActionGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <string>

#include "app/desk.h"
#include "app/entries/entry_orders.h"
#include "app/entries/entry_reveal.h"
#include "app/entries/transfer_linking.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/backups_list.h"
#include "app/shell/recovery.h"
#include "app/shell/tabs.h"
#include "app/views/balance_field.h"
#include "app/views/shown_entries.h"
#include "desktop/look/assistive.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "registers/schedule_list.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::desktop {
namespace {

constexpr int kRuleHeight = 18;

QToolButton* FlatButton(QWidget* parent, const char* name) {
  auto* button = new QToolButton(parent);
  button->setObjectName(QLatin1String(name));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  return button;
}

}  // namespace

StatusLine::StatusLine(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      mode_(FlatButton(this, "accountBalance_PopUp")),
      value_(new FigureLabel(this, "accountBalance_Field")),
      rule_(new RuleLine(this, Qt::Vertical)),
      rows_(new FigureLabel(this, "rows_Label")),
      hint_(new QLabel(Text("Space marks the selected entry and moves on"), this)),
      notice_image_(new QLabel(this)),
      notice_(new FigureLabel(this, "notice_Label")),
      notice_button_(FlatButton(this, "notice_Button")),
      close_(FlatButton(this, "notice_Close_Button")) {
  mode_->setPopupMode(QToolButton::InstantPopup);
  mode_->setMenu(new QMenu(mode_));
  rule_->setFixedHeight(kRuleHeight);
  value_->setFont(DemiBoldFont(LargerFont(font(), kStatusFigurePoints)));
  hint_->setObjectName(QLatin1String("hint_Label"));
  hint_->setTextFormat(Qt::PlainText);
  hint_->setForegroundRole(QPalette::PlaceholderText);
  notice_->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
  notice_->setMinimumWidth(kColumnGap);
  connect(notice_button_, &QToolButton::clicked, this, [this] { Act(); });
  close_->setIcon(IconNamed(QLatin1String("close"), Role::Dim));
  close_->setIconSize({kGlyphSize, kGlyphSize});
  close_->setAccessibleName(Text("Close"));
  close_->setToolTip(Text("Close"));
  connect(close_, &QToolButton::clicked, this, [this] { CloseNotice(); });

  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(kGap, 0, kGroupGap, 0);
  row->setSpacing(kGap);
  row->addWidget(mode_);
  row->addWidget(value_);
  row->addSpacing(kTightGap);
  row->addWidget(rule_);
  row->addSpacing(kTightGap);
  row->addWidget(rows_);
  row->addStretch(1);
  row->addWidget(hint_);
  row->addWidget(notice_image_);
  row->addWidget(notice_);
  row->addWidget(notice_button_);
  row->addWidget(close_);
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
  const bool is_shown = parts_.tabs.State().selected == Tab::Entry && parts_.desk.IsUnlocked();
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
  NameFigure(*value_, mode_->accessibleName(), value_->text());
  ShowRows();
}

std::string StatusLine::RowsText() const {
  if (parts_.tabs.ShownRegister() == RegisterKind::Other) return {};
  const ShownEntriesState rows = parts_.shown.State();
  const auto count = [this](std::size_t number) {
    return CountText(number, parts_.desk.preferences());
  };
  if (selected_.count > 1) {
    return Message("{1} of {2} selected, sum {3}",
                   {count(selected_.count), count(rows.shown), selected_.amount_text});
  }
  if (rows.shown + rows.hidden == 0) return ToUtf8(Text("No entries"));
  if (rows.hidden > 0) {
    return Message("{1} of {2} entries, sum {3}",
                   {count(rows.shown), count(rows.shown + rows.hidden), rows.sum_text});
  }
  return Message(Plural("{1} entry, sum {2}", "{1} entries, sum {2}", rows.shown),
                 {count(rows.shown), rows.sum_text});
}

std::string StatusLine::SchedulesText() const {
  const auto& schedules = parts_.schedules.Rows().Schedules();
  std::string text =
      Message(Plural("{1} scheduled entry", "{1} scheduled entries", schedules.size()),
              {std::to_string(schedules.size())});
  std::size_t late = 0;
  for (const auto& schedule : schedules) late += OverdueCount(*schedule, TodaysDateNumber());
  if (late > 0) text += ", " + Message("{1} late", {std::to_string(late)});
  return text;
}

void StatusLine::ShowRows() {
  const bool has_account = parts_.desk.SelectedAccount() != nullptr;
  const Tab tab = parts_.tabs.State().selected;
  std::string text;
  if (has_account) {
    text =
        tab == Tab::Schedule ? SchedulesText()
        : tab == Tab::Summary
            ? ToUtf8(Text("A line shows its entries in the register: select it and press Return"))
            : RowsText();
  }
  const bool are_several =
      selected_.count > 1 && parts_.tabs.ShownRegister() != RegisterKind::Other;
  SetTextInk(*rows_, ColorsOf(palette())[are_several ? Role::Text : Role::Dim]);
  rows_->setFont(are_several ? MediumFont(font()) : font());
  rows_->setText(ToQString(text));
  rows_->setVisible(!text.empty());
  rule_->setVisible(!text.empty() && value_->isVisibleTo(this));
  ShowHint();
}

void StatusLine::ShowHint() {
  const bool is_wanted = parts_.tabs.State().selected == Tab::Reconcile &&
                         parts_.desk.SelectedAccount() != nullptr && topic_ == Topic::None;
  const int needed = rows_->sizeHint().width() + hint_->sizeHint().width() + 2 * kColumnGap;
  hint_->setVisible(is_wanted && width() >= needed);
}

void StatusLine::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  ShowHint();
}

void StatusLine::ShowSelection(const EntriesSum& selected) {
  selected_ = selected;
  ShowRows();
}

StatusLine::Notice StatusLine::WorstNotice() const {
  if (!work_.isEmpty()) return {Topic::Working, work_};
  for (const auto* failure : {&parts_.accounts.Failure(), &parts_.preferences.Failure()}) {
    if (*failure) {
      return {Topic::NotSaved, ToQString(Message("Not saved: {1}", {(*failure)->Text()}))};
    }
  }
  const EntryOrdersState& order = parts_.orders.State();
  const TransferLinkingState& link = parts_.linking.State();
  const BackUpState& backup = parts_.backups.State();
  const QString kept =
      backup.kept.empty() ? QString() : ToQString(Message("Backed up as {1}", {backup.kept}));
  const auto unless = [](const QString& closed, const QString& text) {
    return text == closed ? QString() : text;
  };
  const Notice notices[] = {
      {Topic::Refused, ToQString(order.problem)},
      {Topic::Refused, unless(closed_link_, ToQString(link.problem))},
      {Topic::Refused, unless(closed_backup_, ToQString(backup.problem))},
      {Topic::NotProtected,
       parts_.recovery.protection() == RecoveryLog::Protection::Off
           ? Text("Not protected: an interruption before the next save would lose changes")
           : QString()},
      {Topic::Hidden, ToQString(parts_.reveal.State().text)},
      {Topic::Told, ToQString(order.note)},
      {Topic::Told, unless(closed_link_, ToQString(link.note))},
      {Topic::Offer, ToQString(link.offer_text)},
      {Topic::BackedUp, unless(closed_backup_, kept)},
      {Topic::Recovered, ToQString(parts_.recovery.Notice())},
  };
  for (const Notice& notice : notices) {
    if (!notice.text.isEmpty()) return notice;
  }
  return {};
}

void StatusLine::ShowNotice() {
  const Notice notice = WorstNotice();
  const Topic topic = notice.topic;
  const bool is_good = topic == Topic::Recovered || topic == Topic::BackedUp;
  const Role role = topic == Topic::NotSaved || topic == Topic::Refused ? Role::Problem
                    : is_good                                           ? Role::Good
                    : topic == Topic::Offer || topic == Topic::Told || topic == Topic::Working
                        ? Role::Text
                        : Role::Warning;
  const bool is_shown = topic != Topic::None;
  if (is_shown) {
    const char* image = is_good                  ? "tick"
                        : topic == Topic::Hidden ? "filter"
                        : topic == Topic::Offer  ? "transfer"
                        : topic == Topic::Told   ? "hint"
                                                 : "warning";
    notice_image_->setPixmap(PixmapNamed(QLatin1String(image), kIconSize, devicePixelRatioF(),
                                         ColorsOf(palette())[role]));
    SetTextInk(*notice_, ColorsOf(palette())[role]);
  }
  topic_ = topic;
  notice_->setText(notice.text);
  notice_->setToolTip(PlainToolTip(notice.text));
  notice_button_->setText(topic == Topic::Offer ? Text("Link") : Text("Show"));
  notice_button_->setAccessibleName(notice_button_->text());
  notice_image_->setVisible(is_shown && topic != Topic::Working);
  notice_->setVisible(is_shown);
  notice_button_->setVisible(topic == Topic::Hidden || topic == Topic::Offer);
  close_->setVisible(is_shown && topic != Topic::Working && topic != Topic::NotSaved &&
                     topic != Topic::NotProtected && topic != Topic::Hidden);
  ShowHint();
}

void StatusLine::ShowWork(const QString& sentence) {
  work_ = sentence;
  ShowNotice();
  // It is painted before any event that would lay it out.
  layout()->activate();
}

void StatusLine::ShowLinking() {
  closed_link_.clear();
  ShowNotice();
}

void StatusLine::ShowBackUp() {
  closed_backup_.clear();
  ShowNotice();
}

void StatusLine::FocusFirst() {
  for (QToolButton* button : {mode_, notice_button_, close_}) {
    if (button->isVisible() && button->isEnabled()) return button->setFocus(Qt::TabFocusReason);
  }
}

void StatusLine::Act() {
  if (topic_ == Topic::Hidden) parts_.reveal.ShowHiddenEntry();
  if (topic_ == Topic::Offer) parts_.linking.LinkOffered();
}

void StatusLine::CloseNotice() {
  switch (topic_) {
    case Topic::Recovered:
      parts_.recovery.CloseNotice();
      break;
    case Topic::Offer:
      parts_.linking.DropOffers();
      break;
    default:
      if (const QString order =
              ToQString(parts_.orders.State().problem.empty() ? parts_.orders.State().note
                                                              : parts_.orders.State().problem);
          notice_->text() == order) {
        parts_.orders.Forget();
      } else if (topic_ == Topic::BackedUp ||
                 notice_->text() == ToQString(parts_.backups.State().problem)) {
        closed_backup_ = notice_->text();
      } else {
        closed_link_ = notice_->text();
      }
  }
  ShowNotice();
}

}  // namespace tallyfold::desktop
