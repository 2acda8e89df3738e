#include "desktop/sheets/question_sheet.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/measures.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kQuestionWidth = 420;

}  // namespace

QuestionSheet::QuestionSheet(Question question, QWidget* window)
    : SheetDialog(window, question.title),
      question_(std::move(question)),
      text_(new QLabel(this)),
      note_(Form::MakeNote(this)) {
  text_->setObjectName(QLatin1String("question_Label"));
  text_->setTextFormat(Qt::PlainText);
  text_->setWordWrap(true);
  text_->setMinimumWidth(kQuestionWidth - 2 * kSheetMargin);
  Body().addWidget(text_);
  note_->setObjectName(QLatin1String("question_Note"));
  note_->setWordWrap(true);
  Body().addSpacing(kGap);
  Body().addWidget(note_);
  for (const Answer& answer : question_.answers) {
    connect(AddButton(answer.name, answer.title, answer.is_default), &QPushButton::clicked, this,
            [run = answer.run] { run(); });
  }
}

void QuestionSheet::ShowState() {
  text_->setText(ToQString(question_.text()));
  note_->setText(ToQString(question_.note()));
  ShowProblem(ToQString(question_.problem()));
}

void QuestionSheet::Cancel() {
  question_.answers.front().run();
}

}  // namespace tallyfold::desktop
