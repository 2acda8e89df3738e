#pragma once

#include <QWidget>

#include "app/shell/preferences_sample.h"
#include "desktop/look/colors.h"

namespace tallyfold::desktop {

class LookTable;

// An amount as registers draw it, in a stored colour that is shifted until it can be read.
class InkSample final : public QWidget {
 public:
  explicit InkSample(QWidget* parent);

  void Show(const QString& amount, const QColor& stored);
  [[nodiscard]] QSize sizeHint() const override;

 private:
  void paintEvent(QPaintEvent* event) override;

  QString amount_;
  QColor stored_;
  InkCache inks_;
};

// A small table below a caption, with what settings that are not in force yet would make of it.
class PreferencesSampleTable final : public QWidget {
 public:
  enum class Shows : std::uint8_t {
    Rows,    // of the account's register
    Formats  // a day and an amount
  };

  PreferencesSampleTable(Shows shows, const char* name, QWidget* parent);

  void Show(const PreferencesSample& sample, const LDGRPreferences& settings);

 private:
  void ShowRows(const PreferencesSample& sample, const LDGRPreferences& settings);
  void ShowFormats(const PreferencesSample& sample);

  const Shows shows_;
  LookTable* table_;
};

}  // namespace tallyfold::desktop
