#include "system/standard_error_log.h"

#include <algorithm>
#include <iostream>

namespace tallyfold {

void StandardErrorLog::Write(std::string_view line) {
  std::string clean(line);
  std::replace_if(
      clean.begin(), clean.end(),
      [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, '?');
  std::cerr << "tallyfold: " + clean + '\n' << std::flush;
  if (lines_.size() == kKeptLines) lines_.pop_front();
  lines_.push_back(std::move(clean));
}

}  // namespace tallyfold
