#pragma once

#include <QWidget>
#include <string>

#include "app/views/entry_details.h"

class QLabel;
class QToolButton;

namespace tallyfold {
class AccountsStore;
class BackupsList;
class BalanceField;
class Desk;
class EntryOrders;
class EntryReveal;
class PreferencesStore;
class Recovery;
class SchedulesTab;
class ShownEntries;
class Tabs;
class TransferLinking;
}  // namespace tallyfold

namespace tallyfold::desktop {

class FigureLabel;

// The line below the page: the balance, what the rows come to, and the worst of what there is to
// tell.
class StatusLine final : public QWidget {
 public:
  // All must outlive this.
  struct Parts {
    BalanceField& balance;
    const ShownEntries& shown;
    EntryReveal& reveal;
    Recovery& recovery;
    EntryOrders& orders;
    TransferLinking& linking;
    const SchedulesTab& schedules;
    const BackupsList& backups;
    const AccountsStore& accounts;
    const PreferencesStore& preferences;
    const Desk& desk;
    const Tabs& tabs;
  };
  StatusLine(const Parts& parts, QWidget* parent);

  void ShowBalance();
  void ShowRows();
  // What the selected rows of the register come to.
  void ShowSelection(const EntriesSum& selected);
  void ShowNotice();
  // What is being waited for, before all notices; "" for nothing.
  void ShowWork(const QString& sentence);
  // What became of the last order to link, or to back up, is to be told anew.
  void ShowLinking();
  void ShowBackUp();
  // The first of its buttons takes the keyboard focus.
  void FocusFirst();

 private:
  // One at a time; the worst first.
  enum class Topic {
    None,
    Working,
    NotSaved,
    Refused,
    NotProtected,
    Hidden,
    Told,
    Offer,
    BackedUp,
    Recovered
  };
  struct Notice {
    Topic topic = Topic::None;
    QString text;
  };

  void resizeEvent(QResizeEvent* event) override;
  void FillModes();
  // What the rows of a register come to; "" where there is none.
  [[nodiscard]] std::string RowsText() const;
  // How many scheduled entries there are.
  [[nodiscard]] std::string SchedulesText() const;
  // At the end, where neither a notice nor want of room is in the way.
  void ShowHint();
  [[nodiscard]] Notice WorstNotice() const;
  void Act();
  void CloseNotice();

  Parts parts_;
  EntriesSum selected_;
  Topic topic_ = Topic::None;
  QString work_;
  // What these came to, once the user has read it.
  QString closed_link_;
  QString closed_backup_;
  QToolButton* mode_;
  FigureLabel* value_;
  QWidget* rule_;
  FigureLabel* rows_;
  QLabel* hint_;
  QLabel* notice_image_;
  FigureLabel* notice_;
  QToolButton* notice_button_;
  QToolButton* close_;
};

}  // namespace tallyfold::desktop
