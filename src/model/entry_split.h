#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/change_kinds.h"
#include "plist/output.h"
#include "plist/value.h"

namespace tallyfold {

// The division of one entry's amount over ten lines, each with a description, a payee or source
// and an amount. Unused lines are empty and 0. Which lines are switched on is neither stored nor
// copied.
class LDGRAccountEntrySplit {
 public:
  static constexpr std::size_t kLines = 10;

  LDGRAccountEntrySplit() = default;
  // Missing keys and values of a wrong kind are logged and leave their lines empty. Lists shorter
  // than ten fill the first lines; of longer ones the first ten count, and each surplus amount is
  // logged.
  explicit LDGRAccountEntrySplit(const std::optional<plist::Dictionary>& dictionary);
  LDGRAccountEntrySplit(const LDGRAccountEntrySplit&) = delete;
  LDGRAccountEntrySplit& operator=(const LDGRAccountEntrySplit&) = delete;

  // A copy of its own without the states; null for null.
  [[nodiscard]] static std::shared_ptr<LDGRAccountEntrySplit> splitWithSplit(
      const LDGRAccountEntrySplit* split);

  // A copy of its own with the states; null for null.
  [[nodiscard]] static std::shared_ptr<LDGRAccountEntrySplit> ImageOf(
      const LDGRAccountEntrySplit* split);
  // In what the stored lines of the two differ; a null one has no lines.
  [[nodiscard]] static ChangeKinds Difference(const LDGRAccountEntrySplit* a,
                                              const LDGRAccountEntrySplit* b) noexcept;
  // How much memory it takes, in bytes, roughly.
  [[nodiscard]] std::size_t MemorySize() const noexcept;

  void WriteTo(plist::Output& output) const;
  [[nodiscard]] plist::Dictionary asDictionary() const;

  // `index` is 0 to 9; anything else is ignored, as is none.
  void SetDescription(std::optional<std::string_view> description, std::size_t index);
  void SetToFrom(std::optional<std::string_view> to_from, std::size_t index);
  // Stores the amount rounded to cents. An index above 9 is logged and stores nothing.
  void SetAmount(double amount, std::size_t index);
  // An index above 9 changes nothing.
  void SetEnabled(bool enabled, std::size_t index);

  // "", 0.0 and false for an index above 9. A text stays where it is until its own line changes.
  [[nodiscard]] const std::string& GetDescription(std::size_t index) const noexcept;
  [[nodiscard]] const std::string& GetToFrom(std::size_t index) const noexcept;
  [[nodiscard]] double GetAmount(std::size_t index) const noexcept;
  [[nodiscard]] bool GetEnabled(std::size_t index) const noexcept;
  // The sum of all ten amounts in line order, whatever the states.
  [[nodiscard]] double GetTotal() const noexcept { return total_; }

 private:
  struct Line {
    std::string description;
    std::string to_from;
    double amount = 0.0;
    bool enabled = false;
  };

  void ReadTexts(const plist::Array& texts, std::string Line::*member, std::string_view key);
  void ReadAmounts(const plist::Array& amounts);
  // For an index below kLines.
  [[nodiscard]] Line& MutableLine(std::size_t index);
  [[nodiscard]] const Line& LineAt(std::size_t index) const noexcept;

  // The first lines, as many as were ever used.
  std::vector<Line> lines_;
  // Asked for far more often than amounts change: every balance adds up every entry.
  double total_ = 0.0;
};

// The one-line split of older files. Its keys are plural although they hold single values.
class LDGRAccountEntrySplit_Old {
 public:
  LDGRAccountEntrySplit_Old() = default;
  // Logs under the newer split's name.
  explicit LDGRAccountEntrySplit_Old(const std::optional<plist::Dictionary>& dictionary);

  // A missing description leaves its key out.
  [[nodiscard]] plist::Dictionary asDictionary() const;

  void SetDescription(std::optional<std::string_view> description);
  [[nodiscard]] const std::optional<std::string>& GetDescription() const noexcept {
    return description_;
  }
  // Stored as given, not rounded.
  void SetAmount(double amount) noexcept { amount_ = amount; }
  [[nodiscard]] double GetAmount() const noexcept { return amount_; }

 private:
  std::optional<std::string> description_;
  double amount_ = 0.0;
};

}  // namespace tallyfold
