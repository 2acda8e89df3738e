#pragma once

#include <string>

namespace tallyfold {

class LDGRController;

// The figures that whoever cannot look at them is read aloud: those of the open sheet, of the
// import under review or of the tab, each behind its caption; "" where there are none.
[[nodiscard]] std::string SpokenFigures(LDGRController& app);

}  // namespace tallyfold
