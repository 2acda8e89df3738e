#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "storage/preferences.h"

namespace tallyfold {

// What a cell shows, and what that stands for.
struct TableCell {
  enum class Alignment : std::uint8_t { Natural, Right };
  // Of a cell that can be drawn as a check box.
  enum class Mark : std::uint8_t { None, Unset, Set };

  // As the user is to read it, in the format of the preferences.
  std::string text = {};
  // The amount, the count or the day (a DateNumber) that the text writes; none where it is but a
  // text.
  std::optional<double> number = {};
  Alignment alignment = Alignment::Natural;
  Mark mark = Mark::None;

  friend bool operator==(const TableCell&, const TableCell&) = default;
};

// Each part from 0 to 1.
struct RegisterColor {
  float red = 0.0F;
  float green = 0.0F;
  float blue = 0.0F;
  float alpha = 1.0F;

  friend bool operator==(const RegisterColor&, const RegisterColor&) = default;
};

// How a row is drawn.
struct RowLook {
  // That of debits, deposits or transfers; none for what is neither of them.
  std::optional<RegisterColor> color = {};
  // Of a day to come, where such rows are to differ.
  bool is_italic = false;
  // Days before today wait to be committed.
  bool is_overdue = false;

  friend bool operator==(const RowLook&, const RowLook&) = default;
};

// How a table writes days and amounts and draws its rows.
struct TableFormat {
  std::string_view date_format;  // in calendar-date conversion letters
  const LDGRPreferences& preferences;
};

// What tables ask of whoever owns them.
class TableHost {
 public:
  virtual ~TableHost() = default;
  // A locked application shows no rows.
  [[nodiscard]] virtual bool IsUnlocked() const = 0;
  [[nodiscard]] virtual const LDGRPreferences& preferences() const = 0;
};

struct TableColumn {
  // What the numbers of its cells are.
  enum class Content : std::uint8_t { Text, Day, Count, Amount, Mark };

  std::string identifier;
  double width = 0.0;           // in points
  std::string_view title = {};  // English key, of the life of the program
  Content content = Content::Text;
  // Whether a click on its head sorts.
  bool sorts = true;

  friend bool operator==(const TableColumn&, const TableColumn&) = default;
};

// In the user's language.
[[nodiscard]] std::string TitleOf(const TableColumn& column);

// Gives a table its rows. Only rows that the table shows are asked for, and each cell is made when
// it is.
class TableDataSource {
 public:
  virtual ~TableDataSource() = default;
  [[nodiscard]] virtual std::size_t numberOfRowsInTableView() const = 0;
  // Nothing for a column that there is not, here and below for a row that there is not.
  [[nodiscard]] virtual TableCell tableView(std::string_view column, std::size_t row) const = 0;
  [[nodiscard]] virtual RowLook LookOfRow(std::size_t row) const = 0;
  // What the row says where it is read aloud; "" where its cells are all there is to say.
  [[nodiscard]] virtual std::string SpeakableRow(std::size_t /*row*/) const { return {}; }
};

}  // namespace tallyfold
