#include "console/printer.h"

#include <algorithm>
#include <cstddef>
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

void Printer::ShowFile(std::string_view text) {
  if (!terminal_.WritesToPerson()) return terminal_.Write(text);
  std::string lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines += Printable(line) + '\n';
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  terminal_.Write(lines);
}

void Printer::Confirm(std::string_view text) {
  if (terminal_.WritesToPerson()) terminal_.Write(Printable(text) + '\n');
}

void Printer::Note(std::string_view text) {
  terminal_.WriteError(Printable(text) + '\n');
}

}  // namespace tallyfold::console
