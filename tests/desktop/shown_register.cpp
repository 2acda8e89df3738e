#include "desktop/shown_register.h"

#include <QFile>
#include <QVBoxLayout>

#include "model/calendar.h"
#include "plist/reader.h"
#include "registers/register_rows.h"

namespace tallyfold::desktop {
namespace {

std::shared_ptr<LDGRAccount> ExampleAccount() {
  QFile file(QStringLiteral(TALLYFOLD_EXAMPLES "/Accounts.plist"));
  if (!file.open(QIODevice::ReadOnly)) return std::make_shared<LDGRAccount>();
  const QByteArray bytes = file.readAll();
  const auto read = plist::Read({bytes.data(), static_cast<std::size_t>(bytes.size())});
  return LDGRAccount::accountByConsuming(
      read.value.DictionaryValue().Get("accounts").ArrayValue().At(0).DictionaryValue());
}

std::shared_ptr<LDGRAccount> MadeUpAccount(std::size_t entries) {
  auto account = std::make_shared<LDGRAccount>();
  EntryList list;
  list.reserve(entries);
  for (std::size_t i = 0; i < entries; ++i) {
    const auto number = static_cast<std::int32_t>(i);
    auto entry = std::make_shared<LDGRAccountEntry>();
    entry->SetNumber(number + 1);
    entry->SetDate(DateNumberOfDayCount(10'000 + number / 10));
    entry->SetAmount(number % 5 == 4 ? 400.0 : -(number % 97) - 0.25);
    entry->SetCleared(number % 3 != 0);
    entry->SetDescription("Week " + std::to_string(number % 5'000));
    entry->SetToFrom(number % 2 == 0 ? "Corner Market" : "City Power & Light");
    list.push_back(std::move(entry));
  }
  account->SetEntries(std::move(list));
  return account;
}

}  // namespace

ShownRegister::ShownRegister(const ShownRegisterTerms& terms)
    : account_(terms.entries == 0 ? ExampleAccount() : MadeUpAccount(terms.entries)),
      current_(std::make_unique<ScopedCurrentAccount>(account_.get())),
      table_(DefaultRegisterColumns()) {
  ambient_.clock.SetLocal({2026, 2, 22, 12, 0, 0});
  preferences_.SetEntryFontSize(10);
  rows_.SetTableView(&table_);
  rows_.SetTableIdentifier("entry");
  rows_.SetAccountPreferences(std::make_shared<LDGRAccountPreferences>());
  rows_.SetAccount(account_);
  rows_.ReconfigureTable();
  rows_.Reload(account_->GetEntries());
  rows_.Redraw();
  if (terms.is_right_to_left) setLayoutDirection(Qt::RightToLeft);
  view_ = new RegisterView(table_, this);
  view_->setObjectName(QStringLiteral("entry_Table"));
  view_->SetDetails(&details_);
  view_->SetMarksAreBoxes(terms.is_reconcile);
  view_->SetLook(TableLookOf(preferences_, QWidget::font()));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(view_);
  connect(view_, &RegisterView::RowSelected, this, [this](int row) { rows_.SelectRow(row); });
  connect(view_, &RegisterView::HeaderClicked, this,
          [this](const QString& id) { rows_.ClickedTableColumn(id.toStdString()); });
  view_->SelectForUser(terms.selected);
  view_->setFocus();
}

ShownRegister::~ShownRegister() {
  delete view_;
}

}  // namespace tallyfold::desktop
