// Prints the manual page of the console, for the build to install.

#include <iostream>

#include "console/all_commands.h"
#include "console/manual.h"
#include "platform/version.h"

int main() {
  std::cout << tallyfold::console::ManualPage(tallyfold::console::AllSubjects(),
                                              tallyfold::kProgramVersion);
  return std::cout.flush() ? 0 : 1;
}
