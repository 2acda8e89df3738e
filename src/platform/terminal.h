#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tallyfold {

// Where a program that talks in lines reads from and writes to: a person at a terminal, or files
// and pipes.
class Terminal {
 public:
  virtual ~Terminal() = default;

  // Whether a person types the lines, and whether one sees the output as it comes.
  [[nodiscard]] virtual bool ReadsFromPerson() const = 0;
  [[nodiscard]] virtual bool WritesToPerson() const = 0;

  // Longer lines come back cut to one byte more than this.
  static constexpr std::size_t kLongestLine = 1024UL * 1024UL;

  // The next line without its line feed; none at the end of the input and once the program has
  // been asked to end. The prompt is shown to a person only. While a person thinks, the run loop is
  // served; while a file or pipe is read, it is not.
  [[nodiscard]] virtual std::optional<std::string> ReadLine(std::string_view prompt) = 0;
  // As ReadLine, but what a person types is not shown.
  [[nodiscard]] virtual std::optional<std::string> ReadSecret(std::string_view prompt) = 0;

  // Written at once, in the order of the calls. What cannot be written is lost: work does not stop
  // because nobody listens any more.
  virtual void Write(std::string_view text) = 0;
  virtual void WriteError(std::string_view text) = 0;
};

}  // namespace tallyfold
