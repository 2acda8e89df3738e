#include "desktop/sheets/account_types_page.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "app/accounts/account_type_rows.h"
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/take_from_button.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

using TypeRow = AccountEditSheetState::TypeRow;
using TypeFate = AccountEditSheetState::TypeFate;

enum TypeColumn { kTypeName, kTypeKind, kTypeEntries, kTypeUse };
constexpr int kBeginningPopUpWidth = 200;
constexpr int kLeastTypeWidth = 216;
constexpr int kLeastKindWidth = 120;
enum TypeKind { kDebitKind, kCheckKind, kDepositKind };

TypeKind KindOfType(const TypeRow& row) {
  if (row.is_deposit) return kDepositKind;
  return row.is_check ? kCheckKind : kDebitKind;
}

// In the order of TypeKind.
QStringList KindTitles() {
  return {Text("Debit"), Text("Check"), Text("Deposit")};
}

QString WordFor(TypeFate fate) {
  if (fate == TypeFate::InUse) return {};
  return fate == TypeFate::Goes ? Text("goes with OK") : Text("out of use");
}

// Rows of the types that new entries of a kind may begin with; one that is out of use only where
// they do.
std::vector<PopUpItem> Beginnings(const std::vector<TypeRow>& types, bool are_deposits,
                                  std::int32_t chosen) {
  std::vector<PopUpItem> items = {{ToUtf8(Text("None")), -1}};
  for (std::size_t i = 0; i < types.size(); ++i) {
    const auto row = static_cast<std::int32_t>(i);
    if (types[i].is_deposit != are_deposits || (!types[i].is_active && row != chosen)) continue;
    items.push_back({types[i].name, row});
  }
  return items;
}

}  // namespace

AccountTypesPage::AccountTypesPage(AccountEditing& editing, const Desk& desk, QWidget* parent)
    : QWidget(parent),
      editing_(editing),
      table_(new LookTable(this)),
      take_out_(new QPushButton(Text("Take out of Use"), this)),
      bring_back_(new QPushButton(Text("Bring Back"), this)),
      take_from_(new TakeFromButton(desk, editing, this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  MakeTable();
  auto* add = new QPushButton(Text("Add"), this);
  add->setObjectName(QStringLiteral("accountEditSheet_Types_Add_Button"));
  take_out_->setObjectName(QStringLiteral("accountEditSheet_Types_Remove_Button"));
  bring_back_->setObjectName(QStringLiteral("accountEditSheet_Types_BringBack_Button"));
  take_from_->setObjectName(QStringLiteral("accountEditSheet_Types_TakeFrom_Button"));
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGap);
  for (QPushButton* each : {add, take_out_, bring_back_}) {
    each->setAutoDefault(false);
    buttons->addWidget(each);
  }
  buttons->addStretch(1);
  buttons->addWidget(take_from_);
  connect(add, &QPushButton::clicked, this, [this] { Add(); });
  connect(take_out_, &QPushButton::clicked, this, [this] {
    Change([row = ChosenRow()](Typed& typed) {
      if (row >= 0) TakeTypeOutOfUse(typed, static_cast<std::size_t>(row));
    });
  });
  connect(bring_back_, &QPushButton::clicked, this, [this] {
    Change([row = ChosenRow()](Typed& typed) {
      if (row >= 0) BringTypeBack(typed, static_cast<std::size_t>(row));
    });
  });
  take_from_->SetTake([this](const LDGRAccount& other) { editing_.ImportTypesFrom(other); });

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addWidget(table_, 1);
  column->addLayout(buttons);
  column->addSpacing(kGap);
  MakeDefaults();
}

void AccountTypesPage::MakeTable() {
  table_->setObjectName(QStringLiteral("accountEditSheet_Types_Table"));
  table_->setAccessibleName(Text("Types"));
  int word = 0;
  for (const TypeFate fate : {TypeFate::OutOfUse, TypeFate::Goes}) {
    word = std::max(word, fontMetrics().horizontalAdvance(WordFor(fate)));
  }
  using Align = CellLook::Align;
  table_->SetColumns(
      {{.title = Text("Type"), .width = kLeastTypeWidth, .takes_rest = true, .is_edited = true},
       {.title = Text("Kind"),
        .width = kLeastKindWidth,
        .is_edited = true,
        .choices = KindTitles()},
       {.title = Text("Entries"), .align = Align::Trailing},
       {.title = {}, .width = word + 2 * kCellPadding + kOuterCellPadding}});
  connect(table_, &LookTable::CellEdited, this, [this](int row, int column, const QString& text) {
    const auto at = static_cast<std::size_t>(row);
    Change([&](Typed& typed) {
      if (at >= typed.types.size()) return;
      if (column == kTypeName) {
        typed.types[at].name = ToUtf8(text);
      } else {
        const auto kind = KindTitles().indexOf(text);
        SetKindOfType(typed, at, kind == kCheckKind, kind == kDepositKind);
      }
    });
  });
  connect(table_, &LookTable::RowChosen, this, [this] { ShowButtons(); });
  connect(table_, &LookTable::RemoveWanted, take_out_, &QPushButton::click);
}

void AccountTypesPage::MakeDefaults() {
  auto* form = new Form(this);
  debit_ = new QComboBox(form);
  deposit_ = new QComboBox(form);
  form->Add(Text("New debits begin with"), debit_, "accountEditSheet_DefaultDebitType_PopUp",
            kBeginningPopUpWidth);
  form->Add(Text("New deposits begin with"), deposit_, "accountEditSheet_DefaultDepositType_PopUp",
            kBeginningPopUpWidth);
  connect(debit_, &QComboBox::currentIndexChanged, this, [this] {
    Change([this](Typed& typed) { typed.default_debit_type = debit_->currentData().toInt(); });
  });
  connect(deposit_, &QComboBox::currentIndexChanged, this, [this] {
    Change([this](Typed& typed) { typed.default_deposit_type = deposit_->currentData().toInt(); });
  });
  layout()->addWidget(form);
}

void AccountTypesPage::Change(const std::function<void(Typed&)>& change) {
  if (!editing_.State().is_open) return;
  Typed typed = editing_.State().typed;
  change(typed);
  editing_.Read(std::move(typed));
}

void AccountTypesPage::EndEditing() {
  table_->EndCellEditing();
}

int AccountTypesPage::ChosenRow() const {
  const int row = table_->currentIndex().row();
  return row < static_cast<int>(editing_.State().typed.types.size()) ? row : -1;
}

void AccountTypesPage::GoTo(int row) {
  if (row >= 0) table_->EditCell(row, kTypeName);
}

void AccountTypesPage::Add() {
  EndEditing();
  std::size_t row = 0;
  Change([&row, below = ChosenRow()](Typed& typed) {
    row = InsertType(typed, below, ToUtf8(Text("New Type")));
  });
  Show();
  GoTo(static_cast<int>(row));
}

void AccountTypesPage::Show() {
  const AccountEditSheetState& state = editing_.State();
  const auto& types = state.typed.types;
  const QStringList kinds = KindTitles();
  std::vector<LookTable::Row> rows;
  std::set<int> group_ends;
  for (std::size_t i = 0; i < types.size(); ++i) {
    const TypeRow& type = types[i];
    if (i > 0 && types[i - 1].is_deposit != type.is_deposit) {
      group_ends.insert(static_cast<int>(i) - 1);
    }
    const bool is_dim = !type.is_active;
    const std::size_t entries = state.EntriesWith(type);
    rows.push_back({{.text = ToQString(type.name), .is_dim = is_dim},
                    {.text = kinds[KindOfType(type)], .is_dim = is_dim},
                    {.text = entries > 0 ? QString::number(entries) : QString(),
                     .align = CellLook::Align::Trailing,
                     .is_figure = true,
                     .is_dim = true},
                    {.text = WordFor(state.FateOf(type)), .is_dim = true}});
  }
  table_->SetGroupEnds(std::move(group_ends));
  table_->SetRows(std::move(rows));
  const auto show_beginnings = [&types](QComboBox& pop_up, bool are_deposits, std::int32_t chosen) {
    const auto items = Beginnings(types, are_deposits, chosen);
    ShowItems(pop_up, items, IndexOfItemTagged(items, chosen));
  };
  show_beginnings(*debit_, false, state.typed.default_debit_type);
  show_beginnings(*deposit_, true, state.typed.default_deposit_type);
  ShowButtons();
}

void AccountTypesPage::ShowButtons() {
  const auto& types = editing_.State().typed.types;
  const int row = ChosenRow();
  take_out_->setEnabled(row >= 0 && types[static_cast<std::size_t>(row)].is_active);
  bring_back_->setEnabled(row >= 0 && !types[static_cast<std::size_t>(row)].is_active);
}

}  // namespace tallyfold::desktop
