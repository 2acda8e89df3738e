#pragma once

#include <string>

namespace tallyfold {
class ProcessLauncher;
}

namespace tallyfold::desktop {

// The argument with which a copy of the program knows that it shows the example.
inline constexpr const char* kExampleArgument = "--example";

// Opens the example household in a process of its own, whose home folder is a new one with a fresh
// copy of it. False when that could not be done.
bool OpenExample(ProcessLauncher& processes, const std::string& program);

}  // namespace tallyfold::desktop
