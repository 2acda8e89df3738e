#include "desktop/sheets/account_types_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

using TypeRow = AccountEditSheetState::TypeRow;

constexpr int kNameColumn = 0;
constexpr int kKindColumn = 1;
constexpr int kDefaultTypeWidth = 200;
constexpr int kLeastTableHeight = 240;
enum TypeKind { kDebit = 0, kCheck = 1, kDeposit = 2 };

TypeKind KindOf(const TypeRow& row) {
  if (row.is_deposit) return kDeposit;
  return row.is_check ? kCheck : kDebit;
}

QString KindTitle(int kind) {
  if (kind == kDeposit) return Text("Deposit");
  return kind == kCheck ? Text("Check") : Text("Debit");
}

// Rows of the types that new entries of a kind may begin with.
std::vector<PopUpItem> Beginnings(const std::vector<TypeRow>& types, bool are_deposits) {
  std::vector<PopUpItem> items = {{ToUtf8(Text("None")), -1}};
  for (std::size_t row = 0; row < types.size(); ++row) {
    if (types[row].is_deposit != are_deposits) continue;
    items.push_back({types[row].name, static_cast<std::int32_t>(row)});
  }
  return items;
}

}  // namespace

AccountTypesPage::AccountTypesPage(AccountEditing& editing, QWidget* parent)
    : QWidget(parent),
      editing_(editing),
      table_(new QTableWidget(0, 2, this)),
      kind_(new QComboBox(this)),
      take_out_(new QPushButton(Text("Take out of Use"), this)) {
  table_->setObjectName(QStringLiteral("accountEditSheet_Types_Table"));
  table_->setAccessibleName(Text("Types"));
  table_->setHorizontalHeaderLabels({Text("Type"), Text("Kind")});
  table_->horizontalHeader()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
  table_->verticalHeader()->hide();
  table_->setSelectionBehavior(QAbstractItemView::SelectRows);
  table_->setSelectionMode(QAbstractItemView::SingleSelection);
  table_->setMinimumHeight(kLeastTableHeight);
  table_->setTabKeyNavigation(false);
  connect(table_, &QTableWidget::cellChanged, this, [this](int row, int column) {
    if (column != kNameColumn) return;
    const std::string name = ToUtf8(table_->item(row, column)->text());
    Change([row, &name](Typed& typed) { typed.types[static_cast<std::size_t>(row)].name = name; });
  });
  connect(table_, &QTableWidget::itemSelectionChanged, this, [this] { ShowButtons(); });

  auto* add = new QPushButton(Text("Add"), this);
  add->setObjectName(QStringLiteral("accountEditSheet_Types_Add_Button"));
  add->setAutoDefault(false);
  take_out_->setObjectName(QStringLiteral("accountEditSheet_Types_Remove_Button"));
  take_out_->setAutoDefault(false);
  kind_->setObjectName(QStringLiteral("accountEditSheet_Types_Kind_PopUp"));
  kind_->setAccessibleName(Text("Kind"));
  for (const int kind : {kDebit, kCheck, kDeposit}) kind_->addItem(KindTitle(kind));
  connect(add, &QPushButton::clicked, this, [this] { Add(); });
  connect(take_out_, &QPushButton::clicked, this, [this] { TakeOut(); });
  connect(kind_, &QComboBox::currentIndexChanged, this, [this](int kind) { SetKind(kind); });
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGap);
  buttons->addWidget(add);
  buttons->addWidget(take_out_);
  buttons->addStretch(1);
  buttons->addWidget(kind_);

  auto* form = new Form(this);
  debit_ = new QComboBox(form);
  deposit_ = new QComboBox(form);
  form->Add(Text("New debits begin with"), debit_, "accountEditSheet_DefaultDebitType_PopUp",
            kDefaultTypeWidth);
  form->Add(Text("New deposits begin with"), deposit_, "accountEditSheet_DefaultDepositType_PopUp",
            kDefaultTypeWidth);
  connect(debit_, &QComboBox::currentIndexChanged, this, [this] {
    Change([this](Typed& typed) { typed.default_debit_type = debit_->currentData().toInt(); });
  });
  connect(deposit_, &QComboBox::currentIndexChanged, this, [this] {
    Change([this](Typed& typed) { typed.default_deposit_type = deposit_->currentData().toInt(); });
  });
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addWidget(table_, 1);
  column->addLayout(buttons);
  column->addWidget(form);
}

void AccountTypesPage::Change(const std::function<void(Typed&)>& change) {
  if (!editing_.State().is_open) return;
  Typed typed = editing_.State().typed;
  change(typed);
  editing_.Read(std::move(typed));
}

void AccountTypesPage::EndEditing() {
  // An open editor gives its text to the table when it loses the focus.
  if (QWidget* focused = focusWidget(); focused != nullptr && table_->isAncestorOf(focused)) {
    table_->setFocus();
  }
}

void AccountTypesPage::Add() {
  EndEditing();
  Change([](Typed& typed) {
    TypeRow row;
    row.name = ToUtf8(Text("New Type"));
    typed.types.push_back(std::move(row));
  });
  Show();
  table_->setCurrentCell(table_->rowCount() - 1, kNameColumn);
  table_->setFocus();
  table_->editItem(table_->currentItem());
}

void AccountTypesPage::TakeOut() {
  EndEditing();
  const int row = table_->currentRow();
  if (row < 0) return;
  Change([row](Typed& typed) {
    typed.types.erase(typed.types.begin() + row);
    for (std::int32_t* each : {&typed.default_debit_type, &typed.default_deposit_type}) {
      if (*each == row) {
        *each = -1;
      } else if (*each > row) {
        --*each;
      }
    }
  });
  Show();
}

void AccountTypesPage::SetKind(int kind) {
  EndEditing();
  const int row = table_->currentRow();
  if (row < 0) return;
  Change([row, kind](Typed& typed) {
    TypeRow& type = typed.types[static_cast<std::size_t>(row)];
    type.is_check = kind == kCheck;
    type.is_deposit = kind == kDeposit;
    std::int32_t& other = type.is_deposit ? typed.default_debit_type : typed.default_deposit_type;
    if (other == row) other = -1;
  });
  Show();
}

void AccountTypesPage::Show() {
  const Typed& typed = editing_.State().typed;
  {
    const QSignalBlocker blocker(table_);
    table_->setRowCount(static_cast<int>(typed.types.size()));
    const auto show = [this](int row, int column, const QString& text) {
      if (table_->item(row, column) == nullptr) {
        auto* item = new QTableWidgetItem;
        if (column == kKindColumn) item->setFlags(item->flags() & ~Qt::ItemIsEditable);
        table_->setItem(row, column, item);
      }
      if (table_->item(row, column)->text() != text) table_->item(row, column)->setText(text);
    };
    for (int row = 0; row < table_->rowCount(); ++row) {
      const TypeRow& type = typed.types[static_cast<std::size_t>(row)];
      show(row, kNameColumn, ToQString(type.name));
      show(row, kKindColumn, KindTitle(KindOf(type)));
    }
  }
  const auto debits = Beginnings(typed.types, false);
  const auto deposits = Beginnings(typed.types, true);
  ShowItems(*debit_, debits, IndexOfItemTagged(debits, typed.default_debit_type));
  ShowItems(*deposit_, deposits, IndexOfItemTagged(deposits, typed.default_deposit_type));
  ShowButtons();
}

void AccountTypesPage::ShowButtons() {
  const auto& types = editing_.State().typed.types;
  const int row = table_->currentRow();
  // The table has a current row before the user has chosen one.
  const bool is_row = row >= 0 && static_cast<std::size_t>(row) < types.size() &&
                      table_->selectionModel()->isRowSelected(row);
  take_out_->setEnabled(is_row);
  kind_->setEnabled(is_row);
  ShowItem(*kind_, is_row ? KindOf(types[static_cast<std::size_t>(row)]) : -1);
}

}  // namespace tallyfold::desktop
