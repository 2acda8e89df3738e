#pragma once

#include <QLineEdit>
#include <optional>

namespace tallyfold {
class LDGRSpeakingTextField;
}

namespace tallyfold::desktop {

// What a typed text comes to; a sum such as "12.50+3" as what it adds up to. None for no amount.
[[nodiscard]] std::optional<double> AmountIn(const QString& text);
// An amount as it is written into a field, which AmountIn() reads: as the preferences in force want
// it, but without a currency sign.
[[nodiscard]] QString TextOfAmount(double amount);

// A field for an amount: read by the core's parser, a sum such as "12.50+3" added up when the field
// is left, each digit echoed aloud where that is wanted.
class AmountField final : public QLineEdit {
  Q_OBJECT

 public:
  explicit AmountField(QWidget* parent = nullptr);

  // Hears of each change of the text, and may refuse it; null for none. It must outlive its stay
  // here.
  void SetSpeaking(LDGRSpeakingTextField* speaking) noexcept { speaking_ = speaking; }

  // As AmountIn().
  [[nodiscard]] std::optional<double> Amount() const;
  // Writes a sum as what it comes to; anything else stays as it is.
  void AddUp();
  // Off while something else makes the amount, as the lines of a split do. To be told before that
  // amount is shown; a text that was no amount is there again afterwards.
  void SetAside(bool is_aside);

 protected:
  void focusOutEvent(QFocusEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void TakeEdit(const QString& text);

  LDGRSpeakingTextField* speaking_ = nullptr;
  // As the speaking field knows it.
  QString spoken_;
  // What was no amount when the field was set aside; null for nothing.
  QString unread_;
};

}  // namespace tallyfold::desktop
