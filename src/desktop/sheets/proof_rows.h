#pragma once

#include <QWidget>
#include <string>
#include <vector>

#include "app/exchange/qif_import_proof.h"
#include "desktop/register/cell_look.h"

class QLabel;

namespace tallyfold::desktop {

class LookTable;

// The pieces that sheets of imports share.

// A small title over a table, in dim.
[[nodiscard]] QLabel* MakeCaption(const QString& text, QWidget* parent);

[[nodiscard]] CellLook TextCell(const std::string& text, bool is_dim = false);
[[nodiscard]] CellLook FigureCell(const std::string& text, CellLook::Align align,
                                  bool is_dim = false);

// The first entries of an import as they will come in.
class ProofRows final : public QWidget {
 public:
  explicit ProofRows(QWidget* parent);

  // In dim where they cannot come in as things stand.
  void Show(const std::vector<QifImportProof::Row>& rows, bool can_come_in = true);

 private:
  LookTable* table_;
};

}  // namespace tallyfold::desktop
