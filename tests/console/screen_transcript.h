#pragma once

#include <string>
#include <string_view>

namespace tallyfold::console {

// A transcript of the program at a terminal, as a text:
//
//   @ width 60                    so many characters fit on a line from here on
//   @ again                       the program is started once more
//   @ files                       lists the data folder with permissions, each file as "= NAME
//   MODE" < sel<Tab> Cash<Enter>        keys, up to one after which the program asks for more or
//   ends > select Cash                 what stands on the screen then, from the row of the line on
//   @ status N                    with what the program ended
//
// A row without anything stands as "_". Keys that are no characters are named: <Enter> <Tab> <Up>
// <Down> <Left> <Right> <Home> <End> <Backspace> <Delete> <Ctrl-C>; <lt> is "<". In front of
// <Ctrl-C> a "¶" is typed, which shows that what was typed before has been read.
//
// PlayScreenTranscript plays one through the program at a pseudo-terminal, in a temporary home
// folder with the example's accounts, and returns it with what really was on the screen. It waits
// for what the program writes, never for time. Throws std::runtime_error for a transcript that
// cannot be played, and when the program writes nothing for a minute.
[[nodiscard]] std::string PlayScreenTranscript(std::string_view text, const std::string& program,
                                               const std::string& project_folder);

}  // namespace tallyfold::console
