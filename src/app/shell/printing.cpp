#include "app/shell/printing.h"

#include "printing/reconcile_document.h"
#include "printing/register_document.h"
#include "printing/schedule_document.h"
#include "printing/summary_document.h"
#include "registers/register_look.h"
#include "summaries/account_summary.h"
#include "summaries/summary_layout.h"

namespace tallyfold {

PrintKind Printing::KindShown() const noexcept {
  switch (tabs_.State().selected) {
    case Tab::Entry:
      return PrintKind::Register;
    case Tab::Reconcile:
      return PrintKind::Reconcile;
    case Tab::Schedule:
      return PrintKind::Schedules;
    case Tab::Summary:
      return PrintKind::Summary;
  }
  return PrintKind::Register;
}

bool Printing::CanPrint(PrintKind kind) const {
  const auto account = desk_.SelectedAccount();
  return account != nullptr && desk_.IsUnlocked() && !account->IsLocked() &&
         (kind != PrintKind::Summary || account->selectedAccountSummary() != nullptr);
}

std::optional<Pages> Printing::MakePages(PrintKind kind, const PrintOptions& options,
                                         const TextMetric& metric) {
  if (!CanPrint(kind)) return std::nullopt;
  return Pages(MakeDocument(kind, options), options.paper, options.orientation, metric);
}

PrintDocument Printing::MakeDocument(PrintKind kind, const PrintOptions& options) {
  const auto account = desk_.SelectedAccount();
  const LDGRPreferences& preferences = desk_.preferences();
  RegisterPrintOptions details{.splits = options.splits,
                               .notes = options.notes,
                               .today = TodaysDateNumber(),
                               .only = options.only};
  switch (kind) {
    case PrintKind::Reconcile:
      return ReconcileDocument(account, preferences, details);
    case PrintKind::Schedules:
      return ScheduleDocument(*account, schedules_.Rows().Schedules(), preferences, details);
    case PrintKind::Summary: {
      LDGRAccountSummary& summary = *account->selectedAccountSummary();
      summary.Refresh();
      return SummaryDocument(*account, LayOutSummary(summary, RegisterDateFormat(preferences)),
                             preferences, details.today);
    }
    case PrintKind::Register:
      break;
  }
  details.filter =
      registers_.CurrentKind() == RegisterKind::Reconcile
          ? FilterInWords(account->reconcileFilterType(), account->reconcileFilterData())
          : FilterInWords(account->entryFilterType(), account->entryFilterData());
  return RegisterDocument(registers_.currentTableDataSource(), preferences, details);
}

}  // namespace tallyfold
