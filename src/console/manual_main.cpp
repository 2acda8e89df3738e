// Prints a manual page for the build to install: that of the console, or with the argument "window"
// that of the window.

#include <iostream>
#include <string_view>

#include "app/help/manual_page.h"
#include "console/all_commands.h"
#include "console/manual.h"
#include "platform/version.h"

int main(int argc, char** argv) {
  using namespace tallyfold;
  const bool is_window = argc > 1 && std::string_view(argv[1]) == "window";
  std::cout << (is_window ? WindowManualPage(kProgramVersion)
                          : console::ManualPage(console::AllSubjects(), kProgramVersion));
  return std::cout.flush() ? 0 : 1;
}
