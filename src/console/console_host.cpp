#include "console/console_host.h"

namespace tallyfold::console {

void ConsoleHost::EndProcess(int status) {
  if (!status_) status_ = status;
}

}  // namespace tallyfold::console
