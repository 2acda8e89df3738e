#pragma once

#include <QByteArray>
#include <QString>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/entries/edit_sheet.h"
#include "desktop/fields/combo_box_cell.h"
#include "desktop/sheets/sheet.h"
#include "model/date_number.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPlainTextEdit;

namespace tallyfold {
class Desk;
class EntryEditing;
class LDGRAccountEntry;
class LDGRSpeakingTextField;
}  // namespace tallyfold

namespace tallyfold::desktop {

class AmountField;
class DateField;
class Form;

// What the sheets for debits, deposits and transfers share: day, amount, description, marks and
// notes, and the buttons below, three of which go on to the next entry.
class EditDialog : public SheetDialog {
 public:
  // Each must outlive the sheet.
  struct Parts {
    EntryEditing& entries;
    EditSheet& sheet;
    const Desk& desk;
    LDGRSpeakingTextField& speaking;
    // Before the names of the controls, "debitSheet".
    const char* prefix;
    // Titles of a new entry and of one of a day.
    QString new_title;
    std::function<QString(const std::string& day)> edit_title;
  };

  EditDialog(const Parts& parts, QWidget* window);

  [[nodiscard]] bool EndEditing() override;
  void Cancel() override;

 protected:
  // The name of a control of this sheet.
  [[nodiscard]] QByteArray Named(const char* control) const { return prefix_ + control; }
  [[nodiscard]] Form& Fields() noexcept { return *form_; }
  [[nodiscard]] const Desk& TheDesk() const noexcept { return parts_.desk; }
  [[nodiscard]] EntryEditing& Entries() noexcept { return parts_.entries; }
  void AddDate();
  void AddMarksAndNotes();
  QComboBox* AddPopUp(const QString& label, const char* control, int width);
  // The three buttons above Cancel and OK, or before them.
  void PutThenNew(bool is_above);

  // Tells the core what stands in the fields. Not while these are being filled.
  virtual void Read() = 0;
  [[nodiscard]] bool& IsShowing() noexcept { return is_showing_; }
  void OK();
  // True for an entry that this sheet has not shown yet; its title is shown then.
  bool TakeEntry(bool is_new, const std::optional<DateNumber>& day);
  // The entry's preferred field, one of these or another one.
  void FocusFirst(SheetField first, QWidget* to_from, QWidget* type);
  void ShowRefused(const std::optional<Problem>& problem);

  template <typename Typed>
  void ReadShared(Typed& typed) const;
  template <typename Typed>
  void ShowShared(const Typed& typed);

  DateField* date_;
  AmountField* amount_;
  LDGRComboBoxCell* description_;
  QCheckBox* cleared_;
  QCheckBox* tax_;
  QPlainTextEdit* notes_;

  // Touch only what differs.
  static void ShowText(QLineEdit* field, const std::string& text);
  static void ShowMark(QCheckBox* box, bool is_set);

 private:
  void MakeThenNew();
  void ShowDay(const std::optional<DateNumber>& day);
  void ShowAmount(const std::optional<double>& amount);
  void ShowNotes(const std::string& notes);
  void ShowWeekday();
  // 0 for an empty field, none for what is no amount.
  [[nodiscard]] std::optional<double> TypedAmount() const;
  [[nodiscard]] std::optional<DateNumber> TypedDay() const;
  [[nodiscard]] std::string TypedDescription() const;
  [[nodiscard]] bool IsCleared() const;
  [[nodiscard]] bool IsTax() const;
  [[nodiscard]] std::string TypedNotes() const;

  Parts parts_;
  QByteArray prefix_;
  Form* form_;
  QWidget* then_new_;
  std::shared_ptr<LDGRAccountEntry> entry_;
  std::optional<Problem> shown_problem_;
  // As stored, whatever the field makes of them.
  std::string stored_notes_;
  bool is_showing_ = false;
};

template <typename Typed>
void EditDialog::ReadShared(Typed& typed) const {
  typed.date = TypedDay();
  typed.amount = TypedAmount();
  typed.description = TypedDescription();
  typed.cleared = IsCleared();
  typed.tax_deductible = IsTax();
  typed.notes = TypedNotes();
}

template <typename Typed>
void EditDialog::ShowShared(const Typed& typed) {
  ShowDay(typed.date);
  ShowAmount(typed.amount);
  ShowText(description_, typed.description);
  ShowMark(cleared_, typed.cleared);
  ShowMark(tax_, typed.tax_deductible);
  ShowNotes(typed.notes);
}

}  // namespace tallyfold::desktop
