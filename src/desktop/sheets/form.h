#pragma once

#include <QHash>
#include <QPointer>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <vector>

#include "app/face/pop_up_item.h"
#include "app/face/problem.h"

class QComboBox;
class QGridLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;

namespace tallyfold::desktop {

class MarkedLine;

// Widths of fields by what they hold.
inline constexpr int kDateFieldWidth = 132;
inline constexpr int kNumberFieldWidth = 88;
inline constexpr int kAmountFieldWidth = 120;

// A column of labels and beside it a column of fields, as every sheet has them. What is wrong with
// a field stands below it and comes and goes without another word of the sheet.
class Form final : public QWidget {
  Q_OBJECT

 public:
  explicit Form(QWidget* parent);

  // With its labels; wider where a text needs that.
  void SetLeastWidth(int width);

  // A row of its own for a field named `name`, which is given its accessible name and its label as
  // buddy. A width of 0 takes what is left.
  void Add(const QString& label, QWidget* field, const char* name, int width = 0);
  // Fields side by side behind one label, the last of them followed by nothing. Each must have its
  // name already; the first is the label's buddy.
  QHBoxLayout* AddRow(const QString& label, std::initializer_list<QWidget*> fields);
  // In the column of the fields, without a label.
  void AddUnlabelled(QWidget* field);
  // In the column of the fields, a small text in dim that wraps.
  QLabel* AddNote(const QString& note);
  // Across both columns, behind an icon.
  void AddHint(QLatin1String icon, const QString& text);
  // A caption and what it says; no row to be filled in.
  void AddFact(const QString& caption, QLabel* fact);
  // A hair rule across both columns.
  void AddRule();

  // A small text in dim behind a field of a row.
  [[nodiscard]] static QLabel* MakeNote(QWidget* parent);
  // Behind the field in its row, as that of a row made by Add(). "" takes it away.
  void SetNote(QWidget* field, const QString& note);

  // The problem of a sheet, at the field that its control's name names. False when this form has no
  // such field. It leaves the field by itself as soon as that is edited.
  bool ShowProblem(const std::optional<Problem>& problem);
  // The field that has the problem; null for none.
  [[nodiscard]] QWidget* FieldWithProblem() const { return refused_; }

 private:
  struct Row {
    QVBoxLayout* cell = nullptr;
    QHBoxLayout* fields = nullptr;
    MarkedLine* problem = nullptr;
    QLabel* note = nullptr;
  };

  QHBoxLayout* AddLabelled(const QString& label, QWidget* buddy);
  void AddFieldTo(QHBoxLayout* row, QWidget* field);
  void Watch(QWidget* field);
  Row& RowOf(QWidget* field) { return rows_[row_of_.value(field)]; }
  void ClearProblem();

  QGridLayout* grid_;
  QHash<int, Row> rows_;
  QHash<QWidget*, int> row_of_;
  QPointer<QWidget> refused_;
};

// Fills a pop-up with the items of a state, separators, pictures and items that cannot be chosen
// among them, and chooses one; touches only what differs and tells nobody. `selected` is an index
// or kNoItem.
void ShowItems(QComboBox& pop_up, const std::vector<PopUpItem>& items, std::int32_t selected);
// Chooses an item and tells nobody.
void ShowItem(QComboBox& pop_up, std::int32_t selected);

}  // namespace tallyfold::desktop
