#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tallyfold {

// The currencies of a table by small numbers, and which of them the most rows have.
class CsvCurrencies {
 public:
  // What a row is in that names no currency, and one that names several.
  static constexpr std::uint8_t kNone = 0;
  static constexpr std::uint8_t kSeveral = 255;

  // What a row that was in `before` is in with this currency as well.
  [[nodiscard]] std::uint8_t With(std::uint8_t before, std::string_view currency);
  // A row has it.
  void Count(std::string_view currency);
  // That of the most rows, the first of as many; kNone where none was counted.
  [[nodiscard]] std::uint8_t Main() const noexcept;
  // "" for none.
  [[nodiscard]] std::string_view Name(std::uint8_t number) const noexcept;

 private:
  // kSeveral for one of more than are told apart.
  [[nodiscard]] std::uint8_t NumberOf(std::string_view currency);

  std::vector<std::pair<std::string, std::size_t>> known_;  // from number 1 on, with their rows
};

}  // namespace tallyfold
