#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "plist/value.h"

namespace tallyfold::plist {

struct ReadResult {
  bool ok = false;
  Value value;  // never none when ok, else none
  // What is wrong, without a full stop: English, with places "{1}" for the details. "" when
  // ok.
  std::string_view error;
  std::vector<std::string> details;
  std::size_t line = 0;  // where, from 1; line ends are LF, CR or both together; 0 when ok
};

// Hears how many bytes have been read.
using ReadTold = std::function<void(std::size_t read)>;

// Reads a whole XML property list in time linear in its size. `bytes` is needed only during the
// call.
//
// Taken are UTF-8 with or without byte-order mark and, by its mark, UTF-16. Comments, processing
// instructions and a document type without internal subset are skipped; numeric references may
// name any character, also those control characters that XML leaves out. Numbers: integers of 64
// bits, signed or not, decimal or 0x hexadecimal; reals within a double's range (0 where too small
// for one), "nan" and the infinities. White space around a number does not matter. Of a repeated
// key the last value stands, in the first one's place; an integer from 2 to the 63rd on becomes
// the greatest there is. The read report in force is told of both.
//
// Refused are binary property lists, a declared encoding other than UTF-8, UTF-16 and US-ASCII,
// entity declarations, more than kMaximumDepth levels, text outside values, bytes that are no valid
// text, and everything else that is no such file. Nothing of a refused file comes back.
//
// `told`, where it is not empty, is called now and then, with more each time; of a file in UTF-16
// with the bytes that it has as UTF-8.
[[nodiscard]] ReadResult Read(std::string_view bytes, const ReadTold& told = {});

}  // namespace tallyfold::plist
