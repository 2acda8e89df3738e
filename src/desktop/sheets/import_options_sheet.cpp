#include "desktop/sheets/import_options_sheet.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look/colors.h"
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/register/table_look.h"
#include "desktop/sheets/fact_line.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/import_head.h"
#include "desktop/sheets/proof_rows.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kOptionsWidth = 1000;
constexpr int kOptionsFormWidth = 380;
constexpr int kSeparatorWidth = 40;
constexpr int kImportAccountWidth = 220;
constexpr int kSwapWidth = 160;
constexpr int kFormatsInSight = 7;
constexpr int kSamplesInSight = 3;
constexpr int kProofDelay = 150;  // milliseconds

using Align = CellLook::Align;

CellLook Verdict(const QifImportProof::Format& format) {
  CellLook look;
  if (format.fits) {
    look.text = Text("fits");
    look.word = CellLook::Word::Good;
  } else if (format.has_short_years) {
    look.text = Text("short years");
    look.word = CellLook::Word::Warning;
  }
  return look;
}

// Of what has no entries to look through.
std::string WhyNothing(const QifImportProof& proof) {
  if (proof.problem != ImportHints::Problem::None)
    return FactLine(LocalizedText(TextOf(proof.problem)));
  if (proof.new_type_count == 0) return EntriesInWords(0, "", "");
  return Message(Plural("There are no entries here, but {1} type that is new to the account.",
                        "There are no entries here, but {1} types that are new to the account.",
                        proof.new_type_count),
                 {std::to_string(proof.new_type_count)});
}

}  // namespace

ImportOptionsSheet::ImportOptionsSheet(LDGRQIFImportController& import, QWidget* window)
    : SheetDialog(window, Text("Import")),
      import_(import),
      head_(new ImportHead(this)),
      form_(new Form(this)),
      account_(new QComboBox(form_)),
      format_(new QComboBox(form_)),
      decimal_(new QLineEdit(form_)),
      thousands_(new QLineEdit(form_)),
      as_deposits_(new QRadioButton(Text("Deposits"), form_)),
      as_debits_(new QRadioButton(Text("Debits"), form_)),
      types_(new QCheckBox(Text("Types of the file, also unused ones"), form_)),
      splits_(new QCheckBox(Text("Lines of split entries"), form_)),
      encodings_(new LookTable(this)),
      formats_caption_(MakeCaption(Text("Date Format"), this)),
      formats_(new LookTable(this)),
      rows_(new ProofRows(this)) {
  setObjectName(QLatin1String("importOptions_Sheet"));
  SetWantedWidth(kOptionsWidth);
  MakeForm();
  MakeProof();

  auto* left = new QVBoxLayout;
  left->setSpacing(kGap);
  left->addWidget(form_);
  left->addSpacing(kGap);
  left->addWidget(MakeCaption(Text("Encoding, and how the file reads in it"), this));
  left->addWidget(encodings_);
  left->addStretch(1);
  auto* right = new QVBoxLayout;
  right->setSpacing(kGap);
  right->addWidget(formats_caption_);
  right->addWidget(formats_);
  right->addSpacing(kGap);
  right->addWidget(rows_);
  right->addStretch(1);
  auto* columns = new QHBoxLayout;
  columns->setSpacing(kColumnGap);
  columns->addLayout(left);
  columns->addLayout(right, 1);
  Body().setSpacing(kWideGap);
  Body().addWidget(head_);
  Body().addLayout(columns);
  Connect();
  account_->setFocus();
}

void ImportOptionsSheet::MakeForm() {
  form_->SetLeastWidth(kOptionsFormWidth);
  encodings_->setMinimumWidth(kOptionsFormWidth);
  form_->Add(Text("Account in the file"), account_, "importOptions_Account_PopUp",
             kImportAccountWidth);
  form_->Add(Text("Date format"), format_, "importOptions_DateFormat_PopUp", kSwapWidth);
  decimal_->setObjectName(QLatin1String("importOptions_DecimalSeparator_Field"));
  decimal_->setFixedWidth(kSeparatorWidth);
  thousands_->setObjectName(QLatin1String("importOptions_ThousandsSeparator_Field"));
  thousands_->setAccessibleName(Text("Thousands separator"));
  thousands_->setFixedWidth(kSeparatorWidth);
  auto* thousands = new QLabel(Text("Thousands"), form_);
  thousands->setBuddy(thousands_);
  thousands->setForegroundRole(QPalette::PlaceholderText);
  form_->AddRow(Text("Decimal separator"), {decimal_, thousands, thousands_});
  form_->AddRule();
  as_deposits_->setObjectName(QLatin1String("importOptions_ZeroAmountsAsDeposits_Button"));
  as_debits_->setObjectName(QLatin1String("importOptions_ZeroAmountsAsDebits_Button"));
  for (QRadioButton* each : {as_deposits_, as_debits_}) each->setAccessibleName(each->text());
  form_->AddRow(Text("Zero amounts are"), {as_deposits_, as_debits_});
  types_->setObjectName(QLatin1String("importOptions_AllTypes_CheckBox"));
  splits_->setObjectName(QLatin1String("importOptions_SplitLineItems_CheckBox"));
  for (QCheckBox* each : {types_, splits_}) {
    each->setAccessibleName(each->text());
    form_->AddUnlabelled(each);
  }
  form_->AddRule();
  categories_ =
      MakeSwap(Text("Categories go to"), "importOptions_SwapType_PopUp", SwapPopUp::Categories);
  payees_ = MakeSwap(Text("Payees go to"), "importOptions_SwapToFrom_PopUp", SwapPopUp::Payees);
  memos_ = MakeSwap(Text("Memos go to"), "importOptions_SwapDescription_PopUp", SwapPopUp::Memos);
}

QComboBox* ImportOptionsSheet::MakeSwap(const QString& label, const char* name, SwapPopUp which) {
  auto* pop_up = new QComboBox(form_);
  form_->Add(label, pop_up, name, kSwapWidth);
  connect(pop_up, &QComboBox::currentIndexChanged, this, [this, pop_up, which] {
    import_.ImportOptions_SwapOptions(which, pop_up->currentData().toInt());
    Read();
  });
  return pop_up;
}

void ImportOptionsSheet::MakeProof() {
  encodings_->setObjectName(QLatin1String("importOptions_Encoding_Table"));
  encodings_->setAccessibleName(Text("Encoding"));
  encodings_->SetColumns({{QString(), 150}, {QString(), 100, Align::Leading, true}});
  encodings_->SetRowsInSight(kSamplesInSight);
  formats_->setObjectName(QLatin1String("importOptions_Formats_Table"));
  formats_->setAccessibleName(Text("Date Format"));
  const int verdict = QFontMetrics(DemiBoldFont(font())).horizontalAdvance(Text("short years")) +
                      2 * (kCellPadding + kOuterCellPadding);
  formats_->SetColumns({{Text("Format"), 120},
                        {Text("Read"), 50, Align::Trailing},
                        {Text("First"), 100},
                        {Text("Last"), 100},
                        {QString(), verdict, Align::Leading, true}});
  formats_->SetRowsInSight(kFormatsInSight);
  proof_timer_.setSingleShot(true);
  proof_timer_.setTimerType(Qt::PreciseTimer);
  connect(&proof_timer_, &QTimer::timeout, this, [this] { ShowProof(); });
}

void ImportOptionsSheet::Connect() {
  connect(AddButton("importOptions_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  ok_ = AddButton("importOptions_OK_Button", Text("Review"), true);
  connect(ok_, &QPushButton::clicked, this, [this] {
    Read();
    static_cast<void>(import_.ImportOptions_OK());
  });
  const auto read = [this] { Read(); };
  connect(account_, &QComboBox::currentIndexChanged, this, read);
  connect(format_, &QComboBox::currentIndexChanged, this, read);
  connect(decimal_, &QLineEdit::textEdited, this, read);
  connect(thousands_, &QLineEdit::textEdited, this, read);
  connect(as_deposits_, &QRadioButton::toggled, this, read);
  connect(types_, &QCheckBox::toggled, this, read);
  connect(splits_, &QCheckBox::toggled, this, read);
  connect(formats_, &LookTable::RowChosen, this, [this](int row) {
    const std::int32_t tag = proof_.formats[static_cast<std::size_t>(row)].tag;
    format_->setCurrentIndex(IndexOfItemTagged(import_.Options().date_format_items, tag));
  });
  connect(encodings_, &LookTable::RowChosen, this, [this](int row) {
    if (static_cast<std::size_t>(row) >= proof_.samples.size()) return;
    const std::int32_t encoding = proof_.samples[static_cast<std::size_t>(row)].encoding;
    Read();
    static_cast<void>(import_.ImportOptions_SetEncoding(encoding));
  });
  for (LookTable* table : {formats_, encodings_}) {
    connect(table, &LookTable::RowActivated, this, [this] { ok_->click(); });
  }
}

void ImportOptionsSheet::Read() {
  import_.ImportOptions_Read({.account = account_->currentIndex(),
                              .date_format = format_->currentIndex(),
                              .decimal_separator = ToUtf8(decimal_->text()),
                              .thousands_separator = ToUtf8(thousands_->text()),
                              .zero_amounts_as_deposits = as_deposits_->isChecked(),
                              .all_types = types_->isChecked(),
                              .split_line_items = splits_->isChecked()});
  proof_timer_.start(kProofDelay);
}

// --- State to widgets
// -----------------------------------------------------------------------------

void ImportOptionsSheet::ShowState() {
  const QifImportOptionsState& state = import_.Options();
  if (!state.is_open) return;
  const auto& typed = state.typed;
  head_->ShowTitle(state.title);
  ShowItems(*account_, state.account_items, typed.account);
  ShowItems(*format_, state.date_format_items, typed.date_format);
  const auto show_text = [](QLineEdit* field, const std::string& text) {
    if (field->text() != ToQString(text)) field->setText(ToQString(text));
  };
  show_text(decimal_, typed.decimal_separator);
  show_text(thousands_, typed.thousands_separator);
  {
    const QSignalBlocker deposits(as_deposits_);
    const QSignalBlocker types(types_);
    const QSignalBlocker splits(splits_);
    (typed.zero_amounts_as_deposits ? as_deposits_ : as_debits_)->setChecked(true);
    types_->setChecked(typed.all_types);
    splits_->setChecked(typed.split_line_items);
  }
  const auto show_swap = [&state](QComboBox* pop_up, std::int32_t destination) {
    ShowItems(*pop_up, state.swap_items, IndexOfItemTagged(state.swap_items, destination));
  };
  show_swap(categories_, state.swap_type);
  show_swap(payees_, state.swap_to_from);
  show_swap(memos_, state.swap_description);
  if (form_->ShowProblem(state.problem)) form_->FieldWithProblem()->setFocus();
  if (isVisible()) {
    proof_timer_.start(kProofDelay);
  } else {
    ShowProof();
  }
}

void ImportOptionsSheet::ShowProof() {
  const QifImportOptionsState& state = import_.Options();
  if (!state.is_open) return;
  proof_ = import_.ImportOptions_Proof();
  std::string facts = proof_.chosen_count == 0
                          ? WhyNothing(proof_)
                          : EntriesInWords(proof_.chosen_count, proof_.first_day, proof_.last_day);
  if (proof_.chosen_count > 0 && proof_.account_count > 1) {
    facts = Message(
        "{1} entries in {2} accounts, {3} of them chosen, {4} to {5}. Nothing is "
        "imported yet: the next step shows each entry.",
        {std::to_string(proof_.entry_count), std::to_string(proof_.account_count),
         std::to_string(proof_.chosen_count), proof_.first_day, proof_.last_day});
  }
  if (!state.refused_encoding.empty()) {
    facts = Message("{1} The file is no text in {2}; it was read as {3}.",
                    {facts, state.refused_encoding, state.encoding});
  }
  head_->ShowFacts(facts);
  ok_->setText(ReviewTitle(proof_.chosen_count));
  ok_->setEnabled(proof_.chosen_count > 0 || proof_.new_type_count > 0);
  ShowFormats(proof_);
  rows_->Show(proof_.rows);
  ShowSamples(proof_);
}

void ImportOptionsSheet::ShowFormats(const QifImportProof& proof) {
  formats_caption_->setText(ToQString(Message(Plural("Date format, and what it makes of the date",
                                                     "Date format, and what it makes of "
                                                     "the {1} dates",
                                                     proof.dates),
                                              {std::to_string(proof.dates)})));
  std::vector<LookTable::Row> rows;
  int chosen = -1;
  for (const QifImportProof::Format& format : proof.formats) {
    const bool is_dim = format.read < proof.dates || format.read == 0;
    if (format.tag == format_->currentData().toInt()) chosen = static_cast<int>(rows.size());
    rows.push_back({TextCell(format.title, is_dim),
                    FigureCell(std::to_string(format.read), Align::Trailing, is_dim),
                    FigureCell(format.first, Align::Leading, is_dim),
                    FigureCell(format.last, Align::Leading, is_dim), Verdict(format)});
  }
  formats_->SetRows(std::move(rows));
  formats_->ShowChosen(chosen);
}

void ImportOptionsSheet::ShowSamples(const QifImportProof& proof) {
  std::vector<LookTable::Row> rows;
  int chosen = -1;
  for (const QifImportProof::Sample& sample : proof.samples) {
    if (sample.encoding == import_.Options().encoding_tag) {
      chosen = static_cast<int>(rows.size());
    }
    rows.push_back({TextCell(sample.name), sample.text
                                               ? TextCell(*sample.text)
                                               : TextCell(LocalizedText("cannot be read"), true)});
  }
  encodings_->SetRows(std::move(rows));
  encodings_->SetEmptyText(Text("All read the same."));
  encodings_->ShowChosen(chosen);
  encodings_->setFocusPolicy(proof.samples.empty() ? Qt::NoFocus : Qt::StrongFocus);
}

void ImportOptionsSheet::Cancel() {
  import_.ImportOptions_Cancel();
}

}  // namespace tallyfold::desktop
