#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "fakes/file_text.h"

namespace tallyfold {

// Compares a text with the file tests/data/<name>. Where they differ, the failure names the command
// that shows how, and the one that accepts it.
inline testing::AssertionResult IsAsInFile(const std::string& text, const std::string& name) {
  const std::string expected_path = std::string(TALLYFOLD_TEST_DATA) + '/' + name;
  const std::string expected = FileText(expected_path);
  if (std::filesystem::exists(expected_path) && text == expected)
    return testing::AssertionSuccess();
  const std::filesystem::path actual_path = std::filesystem::path(testing::TempDir()) / name;
  std::filesystem::create_directories(actual_path.parent_path());
  std::ofstream(actual_path, std::ios::binary) << text;
  return testing::AssertionFailure()
         << name << " differs\n  diff -u " << expected_path << ' ' << actual_path.string()
         << "\n  cp " << actual_path.string() << ' ' << expected_path;
}

}  // namespace tallyfold
