#include "system/process_limits.h"

#include <signal.h>
#include <sys/prctl.h>

namespace tallyfold {

void SurviveFileSizeLimit() noexcept {
  ::signal(SIGXFSZ, SIG_IGN);
}

void KeepMemoryPrivate() noexcept {
  // A limit on the size of such pictures would not bind a system that hands them to a program.
  ::prctl(PR_SET_DUMPABLE, 0, 0, 0, 0);
}

}  // namespace tallyfold
