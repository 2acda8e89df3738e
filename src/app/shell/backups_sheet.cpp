#include "app/shell/backups_sheet.h"

#include <algorithm>
#include <utility>

#include "model/date_format.h"
#include "model/date_number.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

using Row = BackupsSheetState::Row;
using Line = BackupsSheetState::Line;

bool IsRow(std::int32_t row, std::size_t count) {
  return row >= 0 && static_cast<std::size_t>(row) < count;
}

std::string KindOf(const BackupRow& backup) {
  switch (backup.kind) {
    case BackupRow::Kind::Backup:
      return LocalizedText("Backup");
    case BackupRow::Kind::Kept:
      return LocalizedText("Kept copy");
    case BackupRow::Kind::KeptOfOthers:
      return LocalizedText("Kept: another program changed it");
  }
  return {};
}

std::string DayOf(const CivilTime& time, const LDGRPreferences& preferences) {
  return FormatDate(time, RegisterDateFormat(preferences));
}

Line LineOf(EntryDifference::Kind kind, const std::shared_ptr<const LDGRAccountEntry>& entry,
            const LDGRPreferences& preferences) {
  const std::string format = RegisterDateFormat(preferences);
  const TableFormat as{format, preferences};
  Line line;
  line.kind = kind;
  line.entry = entry;
  line.date = CellOfEntry(*entry, "date", as);
  line.description = CellOfEntry(*entry, "description", as);
  line.to_from = CellOfEntry(*entry, "toFrom", as);
  line.amount = CellOfEntry(*entry, "amount", as);
  line.look =
      LookOfEntry(*entry, preferences,
                  NSCalendarDateToDateNumber(CurrentClock().LocalTime(CurrentClock().Now())));
  return line;
}

}  // namespace

bool BackupsSheet::Open() {
  const Announcer::Operation operation(announcer_);
  if (!desk_.IsUnlocked() || !sheets_.Open(Sheet::Backups, [this] { Close(); })) return false;
  state_ = BackupsSheetState();
  state_.is_open = true;
  const auto days = static_cast<std::size_t>(std::max(0, desk_.preferences().GetBackupInterval()));
  state_.note =
      (days == 0 ? LocalizedText("Backups are made at every launch.")
                 : Message(Plural("Backups are made every day.", "Backups are made every {1} days.",
                                  days),
                           {std::to_string(days)})) +
      ' ' +
      LocalizedText(
          "What you restore takes the place of everything you have now; what you have now is kept "
          "as a copy.");
  ShowRows();
  return true;
}

void BackupsSheet::Close() {
  if (!state_.is_open) return;
  const Announcer::Operation operation(announcer_);
  compare_.Cancel();
  state_ = BackupsSheetState();
  announcer_.Changed(Area::BackupsSheet);
  sheets_.Close(Sheet::Backups);
}

void BackupsSheet::ShowRows() {
  state_.rows.clear();
  for (const BackupRow& backup : list_.Rows()) {
    const CivilTime made = CurrentClock().LocalTime(backup.made);
    Row row;
    row.name = backup.name;
    row.kind = KindOf(backup);
    row.made = DayOf(made, desk_.preferences()) + "  " + FormatDate(made, "%H:%M");
    row.can_be_read = backup.contents.has_value();
    if (backup.contents) {
      row.accounts = backup.contents->accounts;
      row.entries = backup.contents->entries;
    } else {
      row.kind = LocalizedText("Cannot be read");
    }
    state_.rows.push_back(std::move(row));
  }
  SelectBackup(0);
}

void BackupsSheet::SelectBackup(std::int32_t row) {
  if (!state_.is_open) return;
  state_.problem.reset();
  state_.selected = IsRow(row, state_.rows.size()) ? row : -1;
  const Row* selected =
      state_.selected < 0 ? nullptr : &state_.rows[static_cast<std::size_t>(state_.selected)];
  state_.restore_is_enabled = selected != nullptr && selected->can_be_read;
  // Made is the day and the time.
  state_.restore_title =
      state_.restore_is_enabled
          ? Message("Restore Backup of {1}", {selected->made.substr(0, selected->made.find("  "))})
          : LocalizedText("Restore Backup");
  state_.comparison.reset();
  state_.selected_account = -1;
  ShowLines();
  compare_.Start(kBeforeComparison, [this] { Compare(); });
  announcer_.Changed(Area::BackupsSheet);
}

void BackupsSheet::Compare() {
  if (!state_.is_open) return;
  const Announcer::Operation operation(announcer_);
  compare_.Cancel();
  if (state_.restore_is_enabled) {
    const auto& name = state_.rows[static_cast<std::size_t>(state_.selected)].name;
    if (const auto backup = store_.AccountsOfBackup(name)) {
      state_.comparison = CompareWithNow(*backup, desk_.accounts(), store_.password());
    }
  }
  state_.restore_is_enabled = state_.comparison.has_value();
  state_.selected_account = -1;
  if (state_.comparison && !state_.comparison->accounts.empty()) {
    const auto& accounts = state_.comparison->accounts;
    const auto differs = std::ranges::find_if(
        accounts, [](const AccountDifference& each) { return !each.entries.empty(); });
    state_.selected_account =
        differs == accounts.end() ? 0 : static_cast<std::int32_t>(differs - accounts.begin());
  }
  ShowLines();
  announcer_.Changed(Area::BackupsSheet);
}

void BackupsSheet::SelectAccount(std::int32_t row) {
  if (!state_.comparison || !IsRow(row, state_.comparison->accounts.size())) return;
  state_.selected_account = row;
  ShowLines();
  announcer_.Changed(Area::BackupsSheet);
}

void BackupsSheet::ShowLines() {
  state_.lines.clear();
  state_.left_out = 0;
  state_.nothing.clear();
  // It is still to be compared.
  if (!state_.comparison && state_.restore_is_enabled) return;
  if (!state_.comparison) {
    state_.nothing = LocalizedText(state_.rows.empty()   ? "There is no backup yet."
                                   : state_.selected < 0 ? "No backup is selected."
                                                         : "This backup cannot be read.");
    return;
  }
  if (state_.comparison->is_locked) {
    state_.nothing = LocalizedText("This backup has a password of its own.");
    return;
  }
  if (state_.selected_account < 0) return;
  const AccountDifference& account =
      state_.comparison->accounts[static_cast<std::size_t>(state_.selected_account)];
  if (account.is_locked) {
    state_.nothing = LocalizedText("The account is locked.");
    return;
  }
  if (account.entries.empty()) {
    state_.nothing = LocalizedText("Nothing differs.");
    return;
  }
  const std::size_t shown = std::min(account.entries.size(), kMostLines);
  state_.left_out = account.entries.size() - shown;
  for (std::size_t i = 0; i < shown; ++i) {
    const EntryDifference& each = account.entries[i];
    const auto& entry = each.now != nullptr ? each.now : each.then;
    state_.lines.push_back(LineOf(each.kind, entry, desk_.preferences()));
    if (each.kind != EntryDifference::Kind::Changed) continue;
    state_.lines.push_back(LineOf(each.kind, each.then, desk_.preferences()));
    state_.lines.back().is_former = true;
  }
}

void BackupsSheet::ShowOutcome() {
  if (!state_.is_open) return;
  const BackUpState& outcome = list_.State();
  state_.problem.reset();
  if (!outcome.problem.empty()) state_.problem = Problem{"", outcome.problem};
  state_.done = outcome.kept.empty() ? "" : Message("Backed up as {1}", {outcome.kept});
  announcer_.Changed(Area::BackupsSheet);
}

bool BackupsSheet::Restore() {
  const Announcer::Operation operation(announcer_);
  if (!state_.restore_is_enabled) return false;
  const std::string name = state_.rows[static_cast<std::size_t>(state_.selected)].name;
  const auto result = list_.Accounts_RestoreBackup(name);
  ShowOutcome();
  return result == AccountsStore::RestoreResult::Restored;
}

bool BackupsSheet::BackUpNow() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open) return false;
  const bool is_made = list_.BackUpNow();
  if (is_made) ShowRows();
  ShowOutcome();
  return is_made;
}

bool BackupsSheet::RestoreFromFile() {
  const Announcer::Operation operation(announcer_);
  if (!state_.is_open) return false;
  const auto result = list_.RestoreFromFile();
  if (result) ShowOutcome();
  return result == AccountsStore::RestoreResult::Restored;
}

}  // namespace tallyfold
