#include "desktop/tabs/register_page.h"

#include <QHeaderView>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>
#include <vector>

#include "app/accounts/account_selection.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/views/registers.h"
#include "app/views/shown_entries.h"
#include "desktop/register/register_view.h"
#include "desktop/tabs/details_line.h"
#include "desktop/tabs/empty_page.h"
#include "desktop/texts.h"
#include "registers/account_table_view_data.h"
#include "registers/register_rows.h"

namespace tallyfold::desktop {

RegisterPage::RegisterPage(RegisterKind kind, const Parts& parts, QWidget* parent)
    : QWidget(parent),
      kind_(kind),
      parts_(parts),
      glyphs_(parts.registers.Of(kind)),
      table_(new RegisterView(*parts.registers.Of(kind).GetTableView(), this)),
      details_(new DetailsLine(parts.desk, this)),
      first_(new EmptyPage(*table_, "entries")),
      hidden_(new EmptyPage(*table_, "filter")),
      none_(new EmptyPage(*table_, "accounts")),
      locked_(new EmptyPage(*table_, "lock")),
      show_all_(hidden_->AddButton("showAll_Button", Text("Show All"))),
      unlock_(locked_->AddButton("unlock_Button", Text("Unlock..."))) {
  const bool is_entry = kind == RegisterKind::Entry;
  table_->setObjectName(QLatin1String(is_entry ? "entry_Table" : "reconcile_Table"));
  table_->setAccessibleName(Text(is_entry ? "Entries" : "Entries to Reconcile"));
  first_->setObjectName(QLatin1String("empty_Page"));
  none_->setObjectName(QLatin1String("noAccount_Page"));
  locked_->setObjectName(QLatin1String("locked_Page"));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(table_, 1);
  column->addWidget(details_);

  table_->SetDetails(&glyphs_);
  table_->SetFirstColumns(DefaultRegisterColumns());
  table_->SetMarksAreBoxes(!is_entry);
  ConnectTable();
  FillEmptyPages();
}

void RegisterPage::FillEmptyPages() {
  first_->Tell(Text("This register is empty."),
               Text("Enter what you spend and receive, bring in a file from your bank, or look "
                    "around in an example."));
  connect(first_->AddButton("empty_Debit_Button", Text("Enter a Debit"), "debit"),
          &QPushButton::clicked, this, &RegisterPage::EntryWanted);
  connect(first_->AddButton("empty_Import_Button", Text("Import a File..."), "import"),
          &QPushButton::clicked, this, &RegisterPage::ImportWanted);
  connect(first_->AddButton("empty_Example_Button", Text("Open the Example"), "accounts"),
          &QPushButton::clicked, this, &RegisterPage::ExampleWanted);
  first_->SetNote(
      Text("The example is a copy in a folder of its own. Nothing of yours is touched."));
  none_->Tell(Text("There is no account yet."),
              Text("An account holds the entries of one bank account, card or purse."));
  connect(none_->AddButton("empty_Account_Button", Text("New Account..."), "add"),
          &QPushButton::clicked, this, &RegisterPage::AccountWanted);
  connect(unlock_, &QPushButton::clicked, this, &RegisterPage::UnlockWanted);
  connect(show_all_, &QPushButton::clicked, this, [this] {
    FocusTable();
    parts_.shown.ShowAll();
    FocusTable();
  });
}

void RegisterPage::ConnectTable() {
  const auto rows = [this]() -> LDGRAccountTableViewData& { return parts_.registers.Of(kind_); };
  connect(table_, &RegisterView::RowSelected, this, [rows](int row) { rows().SelectRow(row); });
  connect(table_, &RegisterView::RowActivated, this, &RegisterPage::EditWanted);
  connect(table_, &RegisterView::MarkWanted, this, &RegisterPage::TurnMark);
  connect(table_, &RegisterView::MarkKeyPressed, this, [this](int row) {
    if (kind_ == RegisterKind::Reconcile) {
      emit MarkAndMoveOnWanted();
    } else {
      TurnMark(row);
    }
  });
  connect(table_, &RegisterView::RemoveWanted, this, &RegisterPage::RemoveWanted);
  connect(table_, &RegisterView::RowMenuWanted, this, &RegisterPage::RowMenuWanted);
  connect(table_, &RegisterView::SelectionChanged, this, &RegisterPage::SelectionChanged);
  connect(table_, &RegisterView::Escaped, this, &RegisterPage::Left);
  connect(table_, &RegisterView::HeaderClicked, this,
          [rows](const QString& column) { rows().ClickedTableColumn(ToUtf8(column)); });
  connect(table_, &RegisterView::ColumnHideWanted, this,
          [rows](const QString& column) { rows().HideTableColumnWithIdentifier(ToUtf8(column)); });
  connect(table_, &RegisterView::ColumnShowWanted, this,
          [rows](const QString& column) { rows().ShowTableColumnWithIdentifier(ToUtf8(column)); });
}

void RegisterPage::TurnMark(int row) {
  if (const auto entry = parts_.registers.Of(kind_).RowToEntry(row)) {
    parts_.editing.TurnClearedOver(entry);
  }
}

void RegisterPage::ShowLook() {
  table_->SetLook(TableLookOf(parts_.desk.preferences(), font()));
}

void RegisterPage::AddAbove(QWidget* widget) {
  auto* column = qobject_cast<QVBoxLayout*>(layout());
  column->insertWidget(column->indexOf(table_), widget);
}

void RegisterPage::FocusTable() {
  table_->setFocus(Qt::OtherFocusReason);
}

void RegisterPage::Show() {
  const auto account = parts_.desk.SelectedAccount();
  const std::size_t shown = parts_.registers.Of(kind_).numberOfRowsInTableView();
  const std::size_t all = account != nullptr ? account->GetEntries().size() : 0;
  const bool is_open = parts_.desk.IsUnlocked();
  const bool has_accounts = !parts_.desk.accounts().empty();
  // As long as the accounts are not there yet, nothing can be said about them.
  const bool has_loaded = parts_.selection.HasPostLoaded();
  first_->setVisible(account != nullptr && all == 0);
  none_->setVisible(is_open && !has_accounts && has_loaded);
  locked_->setVisible(account == nullptr && (has_accounts || (!is_open && has_loaded)));
  // Over a locked application its password is being asked for.
  unlock_->setVisible(is_open);
  table_->horizontalHeader()->setVisible(is_open);
  hidden_->setVisible(shown == 0 && all > 0);
  if (shown == 0 && all > 0) hidden_->Tell(QString(), ToQString(parts_.shown.State().hidden_text));
  ShowDetails();
}

EntryList RegisterPage::SelectedEntries() const {
  EntryList entries;
  const EntryList& rows = parts_.registers.Of(kind_).GetEntries();
  for (const auto& [first, last] : table_->SelectedRows().Ranges()) {
    for (int row = first; row <= last && row < static_cast<int>(rows.size()); ++row) {
      entries.push_back(rows[static_cast<std::size_t>(row)]);
    }
  }
  return entries;
}

void RegisterPage::SelectEntries(const EntryList& entries) {
  std::vector<int> rows;
  for (const auto& entry : entries) {
    if (const auto row = parts_.registers.Of(kind_).EntryToRow(entry.get())) rows.push_back(*row);
  }
  table_->SelectForUser(std::move(rows));
}

void RegisterPage::SetHasDetails(bool has_details) {
  details_->setVisible(has_details);
}

void RegisterPage::ShowDetails() {
  details_->Show();
}

}  // namespace tallyfold::desktop
