#include "desktop/arguments.h"

#include "desktop/example.h"

namespace tallyfold::desktop {

Arguments ReadArguments(const std::vector<std::string>& words) {
  Arguments read;
  bool are_files = false;
  for (const std::string& word : words) {
    if (!are_files && word == "--") {
      are_files = true;
    } else if (!are_files && word == "--help") {
      read.wants_help = true;
    } else if (!are_files && word == "--version") {
      read.wants_version = true;
    } else if (!are_files && word == kExampleArgument) {
      read.is_example = true;
    } else if ((!are_files && word.starts_with('-')) || !read.file.empty() || word.empty()) {
      if (read.unknown.empty()) read.unknown = word.empty() ? "\"\"" : word;
    } else {
      read.file = word;
    }
  }
  return read;
}

std::string UsageText() {
  return "Usage: tallyfold [--help | --version] [FILE]\n"
         "Keeps bank accounts as a check register, in a window.\n\n"
         "  FILE       to be imported once an account is open\n"
         "  --help     tells this and ends\n"
         "  --version  tells the version and ends\n\n"
         "The toolkit's own options, as -style, are taken too.\n";
}

}  // namespace tallyfold::desktop
