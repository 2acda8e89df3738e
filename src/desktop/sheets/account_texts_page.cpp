#include "desktop/sheets/account_texts_page.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <cstddef>
#include <utility>

#include "desktop/look/measures.h"
#include "desktop/look/text_length.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/marked_line.h"
#include "desktop/sheets/take_from_button.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLeastListWidth = 130;
constexpr int kCountFieldWidth = 56;
constexpr int kListRowsInSight = 8;
enum TextsStyle { kAllTexts, kLatestTexts, kOwnTexts };

std::optional<std::int32_t> CountIn(const QLineEdit& field) {
  bool is_number = false;
  const int number = field.text().trimmed().toInt(&is_number);
  return is_number ? std::optional<std::int32_t>(number) : std::nullopt;
}

}  // namespace

AccountTextsPage::AccountTextsPage(AccountEditing& editing, const Desk& desk, Parts parts,
                                   QWidget* parent)
    : QWidget(parent),
      editing_(editing),
      parts_(std::move(parts)),
      styles_(new QButtonGroup(this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  MakeStyles(this);
  auto* lists = new QHBoxLayout;
  lists->setSpacing(kWideGap);
  for (const List& each : parts_.lists) {
    MakeList(each);
    lists->addWidget(lists_.back(), 1);
  }
  column->addLayout(lists, 1);
  add_ = new QPushButton(Text("Add"), this);
  remove_ = new QPushButton(Text("Remove"), this);
  take_from_ = new TakeFromButton(desk, editing, this);
  const QLatin1String name(parts_.name);
  add_->setObjectName(name + QLatin1String("_Add_Button"));
  remove_->setObjectName(name + QLatin1String("_Remove_Button"));
  take_from_->setObjectName(name + QLatin1String("_TakeFrom_Button"));
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGap);
  for (QPushButton* each : {add_, remove_}) {
    each->setAutoDefault(false);
    buttons->addWidget(each);
  }
  buttons->addStretch(1);
  buttons->addWidget(take_from_);
  column->addLayout(buttons);
  connect(add_, &QPushButton::clicked, this, [this] { Add(); });
  connect(remove_, &QPushButton::clicked, this, [this] { Remove(); });
  take_from_->SetTake([this](const LDGRAccount& other) { (editing_.*parts_.take_from)(other); });
}

void AccountTextsPage::MakeStyles(QWidget* into) {
  auto* column = static_cast<QVBoxLayout*>(into->layout());
  auto* heading = new QLabel(parts_.heading, into);
  heading->setFont(DemiBoldFont(font()));
  heading->setWordWrap(true);
  column->addWidget(heading);
  count_ = new QLineEdit(into);
  count_->setObjectName(QLatin1String(parts_.count_name));
  count_->setAccessibleName(Text("How many of them"));
  count_->setMaxLength(kAnyLength);
  count_->setFixedWidth(kCountFieldWidth);
  count_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  for (int style = kAllTexts; style <= kOwnTexts; ++style) {
    const QString& title = parts_.styles[static_cast<std::size_t>(style)];
    auto* button = new QRadioButton(WithoutMnemonics(title), into);
    button->setObjectName(QLatin1String(parts_.name) +
                          QStringLiteral("_Style_%1_Button").arg(style));
    button->setAccessibleName(title);
    styles_->addButton(button, style);
    if (style != kLatestTexts) {
      column->addWidget(button, 0, Qt::AlignLeading);
      continue;
    }
    auto* row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(button);
    row->addWidget(count_);
    auto* unit = Form::MakeNote(into);
    unit->setFont(font());
    unit->setText(parts_.count_unit);
    row->addWidget(unit);
    row->addStretch(1);
    column->addLayout(row);
    problem_ = new MarkedLine(QLatin1String("warning"), Role::Problem, into);
    problem_->hide();
    column->addWidget(problem_);
  }
  connect(styles_, &QButtonGroup::idClicked, this, [this](int style) {
    Change([this, style](Typed& typed) { typed.*parts_.style = style; });
  });
  connect(count_, &QLineEdit::textEdited, this, [this] {
    ShowProblem({});
    Change([this](Typed& typed) { typed.*parts_.count = CountIn(*count_); });
  });
}

void AccountTextsPage::MakeList(const List& list) {
  auto* table = new LookTable(this);
  table->setObjectName(QLatin1String(list.name));
  table->setAccessibleName(list.title);
  table->SetColumns(
      {{.title = list.title, .width = kLeastListWidth, .takes_rest = true, .is_edited = true}});
  table->setMinimumHeight(kListRowsInSight * RowHeight(fontMetrics()));
  const std::size_t at = lists_.size();
  lists_.push_back(table);
  connect(table, &LookTable::CellEdited, this,
          [this, member = list.texts](int row, int /*column*/, const QString& text) {
            Change([&](Typed& typed) {
              auto& texts = typed.*member;
              const auto place = static_cast<std::size_t>(row);
              if (place < texts.size()) texts[place] = ToUtf8(text);
            });
          });
  table->installEventFilter(this);
  connect(table, &LookTable::RowChosen, this, [this, at] { Choose(at); });
  connect(table, &LookTable::RemoveWanted, this, [this] { Remove(); });
  connect(table, &LookTable::Focused, this, [this, at] { Choose(at); });
  Choose(0);
}

void AccountTextsPage::Choose(std::size_t list) {
  chosen_ = list;
  // Tab goes from it to the buttons that are about it, not through the others.
  for (std::size_t i = 0; i < lists_.size(); ++i) {
    lists_[i]->setFocusPolicy(i == chosen_ ? Qt::WheelFocus : Qt::ClickFocus);
  }
  if (add_ != nullptr) ShowButtons();
}

bool AccountTextsPage::eventFilter(QObject* object, QEvent* event) {
  if (event->type() != QEvent::KeyPress || object != lists_[chosen_]) {
    return QWidget::eventFilter(object, event);
  }
  const auto key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_Insert) {
    Add();
  } else if (key == Qt::Key_Left || key == Qt::Key_Right) {
    const bool is_back = (key == Qt::Key_Left) == (layoutDirection() == Qt::LeftToRight);
    const std::size_t to = is_back ? chosen_ - 1 : chosen_ + 1;
    if (to < lists_.size()) lists_[to]->setFocus(Qt::OtherFocusReason);
  } else {
    return QWidget::eventFilter(object, event);
  }
  return true;
}

void AccountTextsPage::Change(const std::function<void(Typed&)>& change) {
  if (!editing_.State().is_open) return;
  Typed typed = editing_.State().typed;
  change(typed);
  editing_.Read(std::move(typed));
}

std::vector<std::string>& AccountTextsPage::ChosenTexts(Typed& typed) const {
  return typed.*parts_.lists[chosen_].texts;
}

void AccountTextsPage::Add() {
  EndEditing();
  int row = 0;
  Change([this, &row](Typed& typed) {
    auto& texts = ChosenTexts(typed);
    row = static_cast<int>(texts.size());
    texts.push_back(ToUtf8(Text("New Text")));
  });
  Show();
  lists_[chosen_]->EditCell(row, 0);
}

void AccountTextsPage::Remove() {
  EndEditing();
  const int row = lists_[chosen_]->currentIndex().row();
  Change([this, row](Typed& typed) {
    auto& texts = ChosenTexts(typed);
    if (row >= 0 && static_cast<std::size_t>(row) < texts.size()) texts.erase(texts.begin() + row);
  });
}

void AccountTextsPage::EndEditing() {
  for (LookTable* each : lists_) each->EndCellEditing();
}

void AccountTextsPage::Show() {
  const Typed& typed = editing_.State().typed;
  const std::int32_t style = typed.*parts_.style;
  if (QAbstractButton* button = styles_->button(style); button != nullptr) {
    button->setChecked(true);
  }
  if (const auto& count = typed.*parts_.count; count && CountIn(*count_) != count) {
    count_->setText(QString::number(*count));
  }
  count_->setEnabled(style == kLatestTexts);
  for (std::size_t i = 0; i < lists_.size(); ++i) {
    std::vector<LookTable::Row> rows;
    for (const std::string& text : typed.*parts_.lists[i].texts) {
      rows.push_back({{.text = ToQString(text), .is_dim = style != kOwnTexts}});
    }
    lists_[i]->SetRows(std::move(rows));
    lists_[i]->setEnabled(style == kOwnTexts);
  }
  ShowButtons();
}

bool AccountTextsPage::ShowProblem(const std::optional<Problem>& problem) {
  const bool is_here = problem && problem->field == parts_.count_name;
  const QString text = is_here ? ToQString(problem->text) : QString();
  SetProblem(count_, is_here);
  count_->setAccessibleDescription(text);
  problem_->SetText(text);
  problem_->setVisible(is_here);
  return is_here;
}

void AccountTextsPage::GoToProblem() {
  if (HasProblem(count_)) count_->setFocus();
}

void AccountTextsPage::ShowButtons() {
  const bool are_own = editing_.State().typed.*parts_.style == kOwnTexts;
  add_->setEnabled(are_own);
  remove_->setEnabled(are_own && lists_[chosen_]->currentIndex().isValid());
  take_from_->SetUsable(are_own);
}

}  // namespace tallyfold::desktop
