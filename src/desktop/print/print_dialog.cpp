#include "desktop/print/print_dialog.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <string>
#include <utility>

#include "app/face/pop_up_item.h"
#include "desktop/look/measures.h"
#include "desktop/print/kept_choices.h"
#include "desktop/print/page_preview.h"
#include "desktop/print/page_turner.h"
#include "desktop/print/printed_pages.h"
#include "desktop/print/printers.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kPrintWidth = 960;
constexpr int kPrintFormWidth = 300;
constexpr int kPrintPopUpWidth = 180;

QLabel* PlainHeading(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

}  // namespace

PrintDialog::PrintDialog(const Parts& parts, QWidget* window)
    : SheetDialog(window, Text("Print")),
      parts_(parts),
      metric_(QApplication::font()),
      heading_(PlainHeading(this)),
      facts_(PlainHeading(this)),
      form_(new Form(this)),
      all_(new QRadioButton(form_)),
      selected_(new QRadioButton(form_)),
      splits_(MakeMark(Text("Of split entries"), "printSheet_Splits_CheckBox")),
      notes_(MakeMark(Text("Notes"), "printSheet_Notes_CheckBox")),
      paper_(new QComboBox(form_)),
      orientation_(new QComboBox(form_)),
      no_printer_(Form::MakeNote(this)),
      preview_(new PagePreview(metric_, this)),
      turner_(new PageTurner(*preview_, this)),
      has_printer_(parts.printers.HasAny()) {
  setObjectName(QLatin1String("printSheet"));
  SetWantedWidth(kPrintWidth);
  MakeForm();
  LayOut();
  connect(preview_, &PagePreview::Turned, this,
          [this] { turner_->Show(pages_ ? pages_->Count() : 0); });
  save_ = AddLeadingButton("printSheet_SaveAsPDF_Button", Text("Save as PDF..."));
  connect(save_, &QPushButton::clicked, this, &PrintDialog::SavePdf);
  connect(AddButton("printSheet_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  print_ = AddButton("printSheet_Print_Button", Text("Print..."), has_printer_);
  save_->setAutoDefault(!has_printer_);
  save_->setDefault(!has_printer_);
  connect(print_, &QPushButton::clicked, this, &PrintDialog::Print);
  making_.setSingleShot(true);
  connect(&making_, &QTimer::timeout, this, &PrintDialog::MakePages);
  ShowPages();
  preview_->setFocus();
}

QCheckBox* PrintDialog::MakeMark(const QString& title, const char* name) {
  auto* box = new QCheckBox(WithoutMnemonics(title), form_);
  box->setObjectName(QLatin1String(name));
  box->setAccessibleName(title);
  connect(box, &QCheckBox::toggled, this, [this] { Read(); });
  return box;
}

void PrintDialog::MakeForm() {
  form_->SetLeastWidth(kPrintFormWidth);
  const PrintSheetState& state = parts_.sheet.State();
  all_->setObjectName(QLatin1String("printSheet_All_Button"));
  selected_->setObjectName(QLatin1String("printSheet_Selected_Button"));
  for (QRadioButton* each : {all_, selected_}) {
    connect(each, &QRadioButton::toggled, this, [this](bool is_on) {
      if (is_on) Read();
    });
  }
  const bool has_scope = !state.selected_title.empty();
  all_->setVisible(has_scope);
  selected_->setVisible(has_scope);
  splits_->setVisible(state.has_details);
  notes_->setVisible(state.has_details);
  if (has_scope) {
    form_->AddRow(Text("Entries"), {all_});
    form_->AddUnlabelled(selected_);
    form_->AddRule();
  }
  if (state.has_details) {
    form_->AddRow(Text("Lines"), {splits_});
    form_->AddUnlabelled(notes_);
    form_->AddRule();
  }
  form_->Add(Text("Paper"), paper_, "printSheet_Paper_PopUp", kPrintPopUpWidth);
  form_->Add(Text("Orientation"), orientation_, "printSheet_Orientation_PopUp", kPrintPopUpWidth);
  for (QComboBox* each : {paper_, orientation_}) {
    connect(each, &QComboBox::currentIndexChanged, this, [this] { Read(); });
  }
}

void PrintDialog::LayOut() {
  heading_->setObjectName(QLatin1String("printSheet_Heading"));
  heading_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  facts_->setObjectName(QLatin1String("printSheet_Facts"));
  facts_->setForegroundRole(QPalette::PlaceholderText);
  no_printer_->setObjectName(QLatin1String("printSheet_NoPrinter"));
  no_printer_->setWordWrap(true);
  no_printer_->setText(Text("No printer is set up. A PDF can be saved all the same."));
  no_printer_->setVisible(!has_printer_);
  preview_->setObjectName(QLatin1String("printSheet_Preview"));

  auto* pages = new QVBoxLayout;
  pages->setSpacing(0);
  pages->addWidget(preview_, 1);
  pages->addWidget(turner_);
  auto* options = new QVBoxLayout;
  options->setContentsMargins(kSheetMargin, kSheetMargin, kSheetMargin, kSheetMargin);
  options->setSpacing(2);
  options->addWidget(heading_);
  options->addWidget(facts_);
  options->addSpacing(kGroupGap);
  options->addWidget(form_);
  options->addStretch(1);
  options->addWidget(no_printer_);
  UseWholeWidth();
  auto* columns = new QHBoxLayout;
  columns->setSpacing(0);
  columns->addLayout(pages, 1);
  columns->addLayout(options);
  Body().addLayout(columns);
}

void PrintDialog::Read() {
  PrintSheetState::Typed typed = parts_.sheet.State().typed;
  typed.only_selected = selected_->isChecked();
  typed.choices.splits = splits_->isChecked();
  typed.choices.notes = notes_->isChecked();
  if (paper_->currentIndex() >= 0) {
    typed.choices.paper = PrintSheet::PaperTagged(paper_->currentData().toInt());
  }
  if (orientation_->currentIndex() >= 0) {
    typed.choices.orientation = static_cast<Orientation>(orientation_->currentData().toInt());
  }
  parts_.sheet.Read(typed);
  KeepChoices(parts_.sheet.Choices(), parts_.settings);
}

void PrintDialog::ShowState() {
  const PrintSheetState& state = parts_.sheet.State();
  if (!state.is_open) return;
  const PrintSheetState::Typed& typed = state.typed;
  heading_->setText(ToQString(state.heading));
  facts_->setText(ToQString(state.facts));
  const auto show = [](QAbstractButton* button, bool is_on, const QString& title = {}) {
    const QSignalBlocker blocker(button);
    button->setChecked(is_on);
    if (title.isEmpty()) return;
    button->setText(WithoutMnemonics(title));
    button->setAccessibleName(title);
  };
  show(all_, !typed.only_selected, ToQString(state.all_title));
  show(selected_, typed.only_selected, ToQString(state.selected_title));
  show(splits_, typed.choices.splits);
  show(notes_, typed.choices.notes);
  ShowItems(*paper_, state.papers,
            IndexOfItemTagged(state.papers, PrintSheet::TagOfPaper(typed.choices.paper)));
  ShowItems(
      *orientation_, state.orientations,
      IndexOfItemTagged(state.orientations, static_cast<std::int32_t>(typed.choices.orientation)));
  const Wanted wanted{typed.only_selected, typed.choices};
  if (made_for_ != wanted) making_.start(0);
}

void PrintDialog::MakePages() {
  const PrintSheetState::Typed& typed = parts_.sheet.State().typed;
  const std::size_t row =
      pages_ && pages_->Count() > 0 ? pages_->RowsBefore(preview_->Number()) : 0;
  const bool is_first = preview_->Number() == 0;
  preview_->SetPages(nullptr, 0, {});
  made_for_ = Wanted{typed.only_selected, typed.choices};
  pages_.reset();
  if (auto pages = parts_.sheet.MakePages(metric_)) pages_.emplace(std::move(*pages));
  const bool are_made = pages_ && pages_->Count() > 0;
  const auto problem =
      pages_ ? PrintSheet::ProblemText(pages_->GetProblem()) : ToUtf8(Text("Nothing to print."));
  preview_->SetPages(are_made ? &*pages_ : nullptr,
                     are_made && !is_first ? pages_->PageOfRow(row) : 0, ToQString(problem));
  ShowPages();
}

void PrintDialog::ShowPages() {
  const std::size_t count = pages_ ? pages_->Count() : 0;
  turner_->Show(count);
  save_->setEnabled(count > 0);
  print_->setEnabled(count > 0 && has_printer_);
}

bool PrintDialog::AreReady() {
  if (making_.isActive()) {
    making_.stop();
    MakePages();
  }
  return pages_ && pages_->Count() > 0;
}

void PrintDialog::Print() {
  if (!AreReady()) return;
  const PrintJob job{heading_->text(), pages_->Size(), pages_->Count()};
  parts_.printers.Choose(job, this, [this](QPrinter& printer) {
    if (DrawPages(printer, *pages_, PagesFor(printer, pages_->Count()), metric_)) {
      return parts_.sheet.Close();
    }
    ShowProblem(Text("The printer did not take the pages."));
  });
}

void PrintDialog::SavePdf() {
  if (!AreReady()) return;
  // The sheet may be closed while the panel is up, as when nobody has touched anything for long.
  const QPointer<PrintDialog> self(this);
  const auto make = [self] {
    return self ? PagesAsPdf(*self->pages_, self->metric_, self->heading_->text()) : std::string();
  };
  const auto result = parts_.exports.SavePDF(parts_.sheet.State().file_name, make);
  if (self && result == WriteResult::Written) parts_.sheet.Close();
}

}  // namespace tallyfold::desktop
