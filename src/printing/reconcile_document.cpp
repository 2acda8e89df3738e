#include "printing/reconcile_document.h"

#include <string>
#include <utility>

#include "platform/ambient.h"
#include "platform/message.h"
#include "printing/document_head.h"
#include "printing/facts.h"
#include "printing/figures.h"
#include "registers/difference_explanation.h"
#include "registers/reconciliation.h"
#include "registers/register_rows.h"

namespace tallyfold {
namespace {

// The columns of the register that make sense here.
std::vector<TableColumn> ColumnsOfUnresolved() {
  std::vector<TableColumn> columns = DefaultRegisterColumns();
  std::erase_if(columns, [](const TableColumn& column) {
    return column.identifier == "cleared" || column.identifier == "balance";
  });
  return columns;
}

PrintTable UnresolvedEntries(const std::shared_ptr<LDGRAccount>& account,
                             const LDGRPreferences& preferences,
                             const RegisterPrintOptions& options) {
  EntryList entries;
  for (const auto& entry : account->GetEntries()) {
    if (!entry->GetCleared()) entries.push_back(entry);
  }
  RegisterRows rows;
  rows.SetAccount(account);
  rows.SetEntries(std::move(entries));
  rows.Sort({RegisterSortKey::Date, false});
  PrintTable printed = RegisterTable(std::move(rows), ColumnsOfUnresolved(), preferences, options);
  printed.title = LocalizedText("Unresolved Entries");
  return printed;
}

// The sentence, and the entries it is about.
std::string ExplanationOf(const LDGRAccount& account, const Reconciliation& reckoning,
                          const PrintedFigures& figures) {
  const auto explanation = ExplainDifference(account, reckoning);
  if (!explanation) return "";
  std::string text = ExplanationText(*explanation);
  for (const auto& entry : explanation->entries) {
    text += '\n' + figures.Date(entry->GetDate()) + "  " + figures.Amount(entry->GetAmount()) +
            "  " + entry->GetDescription();
  }
  return text;
}

}  // namespace

PrintDocument ReconcileDocument(const std::shared_ptr<LDGRAccount>& account,
                                const LDGRPreferences& preferences,
                                const RegisterPrintOptions& options) {
  const PrintedFigures figures(preferences);
  const Reconciliation reckoning = ReconciliationOf(*account);
  PrintDocument document = DocumentOf(*account, preferences, options.today);
  document.head.push_back({LocalizedText("Reconcile Report"), ""});

  Facts facts;
  facts.Add(LocalizedText("Starting balance"), figures.Amount(account->GetStartingBalance()));
  facts.Add(Counted(reckoning.resolved_debit_count, "Resolved debits, {1} entry",
                    "Resolved debits, {1} entries"),
            figures.Amount(reckoning.resolved_debits));
  facts.Add(Counted(reckoning.resolved_deposit_count, "Resolved deposits, {1} entry",
                    "Resolved deposits, {1} entries"),
            figures.Amount(reckoning.resolved_deposits));
  facts.AddResult(LocalizedText("Resolved balance"), figures.Amount(reckoning.resolved_balance));
  facts.Add(LocalizedText("Statement balance"), figures.Amount(reckoning.statement_balance));
  facts.AddResult(LocalizedText("Difference"), DifferenceText(reckoning, preferences),
                  ExplanationOf(*account, reckoning, figures));
  document.tables.push_back(facts.Table(""));

  document.tables.push_back(UnresolvedEntries(account, preferences, options));

  Facts balance;
  balance.Add(LocalizedText("Resolved balance"), figures.Amount(reckoning.resolved_balance));
  balance.Add(
      Counted(reckoning.unresolved_count, "Unresolved, {1} entry", "Unresolved, {1} entries"),
      figures.Amount(reckoning.unresolved_sum));
  balance.AddResult(LocalizedText("Account balance"),
                    figures.Amount(reckoning.resolved_balance + reckoning.unresolved_sum));
  document.tables.push_back(balance.Table(""));
  return document;
}

}  // namespace tallyfold
