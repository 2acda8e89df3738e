// The reader takes any bytes without harm, and what it takes is written and read back the same.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "plist/reader.h"
#include "plist/writer.h"

namespace plist = tallyfold::plist;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const plist::ReadResult first = plist::Read(bytes);
  if (!first.ok) {
    if (first.error.empty() || first.line == 0 || !first.value.IsNone()) std::abort();
    return 0;
  }
  const std::string written = plist::ToXml(first.value);
  const plist::ReadResult second = plist::Read(written);
  if (!second.ok || second.value != first.value) std::abort();
  if (plist::ToXml(second.value) != written) std::abort();
  if (first.value.DeepCopy() != first.value) std::abort();
  return 0;
}
