#pragma once

#include <string_view>
#include <vector>

#include "desktop/sheets/review_details.h"
#include "desktop/sheets/sheet.h"
#include "exchange/qif_import_entry.h"

class QCheckBox;
class QLabel;
class QPushButton;

namespace tallyfold {
class Desk;
class LDGRQIFImportController;
struct TableFormat;
}  // namespace tallyfold

namespace tallyfold::desktop {

class Chip;
class RegisterView;
class ReviewComparison;

// The review of an import: its entries, what the account may have of them already, and which of
// them come in. Sheets for single entries open over it.
class ReviewSheet final : public SheetDialog {
 public:
  // Each must outlive the sheet.
  struct Parts {
    LDGRQIFImportController& import;
    const Desk& desk;
  };

  ReviewSheet(const Parts& parts, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  // Which rows a chip counts.
  enum class Kind : std::uint8_t { Repeats, Matched, AfterToday, NewType, Undated, Balance };
  struct Counted {
    Kind kind;
    Chip* chip;
    std::vector<int> rows;
  };

  void LayOut();
  void AddChip(Kind kind, const char* name, QLatin1String icon);
  void ConnectTable();
  void ConnectButtons();
  void ShowRowMenu(const QPoint& place);
  // What is ordered of a row is ordered of all that are selected.
  [[nodiscard]] QifImportEntryList SelectedEntries() const;
  void Import();
  void Resolve();
  void Match();
  void Drop();
  void ShowChips();
  void ShowComparison();
  void ShowBalance();
  [[nodiscard]] bool IsCounted(Kind kind, int row) const;
  [[nodiscard]] TableFormat Format() const;

  Parts parts_;
  ReviewDetails details_;
  QLabel* heading_;
  QLabel* facts_;
  std::vector<Counted> chips_;
  RegisterView* table_;
  ReviewComparison* comparison_;
  QCheckBox* balance_;
  QLabel* total_;
  QPushButton* change_;
  QPushButton* drop_;
  QPushButton* match_;
  QPushButton* all_;
  QPushButton* ok_;
};

}  // namespace tallyfold::desktop
