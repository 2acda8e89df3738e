#include "app/shell/undo.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/ambient.h"
#include "platform/message.h"

namespace tallyfold {
namespace {

std::string Title(std::string_view verb, std::string_view verb_with_name,
                  const std::vector<UndoLine>& lines, bool can) {
  if (!can || lines.empty()) return LocalizedText(verb);
  return Message(verb_with_name, {lines.front().name});
}

template <typename List>
typename List::value_type RecordToShow(const RecordChanges<List>& changes) {
  if (!changes.inserted.empty()) return changes.inserted.back();
  return changes.changed.empty() ? nullptr : changes.changed.back();
}

bool Holds(const AccountList& accounts, const std::shared_ptr<LDGRAccount>& account) {
  return std::find(accounts.begin(), accounts.end(), account) != accounts.end();
}

}  // namespace

Undo::Undo(Ledger& ledger, Desk& desk, const SheetSlot& sheets, const ModalWatch& modal,
           AccountSelection& selection, Tabs& tabs, AccountSummaryTab& summaries, Refresh& refresh,
           Announcer& announcer)
    : ledger_(ledger),
      desk_(desk),
      sheets_(sheets),
      modal_(modal),
      selection_(selection),
      tabs_(tabs),
      summaries_(summaries),
      refresh_(refresh),
      announcer_(announcer) {
  ledger_.AddListener(*this);
}

Undo::~Undo() {
  ledger_.RemoveListener(*this);
}

bool Undo::IsFree() const {
  return desk_.IsUnlocked() && sheets_.IsFree() && !modal_.IsUp();
}

bool Undo::CanUndo() const {
  return IsFree() && ledger_.history().WhyNotUndo() == History::Refusal::None;
}

bool Undo::CanRedo() const {
  return IsFree() && ledger_.history().WhyNotRedo() == History::Refusal::None;
}

std::string Undo::UndoTitle() const {
  return Title("Undo", "Undo {1}", UndoLines(), CanUndo());
}

std::string Undo::RedoTitle() const {
  return Title("Redo", "Redo {1}", RedoLines(), CanRedo());
}

std::vector<UndoLine> Undo::UndoLines() const {
  return Shown(ledger_.history().UndoLines());
}

std::vector<UndoLine> Undo::RedoLines() const {
  return Shown(ledger_.history().RedoLines());
}

std::vector<UndoLine> Undo::Shown(const std::vector<History::Line>& lines) const {
  std::vector<UndoLine> shown;
  if (!desk_.IsUnlocked()) return shown;
  for (const History::Line& line : lines) {
    shown.push_back({LocalizedText(line.name),
                     line.ordered_in.empty() ? "" : line.ordered_in.front()->GetName(), line.when,
                     line.can_be_reached});
  }
  return shown;
}

bool Undo::UndoStep() {
  return CanUndo() && Take(&History::Undo);
}

bool Undo::RedoStep() {
  return CanRedo() && Take(&History::Redo);
}

bool Undo::Take(bool (History::*step)()) {
  const Announcer::Operation operation(announcer_);
  taken_ = {};
  if (!(ledger_.history().*step)()) return false;
  Show(std::exchange(taken_, {}));
  return true;
}

void Undo::LedgerChanged(const ChangeSet& set) {
  if (set.cause != ChangeSet::Cause::Change) taken_ = set;
  announcer_.Changed(Area::History);
}

void Undo::Show(const ChangeSet& set) {
  const auto selected = desk_.SelectedAccount();
  auto wanted = set.ordered_in.empty() ? selected : set.ordered_in.front();
  const bool is_selected_there = Holds(desk_.accounts(), selected);
  // So that the view of an account that is gone is not stored when the next one is shown.
  if (!is_selected_there) selection_.Account_Deselect();
  if (!Holds(desk_.accounts(), wanted)) {
    // The account itself is gone again.
    wanted = is_selected_there          ? selected
             : desk_.accounts().empty() ? nullptr
                                        : desk_.accounts().front();
  }
  refresh_.StepTaken();
  if (wanted != selected) {
    selection_.Account_Select(wanted);
  } else {
    selection_.SetMainWindowTitleForAccount(wanted.get());
  }
  if (const AccountChanges* changes = set.Of(desk_.SelectedAccount().get())) {
    ShowRecordOf(*changes);
  }
}

void Undo::ShowRecordOf(const AccountChanges& changes) {
  if (!changes.entries.IsEmpty()) {
    if (tabs_.ShownRegister() == RegisterKind::Other) tabs_.Select(Tab::Entry);
    if (const auto entry = RecordToShow(changes.entries)) refresh_.ShowEntry(entry);
  } else if (!changes.schedules.IsEmpty()) {
    tabs_.Select(Tab::Schedule);
    desk_.SelectSchedule(RecordToShow(changes.schedules));
  } else if (!changes.summaries.IsEmpty()) {
    tabs_.Select(Tab::Summary);
    if (const auto summary = RecordToShow(changes.summaries))
      summaries_.SelectSummary(summary.get());
  }
}

}  // namespace tallyfold
