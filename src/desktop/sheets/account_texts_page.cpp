#include "desktop/sheets/account_texts_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kStyleWidth = 200;
constexpr int kLeastListWidth = 140;

std::optional<std::int32_t> CountIn(const QLineEdit& field) {
  bool is_number = false;
  const int number = field.text().trimmed().toInt(&is_number);
  return is_number ? std::optional<std::int32_t>(number) : std::nullopt;
}

}  // namespace

AccountTextsPage::AccountTextsPage(AccountEditing& editing, Parts parts, QWidget* parent)
    : QWidget(parent), editing_(editing), parts_(std::move(parts)) {
  auto* form = new Form(this);
  style_ = new QComboBox(form);
  for (const char* title : {"All of the account", "The latest ones", "Only those below"}) {
    style_->addItem(Text(title));
  }
  count_ = new QLineEdit(form);
  form->Add(Text("Offer"), style_, parts_.style_name, kStyleWidth);
  form->Add(Text("How many of them"), count_, parts_.count_name, kNumberFieldWidth);
  connect(style_, &QComboBox::currentIndexChanged, this, [this](int style) {
    Change([this, style](Typed& typed) { typed.*parts_.style = style; });
  });
  connect(count_, &QLineEdit::textEdited, this,
          [this] { Change([this](Typed& typed) { typed.*parts_.count = CountIn(*count_); }); });
  auto* row = new QHBoxLayout;
  row->setSpacing(kWideGap);
  for (const List& each : parts_.lists) row->addWidget(MakeList(each));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kWideGap);
  column->addWidget(form);
  column->addLayout(row, 1);
}

QWidget* AccountTextsPage::MakeList(const List& list) {
  auto* whole = new QWidget(this);
  auto* column = new QVBoxLayout(whole);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kTightGap);
  QLabel* title = Form::MakeNote(whole);
  title->setText(list.title);
  column->addWidget(title);
  auto* texts = new QListWidget(whole);
  texts->setObjectName(QLatin1String(list.name));
  texts->setAccessibleName(list.title);
  texts->setMinimumWidth(kLeastListWidth);
  texts->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
  lists_.push_back(texts);
  column->addWidget(texts, 1);
  auto* add = new QPushButton(Text("Add"), whole);
  add->setObjectName(QLatin1String(list.name) + QLatin1String("_Add_Button"));
  auto* remove = new QPushButton(Text("Remove"), whole);
  remove->setObjectName(QLatin1String(list.name) + QLatin1String("_Remove_Button"));
  for (QPushButton* each : {add, remove}) {
    each->setAutoDefault(false);
    column->addWidget(each);
  }
  const auto member = list.texts;
  connect(texts, &QListWidget::itemChanged, this, [this, texts, member](QListWidgetItem* item) {
    const auto at = static_cast<std::size_t>(texts->row(item));
    const std::string text = ToUtf8(item->text());
    Change([at, &text, member](Typed& typed) { (typed.*member)[at] = text; });
  });
  connect(add, &QPushButton::clicked, this, [this, texts, member] {
    EndEditing();
    Change([member](Typed& typed) { (typed.*member).push_back(ToUtf8(Text("New Text"))); });
    Show();
    texts->setCurrentRow(texts->count() - 1);
    texts->setFocus();
    texts->editItem(texts->currentItem());
  });
  connect(remove, &QPushButton::clicked, this, [this, texts, member] {
    EndEditing();
    const int at = texts->currentRow();
    if (at < 0) return;
    Change([at, member](Typed& typed) { (typed.*member).erase((typed.*member).begin() + at); });
    Show();
  });
  return whole;
}

void AccountTextsPage::Change(const std::function<void(Typed&)>& change) {
  if (!editing_.State().is_open) return;
  Typed typed = editing_.State().typed;
  change(typed);
  editing_.Read(std::move(typed));
}

void AccountTextsPage::EndEditing() {
  // An open editor gives its text to the list when it loses the focus.
  QWidget* focused = focusWidget();
  for (QListWidget* each : lists_) {
    if (focused != nullptr && each->isAncestorOf(focused)) each->setFocus();
  }
}

void AccountTextsPage::Show() {
  const Typed& typed = editing_.State().typed;
  ShowItem(*style_, typed.*parts_.style);
  if (const auto& count = typed.*parts_.count; count && CountIn(*count_) != count) {
    count_->setText(QString::number(*count));
  }
  for (std::size_t i = 0; i < lists_.size(); ++i) {
    QListWidget& list = *lists_[i];
    const auto& texts = typed.*parts_.lists[i].texts;
    const QSignalBlocker blocker(list);
    while (list.count() > static_cast<int>(texts.size())) delete list.takeItem(list.count() - 1);
    for (int row = 0; row < static_cast<int>(texts.size()); ++row) {
      if (row == list.count()) {
        auto* item = new QListWidgetItem(&list);
        item->setFlags(item->flags() | Qt::ItemIsEditable);
      }
      const QString text = ToQString(texts[static_cast<std::size_t>(row)]);
      if (list.item(row)->text() != text) list.item(row)->setText(text);
    }
  }
}

}  // namespace tallyfold::desktop
