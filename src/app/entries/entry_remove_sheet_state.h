#pragma once

#include <optional>
#include <string>

#include "app/face/problem.h"

namespace tallyfold {

// The question before an entry is removed, answered with OK or Cancel. Nothing is typed; the
// problem has no field: what is asked about has gone meanwhile.
struct EntryRemoveSheetState {
  // Decided by the program.
  bool is_open = false;
  std::string question;
  // What becomes of another half that cannot be told from others; "" for nothing to tell. Stays
  // after the answer, for there may be no question.
  std::string note;
  std::optional<Problem> problem;
};

// The question what becomes of the other half of a transfer whose one half is removed, answered
// with Yes (it stays as an ordinary entry), No (it is removed too) or Cancel (both stay).
struct TransferEntryRemoveSheetState {
  // Decided by the program.
  bool is_open = false;
  std::string question;
  std::optional<Problem> problem;
};

}  // namespace tallyfold
