#include "model/text.h"
#include "platform/ambient.h"
#include "plist/reader.h"
#include "storage/accounts_store.h"
#include "storage/compressed_file.h"

namespace tallyfold {

namespace {

// More than any household's accounts; a damaged file must not fill the memory.
constexpr std::size_t kGreatestBackup = std::size_t{2} << 30;

}  // namespace

AccountsStore::RestoreResult AccountsStore::Accounts_RestoreBackup(const std::string& name) {
  if (!authenticated_) return RestoreResult::Failed;
  // A name, not a path out of the folder.
  if (name.find('/') != std::string::npos) return RestoreResult::Unreadable;
  const auto file = services_.files.Read(paths_.backup_folder + '/' + name);
  if (!file) return RestoreResult::Unreadable;
  std::string_view content = file->view();
  std::optional<std::string> uncompressed;
  if (IsCompressed(content)) {
    uncompressed = Uncompress(content, kGreatestBackup);
    if (!uncompressed) return RestoreResult::Unreadable;
    content = *uncompressed;
  }
  const plist::Dictionary dictionary = plist::Read(content).value.DictionaryValue();
  if (!dictionary.Get("accounts").IsArray() || HasNewerAccount(dictionary)) {
    return RestoreResult::Unreadable;
  }

  constexpr std::size_t kRestore = 1;
  const std::size_t answer = services_.alerts.Run(
      {LocalizedText("Restore Backup?"),
       MessageWithText(
           LocalizedText("The accounts of the backup \"%@\" will take the place of the accounts "
                         "you have now.  A copy of your present Accounts file will be kept beside "
                         "it.\n\nAre you sure you would like to restore the backup?"),
           name),
       {LocalizedText("Cancel"), LocalizedText("Restore")}});
  if (answer != kRestore) return RestoreResult::Declined;

  if (!Accounts_Save() || !file_.KeepCopy() ||
      !file_.Replace([content](ByteSink& sink) { sink.Append(content); })) {
    return RestoreResult::Failed;
  }
  return Accounts_Load() ? RestoreResult::Restored : RestoreResult::Ended;
}

}  // namespace tallyfold
