#pragma once

namespace tallyfold::benchmarks {

// Runs the measurements of a program in an application of its own, off-screen unless the
// environment says otherwise, and calls `before` and `after` while there is one.
int RunInWindows(int argc, char** argv, void (*before)() = nullptr, void (*after)() = nullptr);

}  // namespace tallyfold::benchmarks
