#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "app/desk.h"
#include "app/schedules/schedules_tab.h"
#include "app/shell/tabs.h"
#include "app/views/registers.h"
#include "filters/register_search.h"
#include "model/account.h"
#include "model/account_entry.h"
#include "printing/document.h"
#include "printing/pages.h"
#include "printing/paper.h"
#include "printing/text_metric.h"
#include "registers/account_table_view_data.h"
#include "storage/preferences.h"

namespace tallyfold {

enum class PrintKind : std::uint8_t {
  Register,   // the rows of the current register, in its columns and order
  Reconcile,  // the account beside its statement, and what is not resolved
  Schedules,  // the scheduled entries in the order of their list
  Summary,    // the selected summary
};

struct PrintOptions {
  Paper paper = LetterPaper();
  Orientation orientation = Orientation::Automatic;
  // Below their entries.
  bool splits = false;
  bool notes = false;
  // Of the register these rows alone, if any.
  EntryList only = {};
};

// Makes pages of the selected account. A front end draws them one after the other, on paper or on
// a screen, and keeps the account as it is meanwhile.
class Printing {
 public:
  explicit Printing(Desk& desk, const Tabs& tabs, Registers& registers,
                    const SchedulesTab& schedules) noexcept
      : desk_(desk), tabs_(tabs), registers_(registers), schedules_(schedules) {}
  Printing(const Printing&) = delete;
  Printing& operator=(const Printing&) = delete;

  // What the tab that is showing prints.
  [[nodiscard]] PrintKind KindShown() const noexcept;
  // False when no account is selected, while it or the application is locked, and for the summary
  // of an account that has none.
  [[nodiscard]] bool CanPrint(PrintKind kind) const;
  // None where CanPrint() is false. The pages tell whether they fit the paper. The metric must
  // outlive them.
  [[nodiscard]] std::optional<Pages> MakePages(PrintKind kind, const PrintOptions& options,
                                               const TextMetric& metric);

 private:
  [[nodiscard]] PrintDocument MakeDocument(PrintKind kind, const PrintOptions& options);

  Desk& desk_;
  const Tabs& tabs_;
  Registers& registers_;
  const SchedulesTab& schedules_;
};

}  // namespace tallyfold
