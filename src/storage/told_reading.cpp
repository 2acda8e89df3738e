#include "storage/told_reading.h"

#include <cstddef>

#include "platform/progress.h"

namespace tallyfold {

plist::ReadResult ReadTellingProgress(std::string_view bytes) {
  LongOperation operation(LongWork::Reading, bytes.size());
  plist::ReadResult result =
      plist::Read(bytes, [](std::size_t read) { LongOperation::Reached(LongWork::Reading, read); });
  if (result.ok) operation.Finish();
  return result;
}

}  // namespace tallyfold
