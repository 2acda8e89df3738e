#pragma once

#include <string>
#include <string_view>

namespace tallyfold::console {

// A transcript is sessions at the console with all that they print, as a text:
//
//   @ today 2026-03-02            a directive to the player
//   > accounts                    what is typed
//   number  name  balance         what is answered on standard output
//   ! error: line 1: ...          and on standard error
//
// Blank lines separate; those that are printed stand as "_", and form feeds as "^L". Comments are
// typed, as the console takes them. The first line typed begins a session, the next directive ends
// it. Directives take words as the console does; paths are those of the home folder:
//
//   today YYYY-MM-DD       sets the clock, which stands still at noon
//   dates FORMAT           the user's short date format
//   person                 from here on a person types and reads, at a terminal
//   width N                that many characters fit on a line of it
//   copy FILE PATH         copies a file of the project
//   put PATH TEXT          makes a file
//   replace PATH OLD NEW   puts NEW for OLD, where that stands first in the file
//   files FOLDER           lists a folder, each name as "= NAME"
//   show PATH              shows a file, each line as "= LINE" with tabs and the like escaped
//   again                  the program is started once more
//   in-use                 another copy has the data during the next session
//   fail PATH              the file can no longer be written
//   status N               with what the session ended; left out for 0
//
// PlayTranscript plays one through real sessions over real files in a temporary home folder, and
// returns it with what was really printed: the same text has passed. Files are copied from
// `project_folder`. Throws std::runtime_error for a transcript that cannot be played.
[[nodiscard]] std::string PlayTranscript(std::string_view text, const std::string& project_folder);

}  // namespace tallyfold::console
