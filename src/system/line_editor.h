#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tallyfold {

class LineAids;

// Lines typed at a terminal, with the keys that users of terminals know: moving and deleting,
// earlier lines, a search in them, completion.
class LineEditor {
 public:
  // What came of waiting for a character, or of reading a line.
  enum class Read : std::uint8_t {
    Done,
    Dropped,  // the user does not want the line any more
    Ended,    // there is nothing more to read, or the program is to end
  };
  // Waits for the next character and sets it. A byte that belongs to no UTF-8 is kMisfit + byte.
  using ReadCharacter = std::function<Read(char32_t& character)>;
  static constexpr char32_t kMisfit = 0xDC00;

  virtual ~LineEditor() = default;

  // The terminal is as it was when this returns. `line`, without its line feed, holds misfits as
  // the bytes they were. Null aids offer nothing.
  [[nodiscard]] virtual Read ReadLine(std::string_view prompt, const LineAids* aids,
                                      std::string& line) = 0;
  // From within ReadCharacter, after something else was written: shows prompt and line again.
  virtual void ShowAgain() = 0;

  // An editor for a terminal of these descriptors, which stay the caller's; null where the program
  // was built without one, or it cannot be had.
  [[nodiscard]] static std::unique_ptr<LineEditor> Make(int input, int output, ReadCharacter read);
};

// Takes the character off the front of `bytes` into `character`, as ReadCharacter gives it. False,
// and nothing is taken, where the rest of one may be still to come.
[[nodiscard]] bool TakeTyped(std::string_view& bytes, bool is_all, char32_t& character);

}  // namespace tallyfold
