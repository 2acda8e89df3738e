#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/accounts/account_editing.h"

class QComboBox;
class QListWidget;
class QLineEdit;

namespace tallyfold::desktop {

// Which former texts an account offers while one is typed, and the lists of its user's own.
class AccountTextsPage final : public QWidget {
 public:
  using Typed = AccountEditSheetState::Typed;
  struct List {
    QString title;
    const char* name;
    std::vector<std::string> Typed::*texts;
  };
  struct Parts {
    const char* style_name;
    std::int32_t Typed::*style;
    const char* count_name;
    std::optional<std::int32_t> Typed::*count;
    std::vector<List> lists;
  };

  // `editing` must outlive the page.
  AccountTextsPage(AccountEditing& editing, Parts parts, QWidget* parent);

  // As the sheet has them. The field of the number keeps a text that is none.
  void Show();
  // Takes over a text that is still being typed.
  void EndEditing();

 private:
  void Change(const std::function<void(Typed&)>& change);
  QWidget* MakeList(const List& list);

  AccountEditing& editing_;
  Parts parts_;
  QComboBox* style_;
  QLineEdit* count_;
  std::vector<QListWidget*> lists_;
};

}  // namespace tallyfold::desktop
