#include "desktop/find_panel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <string>

#include "app/desk.h"
#include "app/views/entry_find.h"
#include "desktop/look/measures.h"
#include "desktop/look/rule_line.h"
#include "desktop/register/register_view.h"
#include "desktop/texts.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr QSize kSize(820, 420);

std::vector<TableColumn> Columns() {
  using Content = TableColumn::Content;
  const auto column = [](const char* name, double width, std::string_view title,
                         Content content = Content::Text) {
    return TableColumn{name, width, title, content, false};
  };
  return {column("account", 130.0, "Account"), column("date", 80.0, "Date", Content::Day),
          column("type", 100.0, "Type"),       column("description", 200.0, "Description"),
          column("toFrom", 140.0, "To/From"),  column("amount", 90.0, "Amount", Content::Amount)};
}

}  // namespace

// --- Rows
// -----------------------------------------------------------------------------------------

std::size_t FindPanel::Rows::numberOfRowsInTableView() const {
  return find_.State().rows.size();
}

TableCell FindPanel::Rows::tableView(std::string_view column, std::size_t row) const {
  const auto& rows = find_.State().rows;
  if (row >= rows.size()) return {};
  const auto& [account, entry] = rows[row];
  const std::string days = RegisterDateFormat(desk_.preferences());
  const TableFormat format{days, desk_.preferences()};
  if (column == "account") return {.text = account->GetName()};
  if (column == "date") return DayCell(entry->GetDate(), format);
  if (column == "type") return {.text = TypeTextOfEntry(account.get(), *entry)};
  if (column == "description") return {.text = entry->GetDescription()};
  if (column == "toFrom") return {.text = entry->GetToFrom()};
  return column == "amount" ? AmountCell(entry->GetAmount(), format) : TableCell{};
}

RowLook FindPanel::Rows::LookOfRow(std::size_t row) const {
  const auto& rows = find_.State().rows;
  if (row >= rows.size()) return {};
  return LookOfEntry(*rows[row].entry, desk_.preferences(), TodaysDateNumber());
}

std::string FindPanel::Rows::SpeakableRow(std::size_t row) const {
  const auto& rows = find_.State().rows;
  return row < rows.size() ? rows[row].entry->asSpeakableString() : std::string();
}

// --- The panel
// ------------------------------------------------------------------------------------

FindPanel::FindPanel(EntryFind& find, const Desk& desk, QWidget* window)
    : QDialog(window),
      find_(find),
      desk_(desk),
      rows_(find, desk),
      table_(Columns()),
      text_(new QLineEdit(this)),
      count_(new QLabel(this)) {
  table_.SetDataSource(&rows_);
  view_ = new RegisterView(table_, this);
  setObjectName(QLatin1String("find_Panel"));
  setWindowTitle(Text("Find in All Accounts"));
  text_->setObjectName(QLatin1String("find_Field"));
  text_->setAccessibleName(Text("Find"));
  text_->setPlaceholderText(Text("Text, amount or check number"));
  text_->installEventFilter(this);
  view_->setObjectName(QLatin1String("find_Table"));
  view_->setAccessibleName(Text("Entries Found"));
  view_->SetSelectsOneRow(true);
  view_->SetHasMonthRules(false);
  count_->setObjectName(QLatin1String("find_Label"));
  count_->setTextFormat(Qt::PlainText);
  count_->setForegroundRole(QPalette::PlaceholderText);
  auto* find_button = new QPushButton(Text("Find"), this);
  find_button->setObjectName(QLatin1String("find_Find_Button"));
  find_button->setDefault(true);

  auto* row = new QHBoxLayout;
  row->setContentsMargins(kWideGap, kWideGap, kWideGap, kWideGap);
  row->setSpacing(kGap);
  row->addWidget(text_, 1);
  row->addWidget(find_button);
  auto* line = new QHBoxLayout;
  line->setContentsMargins(kWideGap, kGap, kWideGap, kGap);
  line->addWidget(count_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(row);
  column->addWidget(new RuleLine(this));
  column->addWidget(view_, 1);
  column->addWidget(new RuleLine(this));
  column->addLayout(line);
  resize(kSize);

  connect(find_button, &QPushButton::clicked, this, &FindPanel::Find);
  connect(view_, &RegisterView::RowSelected, this,
          [this](int selected) { table_.SelectRow(selected); });
  connect(view_, &RegisterView::RowActivated, this, &FindPanel::GoTo);
  connect(view_, &RegisterView::Escaped, this, &FindPanel::reject);
}

// The view lets go of the table first.
FindPanel::~FindPanel() {
  delete view_;
}

void FindPanel::Show() {
  if (!find_.State().is_open) {
    if (!isVisible()) return;
    hide();
    // What was found may be locked by the time it is opened again.
    return table_.ReloadData();
  }
  ShowFound();
  if (isVisible()) return;
  view_->SetLook(TableLookOf(desk_.preferences(), font()));
  show();
  raise();
  activateWindow();
  text_->setFocus(Qt::OtherFocusReason);
  text_->selectAll();
}

void FindPanel::ShowFound() {
  const EntryFindState& state = find_.State();
  table_.ReloadData();
  if (state.text.empty()) return count_->setText(QString());
  const std::size_t count = state.rows.size();
  std::string text = Counted(count, "{1} entry found", "{1} entries found");
  if (state.locked > 0) {
    text = Message("{1}. {2}", {text, Counted(state.locked, "{1} locked account was passed over",
                                              "{1} locked accounts were passed over")});
  }
  count_->setText(ToQString(text));
}

void FindPanel::Find() {
  find_.Find(ToUtf8(text_->text()));
  if (!find_.State().rows.empty()) view_->SelectForUser({0});
}

void FindPanel::GoTo(int row) {
  if (find_.Show(static_cast<std::size_t>(row))) parentWidget()->activateWindow();
}

bool FindPanel::eventFilter(QObject* receiver, QEvent* event) {
  const bool is_down = event->type() == QEvent::KeyPress &&
                       static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Down;
  if (receiver != text_ || !is_down) return QDialog::eventFilter(receiver, event);
  view_->setFocus(Qt::OtherFocusReason);
  return true;
}

void FindPanel::reject() {
  find_.Close();
}

}  // namespace tallyfold::desktop
