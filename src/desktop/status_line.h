#pragma once

#include <QWidget>
#include <utility>

class QLabel;
class QToolButton;

namespace tallyfold {
class AccountsStore;
class BalanceField;
class Desk;
class EntryReveal;
class PreferencesStore;
class Recovery;
class Registers;
class Tabs;
}  // namespace tallyfold

namespace tallyfold::desktop {

// The line below the page: the balance, what the rows come to, and the worst of what there is to
// tell.
class StatusLine final : public QWidget {
 public:
  // All must outlive this.
  struct Parts {
    BalanceField& balance;
    Registers& registers;
    EntryReveal& reveal;
    Recovery& recovery;
    const AccountsStore& accounts;
    const PreferencesStore& preferences;
    const Desk& desk;
    const Tabs& tabs;
  };
  StatusLine(const Parts& parts, QWidget* parent);

  void ShowBalance();
  void ShowRows();
  // How many rows of the register are selected, and what they come to.
  void ShowSelection(std::size_t count, double sum);
  void ShowNotice();
  // The first of its buttons takes the keyboard focus.
  void FocusFirst();

 private:
  enum class Notice { None, NotSaved, NotProtected, Hidden, Recovered };

  void FillModes();
  [[nodiscard]] std::pair<Notice, QString> WorstNotice() const;
  void NoticeClicked();

  Parts parts_;
  std::size_t selected_ = 0;
  double selected_sum_ = 0.0;
  Notice notice_kind_ = Notice::None;
  QToolButton* mode_;
  QLabel* value_;
  QLabel* rows_;
  QLabel* notice_image_;
  QLabel* notice_;
  QToolButton* notice_button_;
};

}  // namespace tallyfold::desktop
