#pragma once

#include <QTimer>
#include <cstdint>
#include <functional>
#include <vector>

#include "app/views/account_summary_sheet.h"
#include "desktop/sheets/sheet.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QScrollArea;

namespace tallyfold {
class Desk;
}

namespace tallyfold::desktop {

class DateField;
class Form;

// The options of a summary, and the summary as it comes out of them.
class SummaryOptionsSheet final : public SheetDialog {
 public:
  // Each must outlive the sheet.
  struct Parts {
    AccountSummarySheet& sheet;
    const Desk& desk;
    // Makes what shows a computed summary, and shows one there.
    std::function<QWidget*(QWidget* parent)> make_page;
    std::function<void(QWidget* page, const SummaryLayout& layout)> show_page;
  };

  SummaryOptionsSheet(Parts parts, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  using Typed = AccountSummarySheetState::Typed;

  // A pop-up and the number that is chosen in it.
  struct Choice {
    QComboBox* pop_up;
    std::int32_t Typed::*number;
    std::vector<PopUpItem> AccountSummarySheetState::*items;
  };
  struct Mark {
    QCheckBox* box;
    bool Typed::*is_set;
  };

  void paintEvent(QPaintEvent* event) override;
  void Painted() override;
  void MakeForm();
  void AddChoice(const QString& label, const char* name, std::int32_t Typed::*number,
                 std::vector<PopUpItem> AccountSummarySheetState::*items);
  QComboBox* MakeChoice(std::int32_t Typed::*number,
                        std::vector<PopUpItem> AccountSummarySheetState::*items);
  QCheckBox* MakeMark(const QString& title, const char* name, bool Typed::*is_set);
  void Read();
  void ShowResult();

  Parts parts_;
  QTimer result_timer_;
  Form* form_;
  QLineEdit* name_;
  DateField* start_;
  DateField* end_;
  QComboBox* filter_type_ = nullptr;
  QLineEdit* filter_text_;
  std::vector<Choice> choices_;
  std::vector<Mark> marks_;
  QScrollArea* area_ = nullptr;
  QWidget* result_ = nullptr;
  // Something was read since the result was shown.
  bool is_stale_ = false;
};

}  // namespace tallyfold::desktop
