#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace tallyfold {

// A folder of its own for one test, removed with all it holds.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "tallyfold-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) std::abort();
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  [[nodiscard]] const std::string& path() const { return path_; }
  // The path of `name` inside.
  [[nodiscard]] std::string operator/(const std::string& name) const { return path_ + '/' + name; }

 private:
  std::string path_;
};

}  // namespace tallyfold
