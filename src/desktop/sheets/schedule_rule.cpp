#include "desktop/sheets/schedule_rule.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <charconv>
#include <optional>

#include "desktop/fields/date_field.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "model/account_schedule.h"

namespace tallyfold::desktop {
namespace {

using Until = LDGRAccountSchedule::Until;

constexpr int kRulePopUpWidth = 200;
constexpr int kEveryWidth = 56;

std::optional<std::int32_t> NumberOf(const QLineEdit& field) {
  const std::string text = ToUtf8(field.text().trimmed());
  const char* const end = text.data() + text.size();
  std::int32_t number = 0;
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (text.empty() || error != std::errc() || rest != end) return std::nullopt;
  return number;
}

void ShowNumber(QLineEdit* field, const std::optional<std::int32_t>& number) {
  if (number && NumberOf(*field) != number) field->setText(QString::number(*number));
}

QComboBox* MakePopUp(const char* name, QWidget* parent) {
  auto* pop_up = new QComboBox(parent);
  pop_up->setObjectName(QLatin1String(name));
  pop_up->setMinimumWidth(kRulePopUpWidth);
  return pop_up;
}

}  // namespace

ScheduleRule::ScheduleRule(Form& form, const std::string& date_format)
    : QObject(&form),
      interval_(MakePopUp("scheduleSheet_Interval_PopUp", &form)),
      every_(new QLineEdit(&form)),
      until_type_(MakePopUp("scheduleSheet_UntilType_PopUp", &form)),
      until_count_(new QLineEdit(&form)),
      until_date_(new DateField(&form)),
      friday_(new QCheckBox(Text("On a weekend, the Friday before"), &form)) {
  form.AddRule();
  every_->setObjectName(QLatin1String("scheduleSheet_Every_Field"));
  every_->setAccessibleName(Text("Every"));
  every_->setFixedWidth(kEveryWidth);
  form.AddRow(Text("Repeats"), {interval_, every_});
  until_count_->setAccessibleName(Text("Number of times"));
  until_count_->setFixedWidth(kNumberFieldWidth);
  until_date_->setAccessibleName(Text("Last date"));
  until_date_->setFixedWidth(kDateFieldWidth);
  until_date_->SetFormat(date_format);
  // Empty until an end by date is chosen.
  until_date_->clear();
  form.AddRow(Text("Ends"), {until_type_, until_count_, until_date_});
  for (QLineEdit* field : {every_, until_count_}) {
    field->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  }
  friday_->setObjectName(QLatin1String("scheduleSheet_PrecedingFriday_Button"));
  form.AddUnlabelled(friday_);
  for (QComboBox* pop_up : {interval_, until_type_}) {
    connect(pop_up, &QComboBox::currentIndexChanged, this, &ScheduleRule::Edited);
  }
  for (QLineEdit* field : std::initializer_list<QLineEdit*>{every_, until_count_, until_date_}) {
    connect(field, &QLineEdit::textChanged, this, &ScheduleRule::Edited);
  }
  connect(friday_, &QCheckBox::toggled, this, &ScheduleRule::Edited);
}

void ScheduleRule::Show(const ScheduleSheetState& state) {
  const ScheduleSheetState::Typed& typed = state.typed;
  ShowItems(*interval_, state.interval_items,
            IndexOfItemTagged(state.interval_items, typed.repeat_interval_type));
  every_->setVisible(state.every_is_enabled);
  ShowNumber(every_, typed.repeat_interval);
  ShowItems(*until_type_, state.until_items,
            IndexOfItemTagged(state.until_items, typed.repeat_until_type));
  ShowUntil(typed);
  friday_->setEnabled(state.preceding_friday_is_enabled);
  friday_->setChecked(typed.use_preceding_friday);
}

void ScheduleRule::ShowUntil(const ScheduleSheetState::Typed& typed) {
  const auto until = static_cast<Until>(typed.repeat_until_type);
  const bool is_date = until == Until::Date;
  // What is wrong with the end belongs to the field that is shown.
  const QString name = QStringLiteral("scheduleSheet_Until_Field");
  until_count_->setObjectName(is_date ? QString() : name);
  until_date_->setObjectName(is_date ? name : QString());
  until_count_->setVisible(until == Until::Count);
  until_date_->setVisible(is_date);
  if (is_date && typed.repeat_until && *typed.repeat_until != 0 &&
      until_date_->Day() != typed.repeat_until) {
    until_date_->SetDay(*typed.repeat_until);
  }
  if (until == Until::Count) ShowNumber(until_count_, typed.repeat_until);
}

void ScheduleRule::ReadInto(ScheduleSheetState::Typed& typed,
                            const ScheduleSheetState& state) const {
  typed.repeat_interval_type = interval_->currentData().toInt();
  if (state.every_is_enabled) typed.repeat_interval = NumberOf(*every_);
  const auto former_until = static_cast<Until>(typed.repeat_until_type);
  typed.repeat_until_type = until_type_->currentData().toInt();
  const auto until = static_cast<Until>(typed.repeat_until_type);
  // A day is no number of times, nor the other way round.
  const bool is_other = until != former_until;
  if (until == Until::Count) {
    const bool is_first = is_other && until_count_->text().isEmpty();
    typed.repeat_until = is_first ? std::optional<std::int32_t>(1) : NumberOf(*until_count_);
  } else if (until == Until::Date) {
    const bool is_first = is_other && until_date_->text().isEmpty();
    typed.repeat_until = is_first ? typed.start : until_date_->Day();
  }
  typed.use_preceding_friday = friday_->isChecked();
}

}  // namespace tallyfold::desktop
