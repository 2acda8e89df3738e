#pragma once

#include <string_view>

namespace tallyfold {

// Where problems that are not the user's to answer are written, a fixed English line each.
class SystemLog {
 public:
  virtual ~SystemLog() = default;
  virtual void Write(std::string_view line) = 0;
};

}  // namespace tallyfold
