#include "app/test_application.h"

#include "app/accounts/account_editing.h"
#include "app/entries/entry_editing.h"
#include "app/schedules/schedule_editing.h"
#include "app/services.h"
#include "model/amounts.h"
#include "storage/accounts_store.h"
#include "storage/preferences_store.h"

namespace tallyfold {

TestApplication::TestApplication(bool is_loaded)
    : app(Services{files, alerts, panels, processes, speech, field_speech, loop, notifications,
                   host, encodings}) {
  ambient.clock.SetLocal({2004, 3, 7, 12, 0, 0});
  app.SetFrontEnd(&front_end);
  if (!is_loaded) return;
  app.preferencesStore().Preferences_Init();
  static_cast<void>(app.accountsStore().Accounts_Load());
}

std::shared_ptr<LDGRAccount> TestApplication::AddAccount(const std::string& name) {
  app.accountSheet().Account_Add();
  auto typed = app.accountSheet().State().typed;
  typed.name = name;
  app.accountSheet().Read(typed);
  app.accountSheet().AccountEditSheet_OK();
  return app.desk().accounts().back();
}

std::shared_ptr<LDGRAccountEntry> TestApplication::AddDebit(double amount,
                                                            const std::string& description) {
  app.entries().New(EntryKind::Debit);
  auto typed = app.entries().Debit().State().typed;
  typed.amount = amount;
  typed.description = description;
  app.entries().Debit().Read(typed);
  app.entries().Debit().OK();
  return app.desk().SelectedEntry();
}

std::shared_ptr<LDGRAccountEntry> TestApplication::AddTransferTo(const LDGRAccount& other,
                                                                 double amount) {
  app.entries().New(EntryKind::Transfer);
  auto typed = app.entries().Transfer().State().typed;
  typed.direction = IndexOf(app.entries().Transfer().State().direction_items, "Transfer To");
  typed.account = IndexOf(app.entries().Transfer().State().account_items, other.GetName());
  typed.amount = amount;
  app.entries().Transfer().Read(typed);
  app.entries().Transfer().OK();
  return app.desk().SelectedEntry();
}

void TestApplication::AddDueSchedule() {
  auto& sheet = app.scheduleSheet();
  sheet.New(EntryKind::Debit);
  auto typed = sheet.State().typed;
  typed.start = 20040301;
  typed.amount = 5.0;
  sheet.Read(typed);
  sheet.OK();
}

std::string Line(const LDGRAccountEntry& entry) {
  const auto quoted = [](const std::string& text) { return " '" + text + "'"; };
  std::string line =
      "#" + std::to_string(entry.GetNumber()) + " " + std::to_string(entry.GetDate());
  if (entry.IsDebit()) line += " debit";
  if (entry.IsDeposit()) line += " deposit";
  if (entry.IsTransfer()) line += " transfer";
  line += " " + FixedAmountString(entry.GetStoredAmount());
  if (entry.GetType() != -1) line += " type=" + std::to_string(entry.GetType());
  if (entry.IsCheck()) line += " check";
  if (entry.GetCheckNumber() != -1) line += "=" + std::to_string(entry.GetCheckNumber());
  if (!entry.GetDescription().empty()) line += quoted(entry.GetDescription());
  if (!entry.GetToFrom().empty()) line += " to" + quoted(entry.GetToFrom());
  if (entry.GetCleared()) line += " cleared";
  if (entry.GetTaxDeductible()) line += " tax";
  if (!entry.GetNotes().empty()) line += " notes" + quoted(entry.GetNotes());
  if (const auto& split = entry.GetSplit()) {
    for (std::size_t i = 0; i < LDGRAccountEntrySplit::kLines; ++i) {
      if (split->GetDescription(i).empty() && split->GetAmount(i) == 0.0) continue;
      line += " split(" + split->GetDescription(i) + "," + split->GetToFrom(i) + "," +
              FixedAmountString(split->GetAmount(i)) + ")";
    }
  }
  if (entry.GetTransferAccount() != -1 || entry.GetTransferEntry() != -1) {
    line += " ->" + std::to_string(entry.GetTransferAccount()) + "#" +
            std::to_string(entry.GetTransferEntry());
  }
  if (entry.IsTransferOrigin()) line += " origin";
  return line;
}

std::vector<std::string> Lines(const LDGRAccount& account) {
  std::vector<std::string> lines;
  for (const auto& entry : account.GetEntries()) lines.push_back(Line(*entry));
  return lines;
}

std::vector<std::string> TitlesOf(const std::vector<PopUpItem>& items) {
  std::vector<std::string> titles;
  for (const PopUpItem& item : items) titles.push_back(item.is_separator ? "-" : item.title);
  return titles;
}

std::int32_t IndexOf(const std::vector<PopUpItem>& items, const std::string& title) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].title == title && !items[i].is_separator) return static_cast<std::int32_t>(i);
  }
  return kNoItem;
}

}  // namespace tallyfold
