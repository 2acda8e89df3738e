#include "system/system_process_launcher.h"

#include "system/child_process.h"

namespace tallyfold {

bool SystemProcessLauncher::Launch(const std::string& program,
                                   const std::vector<std::string>& arguments) {
  return StartDetached(program, arguments);
}

}  // namespace tallyfold
