#include "console/line_history.h"

#include <algorithm>

#include "model/clean_text.h"
#include "platform/file_system.h"
#include "storage/data_paths.h"

namespace tallyfold::console {

LineHistory::LineHistory(FileSystem& files)
    : files_(files), path_(DataPaths(files.HomeFolder()).history_file) {}

void LineHistory::Read() {
  const auto contents = files_.Read(path_);
  if (!contents) return;
  for (std::string_view rest = contents->view(); !rest.empty();) {
    const std::size_t end = std::min(rest.find('\n'), rest.size());
    const std::string_view line = rest.substr(0, end);
    // Someone else may have written into it.
    if (CleanText(line) == line) Add(line, Kept::InFile);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  has_new_ = false;
}

void LineHistory::Add(std::string_view line, Kept kept) {
  if (line.empty() || line.size() > kLongestLine || line.find('\n') != std::string_view::npos) {
    return;
  }
  if (!lines_.empty() && lines_.back().text == line) return;
  lines_.push_back({std::string(line), kept});
  if (lines_.size() > kMostLines) lines_.pop_front();
  has_new_ = has_new_ || kept == Kept::InFile;
}

void LineHistory::Save() {
  if (!has_new_) return;
  std::string content;
  for (const Line& line : lines_) {
    if (line.kept == Kept::InFile) content += line.text + '\n';
  }
  if (content.empty()) return;
  static_cast<void>(files_.WriteAtomically(path_, NewFileMode::Private, content));
  has_new_ = false;
}

std::vector<std::string> LineHistory::Lines() const {
  std::vector<std::string> texts;
  texts.reserve(lines_.size());
  for (const Line& line : lines_) texts.push_back(line.text);
  return texts;
}

}  // namespace tallyfold::console
