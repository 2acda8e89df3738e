#include "app/commands/spoken_figures.h"

#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/exchange/qif_import_controller.h"
#include "app/exchange/statement_import_state.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/tabs.h"
#include "app/views/account_summary_tab.h"
#include "app/views/balance_field.h"
#include "app/views/reconcile_tab.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

class Figures {
 public:
  explicit Figures(const LDGRPreferences& preferences) noexcept : preferences_(preferences) {}

  void Add(const std::string& caption, const std::string& figure) {
    if (!figure.empty()) spoken_ += Message("{1}:  {2} .  ", {caption, figure});
  }
  void Add(const std::string& caption, double amount) { Add(caption, TextOf(amount)); }
  void AddSentence(const std::string& sentence) {
    if (!sentence.empty()) spoken_ += Message("{1} .  ", {sentence});
  }
  [[nodiscard]] std::string TextOf(double amount) const {
    return RegisterAmountText(amount, preferences_);
  }
  [[nodiscard]] const std::string& Spoken() const noexcept { return spoken_; }

 private:
  const LDGRPreferences& preferences_;
  std::string spoken_;
};

void AddSplit(Figures& figures, const EntrySheet& sheet) {
  if (!sheet.IsSplit()) return;
  const EntrySheetState& state = sheet.State();
  figures.Add(LocalizedText("Total"), state.split_total);
  if (!state.split_target) return;
  figures.AddSentence(Message(
      "{1} of {2} left", {figures.TextOf(state.split_rest), figures.TextOf(*state.split_target)}));
}

void AddTransfer(Figures& figures, const TransferSheetState& state) {
  figures.AddSentence(state.sentence);
  for (const auto& balance : state.balances) {
    figures.Add(balance.account,
                balance.is_locked ? LocalizedText("Locked") : figures.TextOf(balance.after));
  }
}

void AddReminder(Figures& figures, const ScheduleReminderState& state) {
  const std::int32_t item =
      IndexOfItemTagged(state.balance_items, static_cast<std::int32_t>(state.typed.balance_mode));
  if (item == kNoItem) return;
  figures.Add(state.balance_items[static_cast<std::size_t>(item)].title, state.balance_text);
}

void AddBalance(Figures& figures, const BalanceFieldState& state) {
  figures.Add(state.mode_items[static_cast<std::size_t>(state.mode)].title, state.text);
}

void AddReconcile(Figures& figures, const ReconcileTabState& state) {
  if (!state.is_enabled) return;
  figures.Add(LocalizedText("Statement balance"), state.figures.statement_balance);
  figures.Add(LocalizedText("Resolved"), state.figures.resolved_balance);
  figures.Add(LocalizedText("Difference"), state.difference);
}

void AddSummary(Figures& figures, const AccountSummaryTabState& state) {
  if (state.selected_row == kNoItem) return;
  figures.Add(LocalizedText("Start balance"), state.layout.head.start_balance);
  figures.Add(LocalizedText("Total"), state.layout.total.total);
  figures.Add(LocalizedText("End balance"), state.layout.head.end_balance);
}

void AddTab(Figures& figures, LDGRController& app) {
  switch (app.tabs().State().selected) {
    case Tab::Entry:
      return AddBalance(figures, app.balanceField().State());
    case Tab::Reconcile:
      return AddReconcile(figures, app.reconcileTab().State());
    case Tab::Summary:
      return AddSummary(figures, app.summaries().State());
    case Tab::Schedule:
      return;
  }
}

}  // namespace

std::string SpokenFigures(LDGRController& app) {
  if (!app.desk().IsUnlocked()) return {};
  Figures figures(app.desk().preferences());
  const auto& import = app.sharedQIFImportController();
  switch (app.sheets().Current()) {
    case Sheet::Debit:
      AddSplit(figures, app.entries().Debit());
      break;
    case Sheet::Deposit:
      AddSplit(figures, app.entries().Deposit());
      break;
    case Sheet::Transfer:
      AddTransfer(figures, app.entries().Transfer().State());
      break;
    case Sheet::ScheduleReminder:
      AddReminder(figures, app.reminder().State());
      break;
    case Sheet::ImportOptions:
      if (import.IsStatement()) figures.AddSentence(TextOf(import.StatementOptions().proof));
      break;
    case Sheet::None:
      if (import.IsReviewing()) {
        figures.Add(LocalizedText("Marked"), import.Review().total_text);
      } else {
        AddTab(figures, app);
      }
      break;
    default:
      break;
  }
  return figures.Spoken();
}

}  // namespace tallyfold
