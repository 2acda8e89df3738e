#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/exchange/qif_import_controller.h"
#include "app/exchange/qif_import_state.h"
#include "console/command.h"
#include "console/console.h"

namespace tallyfold::console {

// Options that exports and imports share. Each throws CommandError with what there is to choose.

// The index of the date format written as "MM/DD/YYYY", in any case, or as "%m/%d/%Y".
[[nodiscard]] std::int32_t DateFormatNamed(const std::vector<PopUpItem>& items,
                                           std::string_view text);
// The identifier of an encoding: the number itself, its name, or a part that no other name has.
[[nodiscard]] std::int32_t EncodingNamed(const std::vector<PopUpItem>& items,
                                         std::string_view text);

// The first account of a file by that name, or all of them together.
[[nodiscard]] std::int32_t AccountItem(const std::vector<PopUpItem>& items, std::string_view name);

// Whether an amount of nothing is a deposit: "deposit" or "debit".
[[nodiscard]] bool ReadZero(std::string_view text);

// What was typed for the options sheet of an import.
struct ImportChoices {
  QifImportOptionsState::Typed typed;
  // Destinations picked, pop-up by pop-up, in the order typed.
  std::vector<std::pair<LDGRQIFImportController::SwapPopUp, std::int32_t>> swaps;
  // To read the file again in; none to leave the text as it was read.
  std::optional<std::int32_t> encoding;
};
// `shown` is what the sheet shows before; options not given keep it.
[[nodiscard]] ImportChoices ReadImportChoices(const QifImportOptionsState& shown,
                                              const Arguments& arguments);
// Types the choices into the sheet, which is open, and confirms it. Throws CommandError, with the
// review open all the same, when the file can no longer be read in another encoding.
void ConfirmImportOptions(Console& console, const ImportChoices& choices);

}  // namespace tallyfold::console
