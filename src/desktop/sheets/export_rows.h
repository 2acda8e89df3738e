#pragma once

class QWidget;

namespace tallyfold {
class EncodingMenu;
class LDGRExportAccessoryManager;
class LDGRQIFExportAccessoryView;
}  // namespace tallyfold

namespace tallyfold::desktop {

// The rows that panels for files have beside these. What is chosen in them goes into the accessory
// at once, which must outlive the panel; the rows belong to `panel`.
[[nodiscard]] QWidget* MakeQifExportRows(LDGRQIFExportAccessoryView& accessory, QWidget* panel);
[[nodiscard]] QWidget* MakeTextExportRows(LDGRExportAccessoryManager& accessory, QWidget* panel);
[[nodiscard]] QWidget* MakeImportRows(EncodingMenu& menu, QWidget* panel);

}  // namespace tallyfold::desktop
