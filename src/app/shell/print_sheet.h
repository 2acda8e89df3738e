#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/desk.h"
#include "app/face/announcer.h"
#include "app/face/pop_up_item.h"
#include "app/face/sheet_slot.h"
#include "app/shell/printing.h"
#include "app/views/registers.h"
#include "model/account_entry.h"
#include "printing/pages.h"
#include "printing/paper.h"
#include "printing/text_metric.h"

namespace tallyfold {

// How the user wants pages, until he wants them otherwise.
struct PrintChoices {
  // The name of one of the sizes that PrintSheet knows; any other is Letter.
  std::string paper = "letter";
  Orientation orientation = Orientation::Automatic;
  // Of a register, below its entries.
  bool splits = false;
  bool notes = false;

  friend bool operator==(const PrintChoices&, const PrintChoices&) = default;
};

struct PrintSheetState {
  struct Typed {
    // Of a register the selected rows alone.
    bool only_selected = false;
    PrintChoices choices;
  };
  Typed typed;

  // Decided by the program.
  bool is_open = false;
  PrintKind kind = PrintKind::Register;
  // "Register of Joint checking", and how much of it there is: "23 entries".
  std::string heading;
  std::string facts;
  // What of a register can be printed; the second is "" where no row of it is selected.
  std::string all_title;
  std::string selected_title;
  // Whether there are lines of splits and notes to be had.
  bool has_details = false;
  // The tags number the sizes, and the values of Orientation.
  std::vector<PopUpItem> papers;
  std::vector<PopUpItem> orientations;
  // For a file of the pages.
  std::string file_name;
};

// The sheet before pages are printed: what the tab that shows prints, on which paper and with what.
class PrintSheet {
 public:
  // All must outlive the sheet.
  PrintSheet(Desk& desk, Printing& printing, const Registers& registers, SheetSlot& sheets,
             Announcer& announcer) noexcept
      : desk_(desk),
        printing_(printing),
        registers_(registers),
        sheets_(sheets),
        announcer_(announcer) {}
  PrintSheet(const PrintSheet&) = delete;
  PrintSheet& operator=(const PrintSheet&) = delete;

  // The paper whose item has that tag, and the tag of a paper; the first for one that there is not.
  [[nodiscard]] static std::string PaperTagged(std::int32_t tag);
  [[nodiscard]] static std::int32_t TagOfPaper(std::string_view name);

  // Filled while the sheet is open.
  [[nodiscard]] const PrintSheetState& State() const noexcept { return state_; }
  // Of the last sheet, or what the next one begins with.
  [[nodiscard]] const PrintChoices& Choices() const noexcept { return choices_; }
  void SetChoices(PrintChoices choices);

  // `selected` are the selected rows of the register: several are what is printed, one can be
  // chosen. False while a sheet is open and where nothing can be printed.
  bool Open(const EntryList& selected = {});
  void Read(const PrintSheetState::Typed& typed);
  void Close();

  // As they were typed last. None when the sheet is closed, or the account cannot be printed any
  // more. Reckons summaries anew and may take long. The metric must outlive the pages.
  [[nodiscard]] std::optional<Pages> MakePages(const TextMetric& metric);
  // Why such pages cannot be printed; "" where they can.
  [[nodiscard]] static std::string ProblemText(Pages::Problem problem);

 private:
  void Describe();

  Desk& desk_;
  Printing& printing_;
  const Registers& registers_;
  SheetSlot& sheets_;
  Announcer& announcer_;
  PrintChoices choices_;
  // Those of the selected entries that are rows of the register.
  EntryList selected_;
  PrintSheetState state_;
};

}  // namespace tallyfold
