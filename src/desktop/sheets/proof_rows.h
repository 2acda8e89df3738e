#pragma once

#include <string>
#include <vector>

#include "app/exchange/qif_import_proof.h"
#include "desktop/register/cell_look.h"

class QLabel;
class QString;
class QWidget;

namespace tallyfold::desktop {

class LookTable;

// The first entries of an import as they will come in, and the pieces that sheets of imports share.

// A small title over a table, in dim.
[[nodiscard]] QLabel* MakeCaption(const QString& text, QWidget* parent);

[[nodiscard]] CellLook TextCell(const std::string& text, bool is_dim = false);
[[nodiscard]] CellLook FigureCell(const std::string& text, CellLook::Align align,
                                  bool is_dim = false);

// Names the table and sets its columns.
void SetUpProofRows(LookTable& table);
void ShowProofRows(LookTable& table, const std::vector<QifImportProof::Row>& rows);

}  // namespace tallyfold::desktop
