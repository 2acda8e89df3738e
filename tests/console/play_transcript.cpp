// play_transcript FILE [--update] [--program PATH]: plays a transcript (see transcript.h, and for
// that of a program screen_transcript.h) and shows in which lines it turned out otherwise, or
// writes what was really printed into the file.

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "console/screen_transcript.h"
#include "console/transcript.h"

namespace {

std::string ReadFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), {}};
}

// The first line that differs, with some of those that follow.
void ShowDifference(const std::string& expected, const std::string& printed) {
  constexpr int kShown = 12;
  std::istringstream expected_lines(expected);
  std::istringstream printed_lines(printed);
  std::string left;
  std::string right;
  int number = 0;
  int shown = 0;
  while (shown < kShown) {
    const bool has_left = static_cast<bool>(std::getline(expected_lines, left));
    const bool has_right = static_cast<bool>(std::getline(printed_lines, right));
    if (!has_left && !has_right) break;
    ++number;
    if (shown == 0 && has_left && has_right && left == right) continue;
    std::cout << "line " << number << '\n';
    if (has_left) std::cout << "  - " << left << '\n';
    if (has_right) std::cout << "  + " << right << '\n';
    ++shown;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) return EXIT_FAILURE;
  // The player works in a folder of its own.
  const std::string path = std::filesystem::absolute(argv[1]).string();
  bool updates = false;
  std::string program;
  for (int i = 2; i < argc; ++i) {
    const std::string_view argument = argv[i];
    updates = updates || argument == "--update";
    if (argument == "--program" && i + 1 < argc) program = argv[i + 1];
  }
  try {
    const std::string expected = ReadFile(path);
    using namespace tallyfold::console;
    const std::string printed = program.empty()
                                    ? PlayTranscript(expected, TALLYFOLD_PROJECT)
                                    : PlayScreenTranscript(expected, program, TALLYFOLD_PROJECT);
    if (printed == expected) return EXIT_SUCCESS;
    if (updates) {
      std::ofstream(path, std::ios::binary) << printed;
      return EXIT_SUCCESS;
    }
    ShowDifference(expected, printed);
  } catch (const std::exception& error) {
    std::cout << path << ": " << error.what() << '\n';
  }
  return EXIT_FAILURE;
}
