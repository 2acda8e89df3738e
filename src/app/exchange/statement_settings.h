#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "app/face/pop_up_item.h"
#include "exchange/csv_headings.h"
#include "exchange/statement_file.h"
#include "exchange/statement_reader.h"

namespace tallyfold {

// What can be chosen for a bank's file, one value each. The columns of a table are apart.
enum class StatementSetting : std::uint8_t {
  Encoding,          // a TextEncoding
  Delimiter,         // a character
  Heading,           // 0 or 1: whether the table has one
  DayOrder,          // a DayOrder
  DecimalSeparator,  // a character
  Fees,              // 0 or 1: whether they come off the amounts
  Spending,          // 0 or 1: whether money spent is positive
  Reversals,         // a ReversalSign
};
inline constexpr StatementSetting kStatementSettings[] = {
    StatementSetting::Encoding, StatementSetting::Delimiter,        StatementSetting::Heading,
    StatementSetting::DayOrder, StatementSetting::DecimalSeparator, StatementSetting::Fees,
    StatementSetting::Spending, StatementSetting::Reversals};

// A value that can be chosen: the word that stands for it where it is stored or typed, and the
// English key of what the user reads.
struct StatementWord {
  std::int32_t value = 0;
  std::string_view word;
  std::string_view title;
};

// The word for the setting itself.
[[nodiscard]] std::string_view WordOf(StatementSetting setting) noexcept;
// The English key of its title.
[[nodiscard]] std::string_view TitleOf(StatementSetting setting) noexcept;
// Its values; empty for encodings, which have numbers in place of words.
[[nodiscard]] std::span<const StatementWord> WordsOf(StatementSetting setting) noexcept;
// Its values with their titles; empty for encodings.
[[nodiscard]] std::vector<PopUpItem> ItemsOf(StatementSetting setting);
// What a column of a table may hold, in the order of a pop-up.
[[nodiscard]] std::span<const StatementWord> FieldWords() noexcept;
[[nodiscard]] std::vector<PopUpItem> FieldItems();
// None for a word that is not among them; the character itself does for a separator.
[[nodiscard]] std::optional<std::int32_t> ValueNamed(std::span<const StatementWord> words,
                                                     std::string_view word) noexcept;
// "" for a value that is not among them.
[[nodiscard]] std::string_view WordFor(std::span<const StatementWord> words,
                                       std::int32_t value) noexcept;

// None where it is left to the reader.
[[nodiscard]] std::optional<std::int32_t> ChosenValue(const StatementChoices& choices,
                                                      StatementSetting setting) noexcept;
// None leaves it to the reader again. Values are those of the setting.
void Choose(StatementChoices& choices, StatementSetting setting, std::optional<std::int32_t> value);

// What a question is about; none for the column of the amounts.
[[nodiscard]] std::optional<StatementSetting> SettingOf(StatementQuestion::Kind kind) noexcept;

}  // namespace tallyfold
