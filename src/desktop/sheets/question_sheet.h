#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/sheets/sheet.h"

class QLabel;

namespace tallyfold::desktop {

// A question of the application's with two or three answers.
class QuestionSheet final : public SheetDialog {
 public:
  struct Answer {
    const char* name;  // of the button
    QString title;
    std::function<void()> run;
    bool is_default = false;
  };
  struct Question {
    QString title;
    std::function<std::string()> text;
    // Why the last answer was not taken; "" for nothing.
    std::function<std::string()> problem;
    // Below the question; "" for nothing.
    std::function<std::string()> note;
    // In their order; the first is Cancel.
    std::vector<Answer> answers;
  };

  QuestionSheet(Question question, QWidget* window);

  void ShowState() override;
  void Cancel() override;

 private:
  Question question_;
  QLabel* text_;
  QLabel* note_;
};

}  // namespace tallyfold::desktop
