#pragma once

#include <QLineEdit>
#include <functional>
#include <optional>
#include <utility>

namespace tallyfold {
class LDGRSpeakingTextField;
}

namespace tallyfold::desktop {

// What a typed text comes to; a sum such as "12.50+3" as what it adds up to. None for no amount.
[[nodiscard]] std::optional<double> AmountIn(const QString& text);

// A field for an amount: read by the core's parser, a sum such as "12.50+3" added up when the field
// is left, each digit echoed aloud where that is wanted.
class AmountField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit AmountField(QWidget* parent = nullptr);

  // How a sum is written into the field; at first as a plain number.
  void SetFormat(std::function<QString(double)> format) { format_ = std::move(format); }
  // Hears of each change of the text, and may refuse it; null for none. It must outlive its stay
  // here.
  void SetSpeaking(LDGRSpeakingTextField* speaking) noexcept { speaking_ = speaking; }

  // As AmountIn().
  [[nodiscard]] std::optional<double> Amount() const;
  // Writes a sum as what it comes to; anything else stays as it is.
  void AddUp();

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TakeEdit(const QString& text);

  std::function<QString(double)> format_;
  LDGRSpeakingTextField* speaking_ = nullptr;
  // As the speaking field knows it.
  QString spoken_;
};

}  // namespace tallyfold::desktop
