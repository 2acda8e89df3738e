#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "storage/save_failure.h"

namespace tallyfold {
class LDGRController;
}

namespace tallyfold::console {

class Printer;

// None of these says anything of a copy that only looks.

// What a save that was just tried has left unsaved, and why: "the accounts could not be saved:
// writing the new file: No space left on device". Empty when nothing would be lost.
[[nodiscard]] std::vector<std::string> UnsavedTexts(LDGRController& controller);
// The same in one line.
[[nodiscard]] std::string UnsavedText(LDGRController& controller);
// What the last save failed to write, in such a line, whether or not anything is lost by that.
[[nodiscard]] std::string FailedSaveText(LDGRController& controller);
// ": " and the reason; "" for none.
[[nodiscard]] std::string ReasonOf(const std::optional<SaveFailure>& failure);

// What the end of a locked application, which writes nothing, loses.
[[nodiscard]] std::vector<std::string> LostTexts(LDGRController& controller);
// What is not in the accounts file but in the log of an interrupted session; "" for nothing.
[[nodiscard]] std::string HeldText(LDGRController& controller);

// Tells of copies that were kept of what someone else had written into the program's files, and of
// changes that nothing would bring back.
class KeptNotes {
 public:
  // Both must outlive this.
  KeptNotes(LDGRController& controller, Printer& printer) noexcept
      : controller_(controller), printer_(printer) {}

  // Those of the run before.
  void TellEarlier();
  // Those that have not been told yet, a recovery log that was kept aside, and whether changes have
  // become unprotected.
  void TellNew();

 private:
  LDGRController& controller_;
  Printer& printer_;
  std::size_t accounts_told_ = 0;
  std::size_t preferences_told_ = 0;
  bool log_told_ = false;
  bool is_protected_ = true;
};

}  // namespace tallyfold::console
