#include "app/entries/entry_reveal.h"

#include <string_view>

#include "platform/message.h"

namespace tallyfold {
namespace {

std::string_view FormatFor(EntryReveal::Reason reason) {
  switch (reason) {
    case EntryReveal::Reason::Added:
      return "Added; hidden by the filter '{1}'";
    case EntryReveal::Reason::Changed:
      return "Changed; hidden by the filter '{1}'";
    case EntryReveal::Reason::Sought:
      break;
  }
  return "Hidden by the filter '{1}'";
}

}  // namespace

void EntryReveal::TellIfHidden(const std::shared_ptr<LDGRAccountEntry>& entry, Reason reason) {
  const Announcer::Operation operation(announcer_);
  Forget();
  const auto filter = host_.CurrentFilter();
  if (entry == nullptr || filter == nullptr || host_.IsShown(entry.get())) return;
  hidden_ = entry;
  state_.text = Message(FormatFor(reason), {filter->GetName()});
  announcer_.Changed(Area::HiddenEntry);
}

void EntryReveal::Forget() {
  if (state_.text.empty()) return;
  state_.text.clear();
  hidden_.reset();
  announcer_.Changed(Area::HiddenEntry);
}

void EntryReveal::ShowHiddenEntry() {
  const Announcer::Operation operation(announcer_);
  const auto entry = hidden_.lock();
  Forget();
  if (entry == nullptr) return;
  host_.ShowAllEntries();
  desk_.SelectEntry(entry);
}

bool EntryReveal::ShowOtherHalf() {
  const Announcer::Operation operation(announcer_);
  const auto entry = desk_.SelectedEntry();
  const auto half = links_.Transfer_LinkedEntry(entry.get());
  if (half == nullptr) return false;
  return Show(desk_.AccountWithNumber(entry->GetTransferAccount()), half);
}

bool EntryReveal::Show(const std::shared_ptr<LDGRAccount>& account,
                       const std::shared_ptr<LDGRAccountEntry>& entry) {
  const Announcer::Operation operation(announcer_);
  if (!sheets_.IsFree()) return false;
  host_.Account_Select(account);
  if (desk_.SelectedAccount() != account) return false;
  desk_.SelectEntry(entry);
  TellIfHidden(entry, Reason::Sought);
  return true;
}

}  // namespace tallyfold
