#pragma once

namespace tallyfold::desktop {

// Shows the tables of summaries to assistive technology as lists: an item for each line, the
// current one with the focus.
void InstallSummaryTableAccess();

}  // namespace tallyfold::desktop
