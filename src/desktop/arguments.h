#pragma once

#include <string>
#include <vector>

namespace tallyfold::desktop {

// What the command line asks for.
struct Arguments {
  bool wants_help = false;
  bool wants_version = false;
  bool is_example = false;
  // To be imported once an account is open; "" for none.
  std::string file;
  // The first argument that is not understood; "" for none.
  std::string unknown;
};

// `words` without the name of the program. A word that begins with "-" is an option unless "--"
// stands before it.
[[nodiscard]] Arguments ReadArguments(const std::vector<std::string>& words);

// What `--help` prints.
[[nodiscard]] std::string UsageText();

}  // namespace tallyfold::desktop
