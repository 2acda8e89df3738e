#pragma once

#include "console/console.h"

namespace tallyfold::console {

// Where the import under review comes from and with which options it was read, what is marked, what
// is doubtful of the file, and which command would mend that.
void ShowReviewFigures(const Console& console);

}  // namespace tallyfold::console
