#pragma once

namespace tallyfold {

// A file that would outgrow the limit set for files fails to be written, instead of ending the
// program before it has said so.
void SurviveFileSizeLimit() noexcept;

// No picture of the memory is left behind by a crash, nor can other programs of the user look into
// it: what a locked program hides is there.
void KeepMemoryPrivate() noexcept;

}  // namespace tallyfold
