#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/problem.h"
#include "app/face/sheet_slot.h"
#include "app/shell/backup_comparison.h"
#include "app/shell/backups_list.h"
#include "platform/run_loop.h"
#include "registers/table_data_source.h"

namespace tallyfold {

struct BackupsSheetState {
  // A line of the list, as the user reads it.
  struct Row {
    std::string name;
    std::string made;
    std::string kind;
    bool can_be_read = false;
    std::size_t accounts = 0;
    std::size_t entries = 0;
  };
  // An entry that differs, as it is now, or as it was in the backup.
  struct Line {
    EntryDifference::Kind kind = EntryDifference::Kind::Added;
    // The second line of one that was changed.
    bool is_former = false;
    std::shared_ptr<const LDGRAccountEntry> entry;
    TableCell date;
    TableCell description;
    TableCell to_from;
    TableCell amount;
    RowLook look;
  };

  bool is_open = false;
  // How often backups are made, and what restoring does.
  std::string note;
  // The newest first.
  std::vector<Row> rows;
  // Of `rows`; -1 for none.
  std::int32_t selected = -1;
  // Of the selected backup with now; none where there is none or it cannot be read.
  std::optional<BackupComparison> comparison;
  // Of the accounts of the comparison; -1 for none.
  std::int32_t selected_account = -1;
  // Of the selected account, at most kMostLines of its entries, the newest first.
  std::vector<Line> lines;
  // Entries that differ and have no line.
  std::size_t left_out = 0;
  // Why there are no lines; "" where there are.
  std::string nothing;
  bool restore_is_enabled = false;
  // "Restore Backup of 02/21/26".
  std::string restore_title;
  // What the last order of the sheet came to; "" for nothing to tell.
  std::string done;
  // Why it failed.
  std::optional<Problem> problem;
};

// The sheet of the backups: what is in each, what differs from now, and restoring one.
class BackupsSheet {
 public:
  static constexpr std::size_t kMostLines = 1000;
  static constexpr std::chrono::milliseconds kBeforeComparison{150};

  // Everything given must outlive the sheet.
  BackupsSheet(BackupsList& list, const AccountsStore& store, const Desk& desk, SheetSlot& sheets,
               RunLoop& loop, Announcer& announcer) noexcept
      : list_(list),
        store_(store),
        desk_(desk),
        sheets_(sheets),
        announcer_(announcer),
        compare_(loop) {}
  BackupsSheet(const BackupsSheet&) = delete;
  BackupsSheet& operator=(const BackupsSheet&) = delete;

  [[nodiscard]] const BackupsSheetState& State() const noexcept { return state_; }
  // With the newest backup selected. False while a sheet is open or the application is locked.
  bool Open();
  void Close();
  // The backup of that row, which is compared with now when no other has been selected for
  // kBeforeComparison; a row that there is not selects none.
  void SelectBackup(std::int32_t row);
  // Compares the selected one at once.
  void Compare();
  void SelectAccount(std::int32_t row);
  // Restores the selected backup, after a question; the sheet closes where that is done. False
  // where nothing was restored.
  bool Restore();
  bool BackUpNow();
  bool RestoreFromFile();

 private:
  void ShowRows();
  void ShowLines();
  void ShowOutcome();

  BackupsList& list_;
  const AccountsStore& store_;
  const Desk& desk_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  BackupsSheetState state_;
  DelayedCall compare_;
};

}  // namespace tallyfold
