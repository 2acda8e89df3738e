#include "console/printer.h"

#include <string>

namespace tallyfold::console {

void Printer::Show(const Table& table) {
  terminal_.Write(terminal_.WritesToPerson() ? table.Aligned(terminal_.Width())
                                             : table.TabSeparated());
}

void Printer::ShowText(std::string_view lines) {
  if (terminal_.WritesToPerson()) return terminal_.Write(PrintablePage(lines));
  terminal_.Write(lines);
}

void Printer::Confirm(std::string_view text) {
  if (terminal_.WritesToPerson()) terminal_.Write(Printable(text) + '\n');
}

void Printer::Note(std::string_view text) {
  terminal_.WriteError(Printable(text) + '\n');
}

}  // namespace tallyfold::console
