#include "app/shell/recovery.h"

#include "platform/ambient.h"
#include "platform/file_system.h"
#include "platform/message.h"
#include "storage/data_paths.h"

namespace tallyfold {
namespace {

std::string NoticeOf(const RecoveryLog::Found& found) {
  using Outcome = RecoveryLog::Found::Outcome;
  const std::string records = std::to_string(found.records);
  std::string notice;
  switch (found.outcome) {
    case Outcome::Nothing:
    case Outcome::InUse:
      return "";
    case Outcome::Recovered:
      if (found.steps == 0) return "";
      return Message(
          Plural("{1} change from before the interruption was recovered.",
                 "{1} changes from before the interruption were recovered.", found.steps),
          {std::to_string(found.steps)});
    case Outcome::Partly:
      notice =
          Message("Of {2} records of changes from before the interruption {1} could be recovered.",
                  {std::to_string(found.recovered), records});
      break;
    case Outcome::OtherContent:
      notice = LocalizedText(
          "A log of changes from before an interruption belongs to another content of the accounts "
          "file.");
      break;
    case Outcome::OtherFormat:
      notice = LocalizedText(
          "A log of changes from before an interruption was written by another version.");
      break;
  }
  if (found.kept_path) notice += "  " + Message("The log was kept as {1}.", {*found.kept_path});
  return notice;
}

}  // namespace

Recovery::Recovery(FileSystem& files, Ledger& ledger, Announcer& announcer)
    : ledger_(ledger),
      announcer_(announcer),
      log_(files, ledger, DataPaths(files.HomeFolder()).accounts_file) {
  ledger_.AddListener(*this);
}

Recovery::~Recovery() {
  ledger_.RemoveListener(*this);
}

void Recovery::Settle() {
  if (is_settled_) return;
  is_settled_ = true;
  log_.Settle();
  notice_ = NoticeOf(log_.found());
  notice_names_kept_ = log_.found().kept_path.has_value();
  if (!notice_.empty()) announcer_.Changed(Area::Recovery);
}

std::string Recovery::KeptSinceNotice() const {
  return is_settled_ && !notice_names_kept_ ? log_.found().kept_path.value_or("") : "";
}

void Recovery::CloseNotice() {
  if (notice_.empty()) return;
  notice_.clear();
  announcer_.Changed(Area::Recovery);
}

void Recovery::LedgerChanged(const ChangeSet& /*set*/) {
  if (told_ == log_.protection()) return;
  told_ = log_.protection();
  announcer_.Changed(Area::Recovery);
}

}  // namespace tallyfold
