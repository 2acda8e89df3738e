#pragma once

#include <QWidget>
#include <array>

class QLabel;

namespace tallyfold {
class LDGRAccountEntry;
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

  // Null for no entry. `match` is null where it repeats nothing.
  void Show(const LDGRQIFImportEntry* entry, const QifMatch* match, const TableFormat& format);

 private:
  class Field;
  struct Row {
    QLabel* label;
    Field* in_file;
    Field* in_account;
  };

  void ShowFields(const LDGRQIFImportEntry& entry, const LDGRAccountEntry& existing,
                  const TableFormat& format);
  void paintEvent(QPaintEvent* event) override;

  QLabel* icon_;
  QLabel* caption_;
  QLabel* reason_;
  QWidget* fields_;
  std::array<Row, 4> rows_;
};

}  // namespace tallyfold::desktop
