#pragma once

#include <QWidget>

#include "model/account_entry.h"

class QListWidget;
class QSplitter;

namespace tallyfold {
class AccountSummaryTab;
class Desk;
}  // namespace tallyfold

namespace tallyfold::desktop {

class SummaryPage;

// The summaries of the account, and the selected one computed.
class SummaryTab final : public QWidget {
  Q_OBJECT

 public:
  // All must outlive this.
  struct Parts {
    AccountSummaryTab& summaries;
    const Desk& desk;
  };
  SummaryTab(const Parts& parts, QWidget* parent);

  // Computes nothing while another tab is shown.
  void Show();
  void FocusList();
  [[nodiscard]] QSplitter* Splitter() const noexcept { return splitter_; }

 signals:
  // The register shows entries that a line of the summary counts: these.
  void EntriesShown(const EntryList& entries);

 private:
  void showEvent(QShowEvent* event) override;

  Parts parts_;
  QSplitter* splitter_;
  QListWidget* list_;
  SummaryPage* page_;
  bool is_showing_ = false;
};

}  // namespace tallyfold::desktop
