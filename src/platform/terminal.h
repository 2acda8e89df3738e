#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfold {

class LineAids;  // platform/line_aids.h

// Where a program that talks in lines reads from and writes to: a person at a terminal, or files
// and pipes.
class Terminal {
 public:
  virtual ~Terminal() = default;

  // Whether a person types the lines, and whether one sees the output as it comes.
  [[nodiscard]] virtual bool ReadsFromPerson() const = 0;
  [[nodiscard]] virtual bool WritesToPerson() const = 0;
  // How many characters fit on a line of the screen; 0 where nobody sees the output, or nothing is
  // known of the screen.
  [[nodiscard]] virtual std::size_t Width() const = 0;

  // Longer lines come back cut to one byte more than this.
  static constexpr std::size_t kLongestLine = 1024UL * 1024UL;

  // The next line without its line feed; none at the end of the input and once the program has
  // been asked to end. The prompt is shown to a person only. While a person thinks, the run loop is
  // served; while a file or pipe is read, it is not. A line that a person drops comes back empty.
  [[nodiscard]] virtual std::optional<std::string> ReadLine(std::string_view prompt) = 0;
  // As ReadLine, but where lines can be edited, with those aids. Both are used during the call
  // only.
  [[nodiscard]] virtual std::optional<std::string> ReadCommand(std::string_view prompt,
                                                               const LineAids& aids) = 0;
  // As ReadLine, but what a person types is not shown, and begun anew when it is dropped.
  [[nodiscard]] virtual std::optional<std::string> ReadSecret(std::string_view prompt) = 0;

  // Written at once, in the order of the calls. What cannot be written is lost, and HasLostOutput()
  // says so of standard output: work does not stop because nobody listens any more.
  virtual void Write(std::string_view text) = 0;
  virtual void WriteError(std::string_view text) = 0;
  // Writes a line while a person thinks about what to type: the prompt stands there already, and
  // comes again below with what was typed behind it.
  virtual void WriteMeanwhile(std::string_view line) = 0;
  [[nodiscard]] virtual bool HasLostOutput() const = 0;
};

}  // namespace tallyfold
