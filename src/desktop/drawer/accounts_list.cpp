#include "desktop/drawer/accounts_list.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QVBoxLayout>

#include "app/accounts/accounts_drawer.h"
#include "app/accounts/accounts_total.h"
#include "app/desk.h"
#include "desktop/look/assistive.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/measures.h"
#include "desktop/register/register_view.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr std::string_view kBalance = "balance";
constexpr double kWidestColumn = 10'000.0;

}  // namespace

void AccountsList::Locks::AddTo(CellLook& look, std::string_view column, std::size_t row) const {
  if (column != kBalance || row >= drawer_.Rows().size()) return;
  if (!drawer_.Rows()[row]->IsLocked()) return;
  look.glyph_before = QLatin1String("lock");
  look.is_dim = true;
}

AccountsList::AccountsList(const Parts& parts, QWidget* parent)
    : QWidget(parent),
      parts_(parts),
      locks_(parts.drawer),
      table_(new RegisterView(parts.drawer.Table(), this)),
      caption_(new QLabel(this)),
      total_(new FigureLabel(this)) {
  setObjectName(QLatin1String("accountsDrawer"));
  table_->setObjectName(QLatin1String("accountsDrawer_Accounts_Table"));
  table_->setAccessibleName(Text("Accounts"));
  total_->setObjectName(QLatin1String("accountsDrawer_Total_Field"));
  total_->setFont(DemiBoldFont(font()));
  caption_->setTextFormat(Qt::PlainText);
  caption_->setForegroundRole(QPalette::PlaceholderText);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(table_, 1);
  auto* line = new QWidget(this);
  line->setFixedHeight(kStatusHeight);
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(kListPadding, 0, kOuterCellPadding, 0);
  caption_->setWordWrap(true);
  row->addWidget(caption_, 1);
  row->addWidget(total_);
  column->addWidget(line);

  table_->SetDetails(&locks_);
  table_->SetSelectsOneRow(true);
  table_->MakeList();
  table_->SetHasMonthRules(false);
  table_->installEventFilter(this);
  table_->viewport()->installEventFilter(this);
  connect(table_, &RegisterView::RowActivated, this, [this](int activated) {
    parts_.drawer.accountsDrawer_Accounts_Table_DoubleClick(static_cast<std::size_t>(activated));
  });
  connect(table_, &RegisterView::HeaderClicked, this,
          [this](const QString& clicked) { parts_.drawer.ClickedTableColumn(ToUtf8(clicked)); });
}

QSize AccountsList::minimumSizeHint() const {
  return QWidget::minimumSizeHint().expandedTo({kLeastWidth, 0});
}

void AccountsList::Choose(int row) {
  parts_.drawer.accountsDrawer_Accounts_Table_Action(static_cast<std::size_t>(row));
  parts_.drawer.Reload();
}

bool AccountsList::eventFilter(QObject* receiver, QEvent* event) {
  if (receiver == table_->viewport() && event->type() == QEvent::MouseButtonRelease) {
    const auto* mouse = static_cast<const QMouseEvent*>(event);
    const QModelIndex index = table_->indexAt(mouse->position().toPoint());
    if (mouse->button() == Qt::LeftButton && index.isValid()) {
      // The table lets go of the button first.
      QTimer::singleShot(0, this, [this, row = index.row()] { Choose(row); });
    }
  }
  // Arrows only move: an account may ask for its password.
  if (receiver == table_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<const QKeyEvent*>(event)->key();
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && table_->currentIndex().isValid()) {
      Choose(table_->currentIndex().row());
      return true;
    }
  }
  return QWidget::eventFilter(receiver, event);
}

void AccountsList::ShowLook() {
  table_->SetLook(TableLookOf(parts_.desk.preferences(), font()));
}

void AccountsList::Show() {
  const AccountsTotal total = TotalOfUnlocked(parts_.desk.accounts(), parts_.desk.preferences());
  table_->FitColumns();
  const bool is_shown = parts_.desk.IsUnlocked();
  caption_->setVisible(is_shown);
  total_->setVisible(is_shown);
  caption_->setText(ToQString(total.title));
  total_->setText(ToQString(total.text));
  NameFigure(*total_, caption_->text(), total_->text());
}

QByteArray AccountsList::Frame() const {
  QStringList words;
  for (const TableColumn& column : parts_.drawer.Table().Columns()) {
    words.append(ToQString(column.identifier));
    words.append(QString::number(column.width));
  }
  return words.join(QLatin1Char(' ')).toLatin1();
}

void AccountsList::SetFrame(const QByteArray& frame) {
  TableState& table = parts_.drawer.Table();
  const QStringList words = QString::fromLatin1(frame).split(QLatin1Char(' '));
  std::size_t place = 0;
  for (qsizetype i = 0; i + 1 < words.size(); i += 2) {
    const auto column = table.ColumnWithIdentifier(ToUtf8(words[i]));
    bool is_number = false;
    const double width = words[i + 1].toDouble(&is_number);
    if (!column || !is_number || !(width >= 0.0 && width <= kWidestColumn)) return;
    table.SetColumnWidth(*column, width);
    table.MoveColumn(*column, place++);
  }
}

void AccountsList::FocusTable() {
  table_->setFocus(Qt::OtherFocusReason);
}

}  // namespace tallyfold::desktop
