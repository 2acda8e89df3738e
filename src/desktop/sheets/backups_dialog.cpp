#include "desktop/sheets/backups_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "app/face/problem.h"
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/register/table_look.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

using Fate = EntryDifference::Kind;
using Word = CellLook::Word;
using Align = CellLook::Align;

constexpr int kBackupsWidth = 940;
constexpr int kBackupRows = 6;
constexpr int kDifferenceRows = 5;
constexpr int kDifferingAccountWidth = 140;
constexpr int kMadeWidth = 160;
constexpr int kMadeKindWidth = 200;
constexpr int kCountWidth = 80;
constexpr int kDifferenceTextWidth = 120;

CellLook CountLook(std::size_t count, bool is_told) {
  return {.text = is_told && count > 0 ? QString::number(count) : QString(),
          .align = Align::Trailing,
          .is_figure = true};
}

CellLook LookOfCell(const TableCell& cell, bool is_figure, bool is_former) {
  CellLook look{.text = ToQString(cell.text), .is_figure = is_figure, .is_dim = is_former};
  if (cell.alignment == TableCell::Alignment::Right) look.align = Align::Trailing;
  return look;
}

// What has become of an entry.
CellLook WordOf(Fate kind) {
  switch (kind) {
    case Fate::Added:
      return {.text = Text("Added"), .word = Word::Good};
    case Fate::Changed:
      return {.text = Text("Changed"), .word = Word::Warning};
    case Fate::Gone:
      return {.text = Text("Gone"), .word = Word::Neutral};
  }
  return {};
}

// What stands in the first column of the lines, with what is around it.
int WidestWord(const QFont& font) {
  const QFontMetrics metrics(DemiBoldFont(font));
  int width = 0;
  for (const Fate kind : {Fate::Added, Fate::Changed, Fate::Gone}) {
    width = std::max(width, metrics.horizontalAdvance(WordOf(kind).text));
  }
  return width + 2 * kOuterCellPadding + 2 * kCellPadding;
}

}  // namespace

BackupsDialog::BackupsDialog(BackupsSheet& backups, QWidget* window)
    : SheetDialog(window, Text("Backups")),
      backups_(backups),
      note_(Form::MakeNote(this)),
      list_(new LookTable(this)),
      accounts_(new LookTable(this)),
      lines_(new LookTable(this)),
      done_(Form::MakeNote(this)) {
  setObjectName(QLatin1String("backupsSheet"));
  SetWantedWidth(kBackupsWidth);
  auto* heading = new QLabel(Text("What can be brought back"), this);
  heading->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  note_->setFont(font());
  note_->setWordWrap(true);
  auto* differs = new QLabel(Text("What differs from now"), this);
  differs->setFont(DemiBoldFont(font()));
  done_->setObjectName(QLatin1String("backupsSheet_Done"));
  MakeTables();
  auto* below = new QHBoxLayout;
  below->setSpacing(kGroupGap);
  below->addWidget(accounts_);
  below->addWidget(lines_, 1);
  Body().setSpacing(kGap);
  Body().addWidget(heading);
  Body().addWidget(note_);
  Body().addWidget(list_);
  Body().addSpacing(kGap);
  Body().addWidget(differs);
  Body().addLayout(below);
  Body().addWidget(done_);
  MakeButtons();
  list_->setFocus();
}

void BackupsDialog::MakeTables() {
  list_->setObjectName(QLatin1String("backupsSheet_Backups_Table"));
  list_->setAccessibleName(Text("Backups"));
  list_->SetColumns({{.title = Text("Made"), .width = kMadeWidth},
                     {.title = Text("Kind"), .width = kMadeKindWidth},
                     {.title = Text("Accounts"), .width = kCountWidth, .align = Align::Trailing},
                     {.title = Text("Entries"), .width = kCountWidth, .align = Align::Trailing},
                     {.title = Text("Name"), .takes_rest = true}});
  list_->SetRowsInSight(kBackupRows);
  accounts_->setObjectName(QLatin1String("backupsSheet_Accounts_Table"));
  accounts_->setAccessibleName(Text("Accounts"));
  accounts_->SetColumns(
      {{.title = Text("Account"), .width = kDifferingAccountWidth, .takes_rest = true},
       {.title = Text("Added"), .align = Align::Trailing},
       {.title = Text("Changed"), .align = Align::Trailing},
       {.title = Text("Gone"), .align = Align::Trailing}});
  accounts_->SetRowsInSight(kDifferenceRows);
  lines_->setObjectName(QLatin1String("backupsSheet_Entries_Table"));
  lines_->setAccessibleName(Text("Entries that differ"));
  lines_->SetColumns(
      {{.title = Text("Since then"), .width = WidestWord(font())},
       {.title = Text("Date")},
       {.title = Text("Description"), .width = kDifferenceTextWidth, .takes_rest = true},
       {.title = Text("To/From"), .width = kDifferenceTextWidth},
       {.title = Text("Amount"), .align = Align::Trailing}});
  lines_->SetRowsInSight(kDifferenceRows);
  connect(list_, &LookTable::RowChosen, this, [this](int row) { backups_.SelectBackup(row); });
  connect(accounts_, &LookTable::RowChosen, this, [this](int row) { backups_.SelectAccount(row); });
}

void BackupsDialog::MakeButtons() {
  connect(AddLeadingButton("backupsSheet_BackUpNow_Button", Text("Back Up Now")),
          &QPushButton::clicked, this, [this] { backups_.BackUpNow(); });
  connect(AddLeadingButton("backupsSheet_RestoreFromFile_Button", Text("Restore From File...")),
          &QPushButton::clicked, this, [this] { backups_.RestoreFromFile(); });
  restore_ = AddButton("backupsSheet_Restore_Button", Text("Restore Backup"));
  connect(restore_, &QPushButton::clicked, this, [this] { backups_.Restore(); });
  // Return in the list must not replace everything.
  connect(AddButton("backupsSheet_Close_Button", Text("Close"), true), &QPushButton::clicked, this,
          [this] { Cancel(); });
}

void BackupsDialog::ShowState() {
  const BackupsSheetState& state = backups_.State();
  if (!state.is_open) return;
  note_->setText(ToQString(state.note));
  done_->setText(ToQString(state.done));
  done_->setVisible(!state.done.empty());
  restore_->setText(WithoutMnemonics(ToQString(state.restore_title)));
  restore_->setEnabled(state.restore_is_enabled);
  ShowProblem(ToQString(TextOf(state.problem)));
  ShowRows();
  ShowAccounts();
  ShowLines();
}

void BackupsDialog::ShowRows() {
  const BackupsSheetState& state = backups_.State();
  std::vector<LookTable::Row> rows;
  for (const BackupsSheetState::Row& row : state.rows) {
    rows.push_back(
        {{.text = ToQString(row.made), .is_figure = true},
         {.text = ToQString(row.kind), .word = row.can_be_read ? Word::None : Word::Problem},
         CountLook(row.accounts, row.can_be_read),
         CountLook(row.entries, row.can_be_read),
         {.text = ToQString(row.name), .is_dim = true}});
  }
  list_->SetRows(std::move(rows));
  list_->ShowChosen(state.selected);
  list_->SetEmptyText(state.rows.empty() ? ToQString(state.nothing) : QString());
}

void BackupsDialog::ShowAccounts() {
  const BackupsSheetState& state = backups_.State();
  std::vector<LookTable::Row> rows;
  if (state.comparison) {
    for (const AccountDifference& each : state.comparison->accounts) {
      const bool is_told = !each.is_locked;
      rows.push_back({{.text = ToQString(each.name)},
                      is_told ? CountLook(each.added, true)
                              : CellLook{.text = Text("Locked"),
                                         .glyph_before = QLatin1String("lock"),
                                         .is_dim = true},
                      CountLook(each.changed, is_told),
                      CountLook(each.gone, is_told)});
    }
  }
  accounts_->SetRows(std::move(rows));
  accounts_->ShowChosen(state.selected_account);
}

void BackupsDialog::ShowLines() {
  const BackupsSheetState& state = backups_.State();
  std::vector<LookTable::Row> rows;
  for (const BackupsSheetState::Line& line : state.lines) {
    CellLook amount = LookOfCell(line.amount, true, line.is_former);
    if (line.look.color && !line.is_former) amount.color = ColorOf(*line.look.color);
    CellLook first =
        line.is_former ? CellLook{.text = Text("was"), .is_dim = true} : WordOf(line.kind);
    rows.push_back({std::move(first), LookOfCell(line.date, true, line.is_former),
                    LookOfCell(line.description, false, line.is_former),
                    LookOfCell(line.to_from, false, line.is_former), std::move(amount)});
  }
  if (state.left_out > 0) {
    rows.push_back({{},
                    {},
                    {.text = ToQString(Message("and {1} more", {std::to_string(state.left_out)})),
                     .is_dim = true}});
  }
  lines_->SetRows(std::move(rows));
  lines_->SetEmptyText(ToQString(state.nothing));
}

}  // namespace tallyfold::desktop
