#include "app/shell/print_sheet.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "model/account.h"
#include "platform/ambient.h"
#include "platform/message.h"
#include "registers/reconciliation.h"
#include "summaries/account_summary.h"

namespace tallyfold {
namespace {

struct PaperChoice {
  std::string_view name;
  std::string_view title;  // English key
  PaperSize size;
};
constexpr PaperChoice kPapers[] = {
    {"letter", "US Letter", {612.0, 792.0}},
    {"legal", "US Legal", {612.0, 1008.0}},
    {"tabloid", "Tabloid", {792.0, 1224.0}},
    {"a3", "A3", {842.0, 1191.0}},
    {"a4", "A4", {595.0, 842.0}},
    {"a5", "A5", {420.0, 595.0}},
};

struct OrientationChoice {
  Orientation orientation;
  std::string_view title;  // English key
};
constexpr OrientationChoice kOrientations[] = {
    {Orientation::Automatic, "Automatic"},
    {Orientation::Portrait, "Portrait"},
    {Orientation::Landscape, "Landscape"},
};

std::string EntriesInWords(std::size_t count) {
  return Counted(count, "{1} entry", "{1} entries");
}

}  // namespace

std::string PrintSheet::PaperTagged(std::int32_t tag) {
  const bool is_known = tag >= 0 && static_cast<std::size_t>(tag) < std::size(kPapers);
  return std::string(kPapers[is_known ? tag : 0].name);
}

std::int32_t PrintSheet::TagOfPaper(std::string_view name) {
  const auto* const found = std::ranges::find(kPapers, name, &PaperChoice::name);
  return found == std::end(kPapers) ? 0 : static_cast<std::int32_t>(found - kPapers);
}

void PrintSheet::SetChoices(PrintChoices choices) {
  choices.paper = PaperTagged(TagOfPaper(choices.paper));
  choices_ = std::move(choices);
}

bool PrintSheet::Open(const EntryList& selected) {
  const Announcer::Operation operation(announcer_);
  const PrintKind kind = printing_.KindShown();
  if (!printing_.CanPrint(kind) || !sheets_.Open(Sheet::Print, [this] { Close(); })) return false;
  state_ = PrintSheetState();
  state_.is_open = true;
  state_.kind = kind;
  state_.typed.choices = choices_;
  selected_.clear();
  if (kind == PrintKind::Register && !selected.empty()) {
    const auto& rows = registers_.currentTableDataSource().GetEntries();
    const std::unordered_set<std::shared_ptr<LDGRAccountEntry>> shown(rows.begin(), rows.end());
    std::ranges::copy_if(selected, std::back_inserter(selected_),
                         [&shown](const auto& entry) { return shown.contains(entry); });
  }
  state_.typed.only_selected = selected_.size() > 1;
  for (const PaperChoice& paper : kPapers) {
    state_.papers.push_back({LocalizedText(paper.title), TagOfPaper(paper.name)});
  }
  for (const auto& [orientation, title] : kOrientations) {
    state_.orientations.push_back({LocalizedText(title), static_cast<std::int32_t>(orientation)});
  }
  Describe();
  announcer_.Changed(Area::PrintSheet);
  return true;
}

void PrintSheet::Describe() {
  const LDGRAccount& account = *desk_.SelectedAccount();
  const std::string& name = account.GetName();
  switch (state_.kind) {
    case PrintKind::Register: {
      const std::size_t count = registers_.currentTableDataSource().GetEntries().size();
      state_.heading = Message("Register of {1}", {name});
      state_.facts = EntriesInWords(count);
      state_.all_title = Message("All {1} shown", {std::to_string(count)});
      if (!selected_.empty()) {
        state_.selected_title = Counted(selected_.size(), "The selected one", "The {1} selected");
      }
      state_.has_details = true;
      break;
    }
    case PrintKind::Reconcile:
      state_.heading = Message("Reconcile report of {1}", {name});
      state_.facts = Counted(ReconciliationOf(account).unresolved_count, "{1} unresolved entry",
                             "{1} unresolved entries");
      break;
    case PrintKind::Schedules:
      state_.heading = Message("Scheduled entries of {1}", {name});
      state_.facts =
          Counted(account.GetSchedules().size(), "{1} scheduled entry", "{1} scheduled entries");
      break;
    case PrintKind::Summary:
      state_.heading = Message("Summary of {1}", {name});
      state_.facts = account.selectedAccountSummary()->name();
      // Names are indented as their list shows them.
      state_.facts.erase(0, state_.facts.find_first_not_of(' '));
      break;
  }
  state_.file_name = name + ".pdf";
}

void PrintSheet::Read(const PrintSheetState::Typed& typed) {
  if (!state_.is_open) return;
  const Announcer::Operation operation(announcer_);
  SetChoices(typed.choices);
  state_.typed.choices = choices_;
  state_.typed.only_selected = typed.only_selected && !selected_.empty();
  announcer_.Changed(Area::PrintSheet);
}

void PrintSheet::Close() {
  if (!state_.is_open) return;
  const Announcer::Operation operation(announcer_);
  state_ = PrintSheetState();
  selected_.clear();
  announcer_.Changed(Area::PrintSheet);
  sheets_.Close(Sheet::Print);
}

std::optional<Pages> PrintSheet::MakePages(const TextMetric& metric) {
  if (!state_.is_open) return std::nullopt;
  const PrintChoices& choices = state_.typed.choices;
  const auto paper = static_cast<std::size_t>(TagOfPaper(choices.paper));
  return printing_.MakePages(state_.kind,
                             {.paper = PaperOfSize(kPapers[paper].size, kPaperMargins),
                              .orientation = choices.orientation,
                              .splits = state_.has_details && choices.splits,
                              .notes = state_.has_details && choices.notes,
                              .only = state_.typed.only_selected ? selected_ : EntryList()},
                             metric);
}

std::string PrintSheet::ProblemText(Pages::Problem problem) {
  switch (problem) {
    case Pages::Problem::None:
      return "";
    case Pages::Problem::TooNarrow:
      return LocalizedText(
          "This paper is too narrow: days and amounts are never cut. Turn it, choose a larger one, "
          "or hide columns.");
    case Pages::Problem::TooLow:
      return LocalizedText(
          "This paper is too low: below its head there is no room. Turn it or choose a larger "
          "one.");
  }
  return "";
}

}  // namespace tallyfold
