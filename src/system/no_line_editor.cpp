// For a build without libedit: lines are read as the terminal gives them.

#include "system/line_editor.h"

namespace tallyfold {

std::unique_ptr<LineEditor> LineEditor::Make(int /*input*/, int /*output*/,
                                             ReadCharacter /*read*/) {
  return nullptr;
}

}  // namespace tallyfold
