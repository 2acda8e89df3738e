#include "desktop/sheets/form.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <QVBoxLayout>

#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/look/text_length.h"
#include "desktop/sheets/marked_line.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kLabelColumn = 0;
constexpr int kFieldColumn = 1;
constexpr int kLeastLabelWidth = 84;

QLabel* PlainLabel(QWidget* parent, Role role) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  SetTextInk(*label, role);
  return label;
}

bool IsShown(const QComboBox& pop_up, const std::vector<PopUpItem>& items) {
  if (pop_up.count() != static_cast<int>(items.size())) return false;
  const auto* model = qobject_cast<const QStandardItemModel*>(pop_up.model());
  for (int i = 0; i < pop_up.count(); ++i) {
    const PopUpItem& item = items[static_cast<std::size_t>(i)];
    if (item.is_separator) continue;
    const bool is_same =
        pop_up.itemText(i) == ToQString(item.title) && pop_up.itemData(i).toInt() == item.tag &&
        (model == nullptr ||
         model->flags(model->index(i, 0)).testFlag(Qt::ItemIsEnabled) == item.is_enabled);
    if (!is_same) return false;
  }
  return true;
}

QIcon PictureOf(const PopUpItem& item) {
  if (item.image.empty()) return {};
  return IconNamed(QLatin1String(item.image == "locked" ? "lock" : item.image.c_str()), Role::Dim);
}

}  // namespace

Form::Form(QWidget* parent) : QWidget(parent), grid_(new QGridLayout(this)) {
  grid_->setContentsMargins(0, 0, 0, 0);
  grid_->setHorizontalSpacing(kWideGap);
  grid_->setVerticalSpacing(kGap);
  grid_->setColumnMinimumWidth(kLabelColumn, kLeastLabelWidth);
  grid_->setColumnStretch(kFieldColumn, 1);
}

void Form::SetLeastWidth(int width) {
  grid_->setColumnMinimumWidth(kFieldColumn, width - kLeastLabelWidth - kWideGap);
}

QHBoxLayout* Form::AddLabelled(const QString& label, QWidget* buddy) {
  const int line = grid_->rowCount();
  if (!label.isEmpty()) {
    auto* text = PlainLabel(this, Role::Dim);
    text->setText(label);
    text->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    text->setFixedHeight(ControlHeight(fontMetrics()));
    text->setBuddy(buddy);
    if (buddy->accessibleName().isEmpty()) buddy->setAccessibleName(label);
    grid_->addWidget(text, line, kLabelColumn, Qt::AlignTop);
  }
  auto* fields = new QHBoxLayout;
  fields->setSpacing(kGap);
  // The problem's line is in the cell, so that rows without one have no gap for it.
  auto* cell = new QVBoxLayout;
  cell->setSpacing(kTightGap);
  cell->addLayout(fields);
  grid_->addLayout(cell, line, kFieldColumn);
  rows_[line].cell = cell;
  rows_[line].fields = fields;
  return fields;
}

void Form::AddFieldTo(QHBoxLayout* row, QWidget* field) {
  row->addWidget(field);
  for (auto each = rows_.cbegin(); each != rows_.cend(); ++each) {
    if (each->fields == row) row_of_.insert(field, each.key());
  }
  Watch(field);
}

void Form::Add(const QString& label, QWidget* field, const char* name, int width) {
  field->setObjectName(QLatin1String(name));
  QHBoxLayout* row = AddLabelled(label, field);
  AddFieldTo(row, field);
  // Notes take the height that is left.
  if (qobject_cast<QPlainTextEdit*>(field)) grid_->setRowStretch(grid_->rowCount() - 1, 1);
  if (width == 0) return;
  field->setMinimumWidth(width);
  field->setSizePolicy(QSizePolicy::Maximum, field->sizePolicy().verticalPolicy());
  if (qobject_cast<QLineEdit*>(field) != nullptr) field->setFixedWidth(width);
  row->addStretch(1);
}

QHBoxLayout* Form::AddRow(const QString& label, std::initializer_list<QWidget*> fields) {
  QHBoxLayout* row = AddLabelled(label, *fields.begin());
  for (QWidget* field : fields) AddFieldTo(row, field);
  row->addStretch(1);
  return row;
}

void Form::AddUnlabelled(QWidget* field) {
  QHBoxLayout* row = AddLabelled({}, field);
  AddFieldTo(row, field);
  row->addStretch(1);
}

QLabel* Form::AddNote(const QString& note) {
  auto* text = MakeNote(this);
  text->setWordWrap(true);
  text->setText(note);
  grid_->addWidget(text, grid_->rowCount(), kFieldColumn);
  return text;
}

void Form::AddHint(QLatin1String icon, const QString& text) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  auto* picture = new QLabel(this);
  picture->setPixmap(
      PixmapNamed(icon, kIconSize, devicePixelRatioF(), ColorsOf(palette())[Role::Dim]));
  row->addWidget(picture, 0, Qt::AlignTop);
  auto* hint = PlainLabel(this, Role::Dim);
  hint->setWordWrap(true);
  hint->setText(text);
  row->addWidget(hint, 1);
  grid_->addLayout(row, grid_->rowCount(), kLabelColumn, 1, 2);
}

void Form::AddFact(const QString& caption, QLabel* fact) {
  auto* label = PlainLabel(this, Role::Dim);
  label->setText(caption);
  label->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  const int line = grid_->rowCount();
  grid_->addWidget(label, line, kLabelColumn);
  grid_->addWidget(fact, line, kFieldColumn);
}

void Form::AddRule() {
  grid_->addWidget(new RuleLine(this), grid_->rowCount(), kLabelColumn, 1, 2);
}

QLabel* Form::MakeNote(QWidget* parent) {
  auto* note = PlainLabel(parent, Role::Dim);
  note->setFont(SmallFont(parent->font()));
  return note;
}

void Form::SetNote(QWidget* field, const QString& note) {
  Row& row = RowOf(field);
  if (row.note == nullptr) {
    if (note.isEmpty()) return;
    row.note = MakeNote(this);
    row.note->setWordWrap(true);
    const int stretch = row.fields->count() - 1;
    const bool ends_in_stretch = row.fields->itemAt(stretch)->spacerItem() != nullptr;
    if (ends_in_stretch) delete row.fields->takeAt(stretch);
    row.fields->addWidget(row.note, 1);
  }
  if (row.note->text() != note) row.note->setText(note);
}

// --- Problems
// -------------------------------------------------------------------------------------

void Form::Watch(QWidget* field) {
  const auto edited = [this, field] {
    if (field == refused_) ClearProblem();
  };
  if (auto* line = qobject_cast<QLineEdit*>(field)) {
    line->setMaxLength(kAnyLength);
    connect(line, &QLineEdit::textEdited, this, edited);
  } else if (auto* pop_up = qobject_cast<QComboBox*>(field)) {
    connect(pop_up, &QComboBox::currentTextChanged, this, edited);
  } else if (auto* notes = qobject_cast<QPlainTextEdit*>(field)) {
    connect(notes, &QPlainTextEdit::textChanged, this, edited);
  } else if (auto* button = qobject_cast<QAbstractButton*>(field)) {
    connect(button, &QAbstractButton::clicked, this, edited);
  }
}

bool Form::ShowProblem(const std::optional<Problem>& problem) {
  QWidget* field = nullptr;
  if (problem) {
    const QString name = ToQString(problem->field);
    for (auto each = row_of_.cbegin(); each != row_of_.cend(); ++each) {
      if (each.key()->objectName() == name) field = each.key();
    }
  }
  if (field != refused_) ClearProblem();
  if (field == nullptr) return false;
  Row& row = RowOf(field);
  if (row.problem == nullptr) {
    row.problem = new MarkedLine(QLatin1String("warning"), Role::Problem, this);
    row.cell->addWidget(row.problem);
  }
  row.problem->SetText(ToQString(problem->text));
  field->setAccessibleDescription(ToQString(problem->text));
  row.problem->setVisible(!problem->text.empty());
  SetProblem(field, true);
  refused_ = field;
  return true;
}

void Form::ClearProblem() {
  if (refused_ == nullptr) return;
  SetProblem(refused_, false);
  refused_->setAccessibleDescription({});
  RowOf(refused_).problem->hide();
  refused_ = nullptr;
}

// --- Pop-ups
// --------------------------------------------------------------------------------------

void ShowItems(QComboBox& pop_up, const std::vector<PopUpItem>& items, std::int32_t selected) {
  const QSignalBlocker blocker(pop_up);
  if (!IsShown(pop_up, items)) {
    pop_up.clear();
    for (const PopUpItem& item : items) {
      if (item.is_separator) {
        pop_up.insertSeparator(pop_up.count());
        continue;
      }
      pop_up.addItem(PictureOf(item), ToQString(item.title), item.tag);
      auto* model = qobject_cast<QStandardItemModel*>(pop_up.model());
      if (model != nullptr)
        model->itemFromIndex(model->index(pop_up.count() - 1, 0))->setEnabled(item.is_enabled);
    }
  }
  if (pop_up.currentIndex() != selected) pop_up.setCurrentIndex(selected);
}

void ShowItem(QComboBox& pop_up, std::int32_t selected) {
  const QSignalBlocker blocker(pop_up);
  if (pop_up.currentIndex() != selected) pop_up.setCurrentIndex(selected);
}

}  // namespace tallyfold::desktop
