#pragma once

#include <stdexcept>

namespace tallyfold::console {

// Why a command could not do what was asked, in words for the user: what was given and what was
// expected. Ends the command; the session reports it with the number of the line.
class CommandError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tallyfold::console
