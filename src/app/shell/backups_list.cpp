#include "app/shell/backups_list.h"

#include <utility>

namespace tallyfold {

std::vector<BackupRow> BackupsList::Rows() {
  std::vector<BackupRow> rows;
  if (!store_.authenticated()) return rows;
  for (BackupFile& backup : store_.Backups()) {
    const auto [known, is_new] = known_.try_emplace(backup.name);
    if (is_new || known->second.made != backup.made) {
      known->second = {backup.made, store_.ContentsOfBackup(backup.name)};
    }
    rows.push_back({std::move(backup.name), backup.made, known->second.contents});
  }
  return rows;
}

}  // namespace tallyfold
