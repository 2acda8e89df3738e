#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/accounts/account_editing.h"

class QButtonGroup;
class QLineEdit;
class QPushButton;

namespace tallyfold::desktop {

class LookTable;
class MarkedLine;
class TakeFromButton;

// Which former texts an account offers while one is typed, and the lists of its user's own. Tab
// stops at one of the lists, the arrow keys go from one to the next, Insert adds a text.
class AccountTextsPage final : public QWidget {
 public:
  using Typed = AccountEditSheetState::Typed;
  struct List {
    QString title;
    const char* name;
    std::vector<std::string> Typed::*texts;
  };
  struct Parts {
    QString heading;
    // Of the three ways, in their order.
    std::array<QString, 3> styles;
    // Behind the number of the second.
    QString count_unit;
    // Begins the names of the page's controls.
    const char* name;
    std::int32_t Typed::*style;
    const char* count_name;
    std::optional<std::int32_t> Typed::*count;
    std::vector<List> lists;
    bool (AccountEditing::*take_from)(const LDGRAccount& other);
  };

  // Both must outlive the page.
  AccountTextsPage(AccountEditing& editing, const Desk& desk, Parts parts, QWidget* parent);

  // As the sheet has them. The field of the number keeps a text that is none.
  void Show();
  // The problem of the sheet, below the number. False where it is about something else.
  bool ShowProblem(const std::optional<Problem>& problem);
  // To the number, where it has the problem.
  void GoToProblem();
  // Takes over a text that is still being typed.
  void EndEditing();

 private:
  void MakeStyles(QWidget* into);
  void MakeList(const List& list);
  // The list that the buttons are about.
  void Choose(std::size_t list);
  bool eventFilter(QObject* object, QEvent* event) override;
  void Change(const std::function<void(Typed&)>& change);
  void Add();
  void Remove();
  void ShowButtons();
  [[nodiscard]] std::vector<std::string>& ChosenTexts(Typed& typed) const;

  AccountEditing& editing_;
  Parts parts_;
  QButtonGroup* styles_;
  QLineEdit* count_ = nullptr;
  MarkedLine* problem_ = nullptr;
  std::vector<LookTable*> lists_;
  std::size_t chosen_ = 0;
  QPushButton* add_ = nullptr;
  QPushButton* remove_ = nullptr;
  TakeFromButton* take_from_ = nullptr;
};

}  // namespace tallyfold::desktop
