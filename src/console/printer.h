#pragma once

#include <string_view>

#include "console/table.h"
#include "platform/terminal.h"

namespace tallyfold::console {

// Writes what commands answer, for people or for programs.
class Printer {
 public:
  explicit Printer(Terminal& terminal) noexcept : terminal_(terminal) {}

  void Show(const Table& table);
  // Lines that are finished.
  void ShowText(std::string_view lines);
  // The bytes of a file; a person sees its lines.
  void ShowFile(std::string_view text);
  // A line that tells a person what has been done. Programs do without.
  void Confirm(std::string_view text);
  // A line beside the answer, on standard error.
  void Note(std::string_view text);

 private:
  Terminal& terminal_;
};

}  // namespace tallyfold::console
