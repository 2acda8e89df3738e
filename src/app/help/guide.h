#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {

// A key and what it does, both as the user reads them.
struct GuideKey {
  std::string keys;
  std::string effect;
};

// A chapter of the guide: paragraphs, then keys in groups; either may be missing.
struct GuideChapter {
  struct KeyGroup {
    std::string title;
    std::vector<GuideKey> keys;
  };

  // Names the chapter in every language: "keys".
  std::string_view name;
  std::string title;
  std::vector<std::string> paragraphs;
  std::vector<KeyGroup> key_groups;
};

// What the program tells about its own use, looked up, in the order in which it is read. The window
// shows it and the manual pages are made of it.
[[nodiscard]] std::vector<GuideChapter> Guide();

// Every key of the window: those of the commands by menu, then those of its pieces.
[[nodiscard]] std::vector<GuideChapter::KeyGroup> GuideKeys();

}  // namespace tallyfold
