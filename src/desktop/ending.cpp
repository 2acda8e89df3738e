#include "desktop/ending.h"

#include <cstddef>
#include <string>
#include <vector>

#include "app/controller.h"
#include "app/exchange/export_commands.h"
#include "app/exchange/qif_import_controller.h"
#include "app/face/sheet_slot.h"
#include "app/shell/application_lock.h"
#include "app/shell/lifecycle.h"
#include "platform/alerts.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::desktop {
namespace {

// What is not saved, and why.
std::string Reasons(const AccountsStore& accounts, const PreferencesStore& preferences) {
  std::string text;
  if (const auto& failure = accounts.Failure()) {
    text = Message("The accounts could not be saved: {1}", {failure->Text()});
  }
  if (const auto& failure = preferences.Failure()) {
    if (!text.empty()) text += "\n";
    text += Message("The preferences could not be saved: {1}", {failure->Text()});
  }
  return text;
}

}  // namespace

void Ending::PutAway() {
  app_.sheets().CancelOpen();
  if (app_.sharedQIFImportController().IsReviewing()) {
    app_.sharedQIFImportController().import_Cancel_Button();
  }
}

bool Ending::IsSaved() {
  if (!app_.applicationLock().authenticated()) return true;
  const AccountsStore& accounts = app_.accountsStore();
  return !(accounts.HasAccountList() && accounts.HasUnsavedChanges()) &&
         !app_.preferencesStore().HasUnsavedChanges();
}

Ending::Outcome Ending::Save(Asker asker) {
  PutAway();
  if (asker == Asker::Nobody) nobody_is_asked_ = true;
  for (;;) {
    app_.lifecycle().applicationWillTerminate();
    if (IsSaved()) return Outcome::Saved;
    // Whoever is asked may have gone meanwhile, and the question with them.
    if (nobody_is_asked_) return Outcome::Unsaved;
    const std::size_t answer = alerts_.Run(
        {LocalizedText("Not everything could be saved."),
         Reasons(app_.accountsStore(), app_.preferencesStore()),
         {LocalizedText("Try Again"), LocalizedText("Save As..."), LocalizedText("Quit")}});
    if (answer == 1) app_.exports().SaveAs();
    if (answer == 2) return Outcome::Unsaved;
  }
}

}  // namespace tallyfold::desktop
