#include "desktop/sheets/review_sheet.h"

#include <QCheckBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "app/desk.h"
#include "app/exchange/qif_import_controller.h"
#include "app/exchange/qif_import_table_data.h"
#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/figures.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/register/register_view.h"
#include "desktop/register/table_look.h"
#include "desktop/sheets/chip.h"
#include "desktop/sheets/review_comparison.h"
#include "desktop/sheets/review_facts.h"
#include "desktop/texts.h"
#include "model/date_number.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold::desktop {
namespace {

constexpr int kReviewWidth = 1080;
constexpr int kLeastRows = 7;

QLabel* ReviewLabel(const char* name, QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setObjectName(QLatin1String(name));
  label->setTextFormat(Qt::PlainText);
  return label;
}

}  // namespace

ReviewSheet::ReviewSheet(const Parts& parts, QWidget* window)
    : SheetDialog(window, Text("Import")),
      parts_(parts),
      details_(parts.import),
      heading_(ReviewLabel("import_Title", this)),
      facts_(ReviewLabel("import_Facts", this)),
      table_(new RegisterView(parts.import.tableDataSource().Table(), this)),
      comparison_(new ReviewComparison(this)),
      balance_(new QCheckBox(this)),
      total_(ReviewLabel("importTotal_Field", this)) {
  setObjectName(QLatin1String("import_Window"));
  SetWantedWidth(kReviewWidth);
  LayOut();
  ConnectTable();
  ConnectButtons();
  table_->setFocus();
}

void ReviewSheet::LayOut() {
  heading_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  facts_->setWordWrap(true);
  SetTextInk(*facts_, ColorsOf(palette())[Role::Dim]);
  table_->setObjectName(QLatin1String("import_Table"));
  table_->setAccessibleName(Text("Entries of the File"));
  table_->SetLook(TableLookOf(parts_.desk.preferences(), font()));
  table_->SetDetails(&details_);
  table_->SetFirstColumns(ReviewColumns());
  table_->setMinimumHeight(kLeastRows * RowHeight(fontMetrics()) + HeaderHeight(fontMetrics()));

  auto* chips = new QHBoxLayout;
  chips->setSpacing(kGap);
  Body().setSpacing(kWideGap);
  auto* head = new QVBoxLayout;
  head->setSpacing(2);
  head->addWidget(heading_);
  head->addWidget(facts_);
  Body().addLayout(head);
  Body().addLayout(chips);
  auto* frame = new QFrame(this);
  frame->setFrameShape(QFrame::StyledPanel);
  auto* inside = new QVBoxLayout(frame);
  inside->setContentsMargins(1, 1, 1, 1);
  inside->addWidget(table_);
  Body().addWidget(frame, 1);
  Body().addWidget(comparison_);
  balance_->setObjectName(QLatin1String("import_Balance_CheckBox"));
  Body().addWidget(balance_);
  AddChip(Kind::Repeats, "import_Repeats_Button", QLatin1String("reconcile"));
  AddChip(Kind::Matched, "import_Matched_Button", QLatin1String("tick"));
  AddChip(Kind::Undated, "import_Undated_Button", QLatin1String("warning"));
  AddChip(Kind::Balance, "import_Balances_Button", QLatin1String("warning"));
  AddChip(Kind::AfterToday, "import_AfterToday_Button", QLatin1String("schedule"));
  AddChip(Kind::NewType, "import_NewTypes_Button", QLatin1String("add"));
  for (const auto& each : chips_) chips->addWidget(each.chip);
  chips->addStretch(1);
}

void ReviewSheet::AddChip(Kind kind, const char* name, QLatin1String icon) {
  const bool is_warning = kind == Kind::Repeats || kind == Kind::Undated || kind == Kind::Balance;
  auto* chip = new Chip(icon, is_warning, this);
  chip->setObjectName(QLatin1String(name));
  chips_.push_back({kind, chip, {}});
  connect(chip, &Chip::clicked, this, [this, index = chips_.size() - 1](bool is_checked) {
    for (std::size_t i = 0; i < chips_.size(); ++i) {
      if (i != index) chips_[i].chip->setChecked(false);
    }
    if (is_checked) table_->SelectForUser(chips_[index].rows);
  });
}

void ReviewSheet::ConnectTable() {
  auto& import = parts_.import;
  const auto entry_at = [&import](int row) { return import.tableDataSource().RowToEntry(row); };
  connect(table_, &RegisterView::RowSelected, this,
          [&import, entry_at](int row) { import.SelectEntry(entry_at(row)); });
  connect(table_, &RegisterView::RowActivated, this,
          [&import](int) { static_cast<void>(import.ImportEntry_Change()); });
  connect(table_, &RegisterView::MarkWanted, this,
          [&import, entry_at](int row, const QString& column) {
            if (column == QLatin1String("import")) {
              import.Import_CheckBox(entry_at(row));
            } else {
              import.Cleared_CheckBox(entry_at(row));
            }
          });
  connect(table_, &RegisterView::MarkKeyPressed, this, &ReviewSheet::Import);
  connect(table_, &RegisterView::RemoveWanted, this, &ReviewSheet::Drop);
  // A chip is pressed as long as its rows are what is selected.
  connect(table_, &RegisterView::SelectionChanged, this, [this] {
    for (const Counted& each : chips_) {
      RowSelection rows;
      rows.SelectThese(each.rows);
      if (rows != table_->SelectedRows()) each.chip->setChecked(false);
    }
  });
  connect(table_, &RegisterView::RowMenuWanted, this, &ReviewSheet::ShowRowMenu);
  connect(table_, &RegisterView::HeaderClicked, this,
          [&import](const QString& column) { import.ClickedTableColumn(ToUtf8(column)); });
  connect(table_, &RegisterView::Escaped, this, &ReviewSheet::Cancel);
}

void ReviewSheet::ConnectButtons() {
  auto& import = parts_.import;
  change_ = AddLeadingButton("importEntry_Change_Button", Text("Change..."));
  drop_ = AddLeadingButton("importEntry_Remove_Button", Text("Drop"));
  match_ = AddLeadingButton("importEntry_Match_Button", Text("Match"));
  all_ = AddLeadingButton("importEntry_ImportAll_Button", Text("Import All"));
  QPushButton* back = AddLeadingButton("import_GoBack_Button", Text("Go Back"));
  connect(change_, &QPushButton::clicked, this,
          [&import] { static_cast<void>(import.ImportEntry_Change()); });
  connect(drop_, &QPushButton::clicked, this, &ReviewSheet::Drop);
  connect(match_, &QPushButton::clicked, this, &ReviewSheet::Match);
  connect(comparison_, &ReviewComparison::MatchChosen, this, [&import](int place) {
    const auto entry = import.tableDataSource().GetSelectedEntry();
    if (entry == nullptr) return;
    const EntryList matches = import.MatchesFor(*entry);
    if (static_cast<std::size_t>(place) >= matches.size()) return;
    static_cast<void>(import.MatchWith(entry, matches[static_cast<std::size_t>(place)]));
  });
  connect(balance_, &QCheckBox::toggled, this,
          [&import](bool is_on) { import.Import_TakeBalance(is_on); });
  connect(all_, &QPushButton::clicked, this, [&import] { import.ImportEntry_ImportAll(); });
  connect(back, &QPushButton::clicked, this,
          [&import] { static_cast<void>(import.import_GoBack_Button()); });

  auto* sum = new QWidget(this);
  auto* row = new QHBoxLayout(sum);
  row->setContentsMargins(0, 0, kWideGap, 0);
  QLabel* caption = ReviewLabel("importTotal_Label", sum);
  caption->setText(Text("Marked"));
  SetTextInk(*caption, ColorsOf(palette())[Role::Dim]);
  total_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  row->addWidget(caption);
  row->addWidget(total_);
  AddBeforeButtons(sum);
  connect(AddButton("import_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  ok_ = AddButton("import_OK_Button", Text("Import"), true);
  connect(ok_, &QPushButton::clicked, this,
          [&import] { static_cast<void>(import.import_OK_Button()); });
}

QifImportEntryList ReviewSheet::SelectedEntries() const {
  QifImportEntryList entries;
  for (const auto& [first, last] : table_->SelectedRows().Ranges()) {
    for (int row = first; row <= last; ++row) {
      if (auto entry = parts_.import.tableDataSource().RowToEntry(row)) {
        entries.push_back(std::move(entry));
      }
    }
  }
  return entries;
}

void ReviewSheet::Import() {
  const QifImportEntryList entries = SelectedEntries();
  const bool are_marked =
      std::ranges::all_of(entries, [](const auto& entry) { return entry->GetImport(); });
  parts_.import.MarkEntries(entries, !are_marked);
}

void ReviewSheet::Resolve() {
  QifImportEntryList entries = SelectedEntries();
  const bool are_resolved =
      std::ranges::all_of(entries, [](const auto& entry) { return entry->GetCleared(); });
  std::erase_if(entries,
                [are_resolved](const auto& entry) { return entry->GetCleared() != are_resolved; });
  parts_.import.TurnClearedOver(entries);
}

void ReviewSheet::Match() {
  parts_.import.MatchEntries(SelectedEntries(), !parts_.import.Review().is_matched);
}

void ReviewSheet::Drop() {
  parts_.import.RemoveEntries(SelectedEntries());
}

void ReviewSheet::ShowRowMenu(const QPoint& place) {
  auto& import = parts_.import;
  const auto& state = import.Review();
  auto* menu = new QMenu(this);
  menu->setObjectName(QLatin1String("import_Menu"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [this, menu](const QString& title, bool is_enabled, auto run) {
    QAction* action = menu->addAction(title, this, run);
    action->setEnabled(is_enabled);
  };
  add(Text("Import"), state.can_import, [this] { Import(); });
  add(Text("Change..."), state.can_change,
      [&import] { static_cast<void>(import.ImportEntry_Change()); });
  add(Text(state.is_matched ? "Do Not Match" : "Match"), state.can_match, [this] { Match(); });
  add(Text("Drop"), state.can_remove, [this] { Drop(); });
  add(Text("Resolved"), state.can_resolve, [this] { Resolve(); });
  add(Text("Speak Entry"), state.can_import, [&import] { import.SpeakEntry(); });
  menu->addSeparator();
  add(Text("Import All"), state.can_import_all, [&import] { import.ImportEntry_ImportAll(); });
  add(Text("Unmark Those Without a Date"), state.marked_undated > 0,
      [&import] { import.ImportEntry_UnmarkUndated(); });
  menu->popup(place);
}

// --- State to widgets
// -----------------------------------------------------------------------------

void ReviewSheet::ShowState() {
  const auto& state = parts_.import.Review();
  heading_->setText(ToQString(Message("{1} into {2}", {state.file_name, state.account_name})));
  facts_->setText(ToQString(ReviewFacts(state, Format())));
  ShowChips();
  ShowComparison();
  total_->setText(WithMinus(ToQString(state.total_text)));
  NameFigure(*total_, Text("Marked"), ToQString(state.total_text));
  const Colors& colors = ColorsOf(palette());
  const QColor& negative = table_->Rows().Look().negative;
  SetTextInk(*total_, state.total < 0 && negative.isValid()
                          ? InkOn(negative, colors[Role::Window], colors)
                          : colors[Role::Text]);
  change_->setEnabled(state.can_change);
  drop_->setEnabled(state.can_remove);
  match_->setEnabled(state.can_match);
  match_->setText(Text(state.is_matched ? "Do Not Match" : "Match"));
  ShowBalance();
  all_->setEnabled(state.can_import_all);
  const bool are_all_marked = state.can_import_all && state.marked_count == state.entry_count;
  all_->setText(Text(are_all_marked ? "Import None" : "Import All"));
  const std::string marked = std::to_string(state.marked_count);
  ok_->setText(ToQString(
      state.matched_count > 0
          ? Message("Import {1}, Match {2}", {marked, std::to_string(state.matched_count)})
          : Message(Plural("Import {1} Entry", "Import {1} Entries", state.marked_count),
                    {marked})));
  ShowProblem(state.account_is_gone ? Text("The account of this import is no longer selected.")
                                    : QString());
}

void ReviewSheet::ShowBalance() {
  const auto& state = parts_.import.Review();
  balance_->setVisible(state.balance.has_value());
  if (!state.balance) return;
  balance_->setText(WithMinus(ToQString(
      state.balance_day.empty()
          ? Message("Take over the balance of {1} as the statement balance", {state.balance_text})
          : Message("Take over the balance of {1} on {2} as the statement balance",
                    {state.balance_text, state.balance_day}))));
  balance_->setAccessibleName(balance_->text());
  const QSignalBlocker blocker(balance_);
  balance_->setChecked(state.takes_balance);
}

bool ReviewSheet::IsCounted(Kind kind, int row) const {
  const auto entry = parts_.import.tableDataSource().RowToEntry(row);
  switch (kind) {
    case Kind::Repeats:
      return parts_.import.MatchOf(*entry).has_value();
    case Kind::Matched:
      return entry->GetMatched() != nullptr;
    case Kind::AfterToday:
      return entry->GetDate() > TodaysDateNumber();
    case Kind::Undated:
      return entry->GetDate() == 0;
    case Kind::Balance: {
      const auto& rows = parts_.import.StatementOptions().proof.disagreeing;
      return std::binary_search(rows.begin(), rows.end(),
                                static_cast<std::size_t>(parts_.import.PlaceOf(*entry)) - 1);
    }
    case Kind::NewType:
      break;
  }
  const auto& types = parts_.import.types();
  return std::find(types.begin(), types.end(), entry->GetActualType()) != types.end();
}

void ReviewSheet::ShowChips() {
  const int count = static_cast<int>(parts_.import.tableDataSource().numberOfRowsInTableView());
  for (Counted& each : chips_) {
    each.rows.clear();
    for (int row = 0; row < count; ++row) {
      if (IsCounted(each.kind, row)) each.rows.push_back(row);
    }
    const std::size_t number = each.rows.size();
    switch (each.kind) {
      case Kind::Repeats:
        each.chip->setText(
            ToQString(Message(Plural("{1} repeats an entry", "{1} repeat an entry", number),
                              {std::to_string(number)})));
        break;
      case Kind::Matched:
        each.chip->setText(ToQString(
            Message(Plural("{1} matched", "{1} matched", number), {std::to_string(number)})));
        break;
      case Kind::AfterToday:
        each.chip->setText(ToQString(Message(Plural("{1} after today", "{1} after today", number),
                                             {std::to_string(number)})));
        break;
      case Kind::Undated:
        each.chip->setText(ToQString(Message(
            Plural("{1} without a date", "{1} without a date", number), {std::to_string(number)})));
        break;
      case Kind::Balance:
        each.chip->setText(ToQString(
            Message(Plural("{1} balance does not agree", "{1} balances do not agree", number),
                    {std::to_string(number)})));
        break;
      case Kind::NewType:
        each.chip->setText(ToQString(
            Message(Plural("{1} new type", "{1} new types", parts_.import.Review().new_type_count),
                    {std::to_string(parts_.import.Review().new_type_count)})));
        break;
    }
    each.chip->setAccessibleName(each.chip->text());
    each.chip->setVisible(number > 0);
    each.chip->updateGeometry();
  }
}

void ReviewSheet::ShowComparison() {
  const auto entry = parts_.import.tableDataSource().GetSelectedEntry();
  const auto match = entry != nullptr ? parts_.import.MatchOf(*entry) : std::nullopt;
  const EntryList matches = entry != nullptr ? parts_.import.MatchesFor(*entry) : EntryList();
  comparison_->Show(entry.get(), match ? &*match : nullptr, matches, Format());
}

TableFormat ReviewSheet::Format() const {
  return {table_->Rows().Look().date_format, parts_.desk.preferences()};
}

void ReviewSheet::Cancel() {
  parts_.import.import_Cancel_Button();
}

}  // namespace tallyfold::desktop
