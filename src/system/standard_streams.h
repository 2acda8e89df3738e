#pragma once

namespace tallyfold {

// Makes sure that standard input, output and error are open, the missing ones to nothing. To be
// called before anything is opened: a data file that gets the number of a closed standard output
// would be written full of answers.
void OpenMissingStandardStreams() noexcept;

}  // namespace tallyfold
