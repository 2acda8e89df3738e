#include <cstddef>
#include <memory>
#include <optional>
#include <string>

#include "model/text.h"
#include "platform/ambient.h"
#include "platform/progress.h"
#include "plist/writer.h"
#include "storage/accounts_store.h"
#include "storage/own_files.h"

namespace tallyfold {

bool AccountsStore::PrepareDataFolder() {
  if (!EnsureFolder(services_.files, paths_.data_folder,
                    "~/Library/Tallyfold/ exists, but it's a file instead of a folder.  Tallyfold "
                    "is unable to save your Accounts")) {
    save_failure_ = FolderFailure(true);
    return false;
  }
  lock_.AcquireLate();
  return true;
}

bool AccountsStore::Accounts_Save() {
  if (!gate_.IsOpen() || !accounts_) return false;
  if (!PrepareDataFolder()) return false;
  return Accounts_SaveToFilePath(paths_.accounts_file);
}

bool AccountsStore::Accounts_SaveToFilePath(const std::optional<std::string>& path) {
  if (!path || !accounts_ || !gate_.IsOpen()) return false;
  const bool is_accounts_file = LeadsTo(services_.files, *path, paths_.accounts_file);
  const auto failure = WriteFile(*path, is_accounts_file);
  if (is_accounts_file) {
    save_failure_ = failure;
    if (!failure) {
      saved_ = CurrentSnapshot();
      holds_unsaved_types_ = false;
      if (witness_ != nullptr) witness_->Replaced();
    }
  }
  return !failure;
}

std::optional<SaveFailure> AccountsStore::WriteFile(const std::string& path,
                                                    bool is_accounts_file) {
  FileSystem& files = services_.files;
  const std::string parent = ParentFolder(path);
  if (!files.IsFolder(parent)) {
    const bool is_file = files.Exists(parent);
    Log(MessageWithText(is_file ? "%@ exists, but it's a file instead of a folder.  Tallyfold is "
                                  "unable to save your Accounts."
                                : "%@ does not exist.  Tallyfold is unable to save your Accounts.",
                        parent));
    return FolderFailure(is_file);
  }
  files.AddPermissions(parent, kOwnerAll);
  files.AddPermissions(path, kOwnerAll);
  std::size_t entries = 0;
  for (const auto& account : accounts()) entries += account->GetEntries().size();
  // Its own file is compared first.
  LongOperation operation(LongWork::Saving, is_accounts_file ? entries * 2 : entries);
  const auto produce = [this](ByteSink& sink) {
    plist::XmlWriter writer([&sink](std::string_view block) { sink.Append(block); });
    WriteTo(writer);
    writer.Finish();
  };
  if (is_accounts_file) {
    const auto will_replace = [this](const ContentMark& content) {
      if (witness_ != nullptr) witness_->WillReplace(content);
    };
    if (!file_.Replace(produce, will_replace)) return file_.Failure();
    file_content_ = file_.ContentWritten();
  } else if (const WriteReport report = files.WriteAtomically(path, WriteTerms{}, produce);
             !report) {
    return SaveFailureOf(*report.failure);
  }
  operation.Finish();
  files.SetCustomBadgeIconForFilePath(path, "accountsfilebadge");
  return std::nullopt;
}

AccountsStore::Snapshot AccountsStore::CurrentSnapshot() const {
  Snapshot snapshot{list_changes_.Revision(), {}};
  snapshot.account_revisions.reserve(accounts().size());
  for (const auto& account : accounts()) {
    snapshot.account_revisions.push_back(account->Revision());
  }
  return snapshot;
}

bool AccountsStore::HasUnsavedChanges() const {
  return accounts_ && ((save_failure_ && file_content_) || saved_ != CurrentSnapshot());
}

}  // namespace tallyfold
