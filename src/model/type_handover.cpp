#include "model/type_handover.h"

namespace tallyfold {

namespace {
std::uint64_t times_taken = 0;
}

plist::Dictionary& TypeHandOver() {
  static plist::Dictionary dictionary;
  return dictionary;
}

std::uint64_t TimesTypesWereTaken() noexcept {
  return times_taken;
}

void NoteTypesWereTaken() noexcept {
  ++times_taken;
}

}  // namespace tallyfold
