#pragma once

#include <QWidget>
#include <array>

#include "model/account_entry.h"

class QComboBox;
class QLabel;

namespace tallyfold {
class LDGRQIFImportEntry;
struct QifMatch;
struct TableFormat;
}  // namespace tallyfold

namespace tallyfold::desktop {

// An entry of a file beside the entry of the account that it repeats or comes near to, and why.
class ReviewComparison final : public QWidget {
  Q_OBJECT

 public:
  explicit ReviewComparison(QWidget* parent);

  // Null for no entry. `match` is null where it repeats nothing. Where it can be matched with
  // several entries of the account, `matches` are offered, the first being that of now.
  void Show(const LDGRQIFImportEntry* entry, const QifMatch* match, const EntryList& matches,
            const TableFormat& format);

 signals:
  // One of `matches`, by its place.
  void MatchChosen(int place);

 private:
  class Field;
  struct Row {
    QLabel* label;
    Field* in_file;
    Field* in_account;
  };

  void ShowFields(const LDGRQIFImportEntry& entry, const LDGRAccountEntry& existing,
                  const TableFormat& format);
  void ShowMatches(const EntryList& matches, const TableFormat& format);
  void paintEvent(QPaintEvent* event) override;

  QLabel* icon_;
  QLabel* caption_;
  QLabel* reason_;
  QLabel* matches_label_;
  QComboBox* matches_;
  QWidget* fields_;
  std::array<Row, 4> rows_;
};

}  // namespace tallyfold::desktop
