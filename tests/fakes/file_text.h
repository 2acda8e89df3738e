#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace tallyfold {

// What the file of this computer holds, byte for byte; "" where there is none.
[[nodiscard]] inline std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace tallyfold
