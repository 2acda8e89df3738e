#include "console/save_notes.h"

#include <utility>

#include "app/controller.h"
#include "app/shell/lifecycle.h"
#include "app/shell/recovery.h"
#include "console/printer.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold::console {
namespace {

// The file of which a copy was kept.
std::string OriginalOf(const std::string& copy) {
  return copy.substr(0, copy.rfind(".kept-"));
}

std::vector<std::string> NotSavedTexts(LDGRController& controller, bool names_accounts,
                                       bool names_preferences) {
  if (controller.lifecycle().OnlyLooks()) return {};
  std::vector<std::string> texts;
  if (names_accounts) {
    texts.push_back("the accounts could not be saved" +
                    ReasonOf(controller.accountsStore().Failure()));
  }
  if (names_preferences) {
    texts.push_back("the preferences could not be saved" +
                    ReasonOf(controller.preferencesStore().Failure()));
  }
  return texts;
}

std::string JoinedTexts(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", and ") + text;
  return joined;
}

}  // namespace

std::vector<std::string> UnsavedTexts(LDGRController& controller) {
  return NotSavedTexts(controller, controller.accountsStore().HasUnsavedChanges(),
                       controller.preferencesStore().HasUnsavedChanges());
}

std::string UnsavedText(LDGRController& controller) {
  return JoinedTexts(UnsavedTexts(controller));
}

std::string FailedSaveText(LDGRController& controller) {
  return JoinedTexts(NotSavedTexts(controller, controller.accountsStore().Failure().has_value(),
                                   controller.preferencesStore().Failure().has_value()));
}

std::string ReasonOf(const std::optional<SaveFailure>& failure) {
  return failure ? ": " + failure->Text() : std::string();
}

std::vector<std::string> LostTexts(LDGRController& controller) {
  if (controller.lifecycle().OnlyLooks()) return {};
  const std::string ending = " is lost, since a locked application writes nothing";
  const AccountsStore& accounts = controller.accountsStore();
  const PreferencesStore& preferences = controller.preferencesStore();
  std::vector<std::string> texts;
  if (accounts.HasUnsavedChanges() && !controller.recovery().HoldsChanges()) {
    texts.push_back("what changed in the accounts since they were saved" + ending +
                    ReasonOf(accounts.Failure()));
  }
  if (preferences.HasUnsavedChanges()) {
    texts.push_back("what changed in the preferences since they were saved" + ending +
                    ReasonOf(preferences.Failure()));
  }
  return texts;
}

std::string HeldText(LDGRController& controller) {
  if (controller.lifecycle().OnlyLooks()) return "";
  if (!controller.accountsStore().HasUnsavedChanges() || !controller.recovery().HoldsChanges()) {
    return "";
  }
  return "what changed in the accounts since they were saved comes back at the next launch";
}

void KeptNotes::TellEarlier() {
  for (const auto* copies : {&controller_.accountsStore().EarlierCopiesOfOthers(),
                             &controller_.preferencesStore().EarlierCopiesOfOthers()}) {
    for (const std::string& copy : *copies) {
      printer_.Note("When " + OriginalOf(copy) +
                    " was saved the last time, someone else had changed it; what it held is kept "
                    "as " +
                    copy);
    }
  }
}

void KeptNotes::TellNew() {
  const auto tell = [this](const std::vector<std::string>& copies, std::size_t& told) {
    for (; told < copies.size(); ++told) {
      printer_.Note(OriginalOf(copies[told]) +
                    " had been changed by someone else before it was saved; what it held is kept "
                    "as " +
                    copies[told]);
    }
  };
  tell(controller_.accountsStore().CopiesOfOthers(), accounts_told_);
  tell(controller_.preferencesStore().CopiesOfOthers(), preferences_told_);

  const std::string log = controller_.recovery().KeptSinceNotice();
  if (!log.empty() && !std::exchange(log_told_, true)) {
    printer_.Note("the log of changes from before an interruption was kept as " + log);
  }
  const bool was_protected = std::exchange(
      is_protected_, controller_.recovery().protection() != RecoveryLog::Protection::Off);
  if (was_protected && !is_protected_) {
    printer_.Note(
        "what changes from here on is not protected: an interruption before the next save "
        "would lose it");
  }
}

}  // namespace tallyfold::console
