#include "model/type_handover.h"

namespace tallyfold {

plist::Dictionary& TypeHandOver() {
  static plist::Dictionary dictionary;
  return dictionary;
}

}  // namespace tallyfold
