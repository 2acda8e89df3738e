#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace tallyfold {
class FileSystem;
}

namespace tallyfold::console {

// The lines that a person has typed, offered again in this session and, but for those that are to
// stay in memory, in later ones: by a file in the data folder that the owner alone can read.
class LineHistory {
 public:
  // Older lines are forgotten; longer ones are not remembered.
  static constexpr std::size_t kMostLines = 1000;
  static constexpr std::size_t kLongestLine = 4096;

  enum class Kept : bool { InMemory, InFile };

  // `files` outlives this.
  explicit LineHistory(FileSystem& files);

  // Takes over what earlier sessions left.
  void Read();
  // A line that is the last one already is not added.
  void Add(std::string_view line, Kept kept);
  // Nothing typed so far is offered again, nor written.
  void Forget() noexcept { lines_.clear(); }
  // Writes the file if there is something new in it; none is made where nothing is to be kept.
  // Should that fail, the lines are lost.
  void Save();

  // The oldest first.
  [[nodiscard]] std::vector<std::string> Lines() const;

 private:
  struct Line {
    std::string text;
    Kept kept = Kept::InMemory;
  };

  FileSystem& files_;
  std::string path_;
  std::deque<Line> lines_;
  bool has_new_ = false;
};

}  // namespace tallyfold::console
