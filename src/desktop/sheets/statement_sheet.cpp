#include "desktop/sheets/statement_sheet.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/look/assistive.h"
#include "desktop/look/colors.h"
#include "desktop/look/icons.h"
#include "desktop/look/ink.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/chip.h"
#include "desktop/sheets/file_lines.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/import_head.h"
#include "desktop/sheets/proof_rows.h"
#include "desktop/sheets/question_bar.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

using Setting = StatementSetting;

constexpr int kStatementWidth = 1080;

struct SettingPopUp {
  Setting setting;
  std::string_view title;  // English key
  const char* name;
};

// What is no check box.
constexpr SettingPopUp kSettingPopUps[] = {
    {Setting::Encoding, "Encoding", "importOptions_Encoding_PopUp"},
    {Setting::Delimiter, "Separator", "importOptions_Delimiter_PopUp"},
    {Setting::Heading, "Headings", "importOptions_Heading_PopUp"},
    {Setting::DayOrder, "Dates", "importOptions_DayOrder_PopUp"},
    {Setting::DecimalSeparator, "Decimals", "importOptions_Decimals_PopUp"},
    {Setting::Fees, "Fees", "importOptions_Fees_PopUp"},
    {Setting::Reversals, "Reversals", "importOptions_Reversals_PopUp"}};
// Which of them stands in which line; the account is before the first.
constexpr std::size_t kInLine[] = {1, 4, 2};

}  // namespace

StatementSheet::StatementSheet(LDGRQIFImportController& import, QWidget* window)
    : SheetDialog(window, Text("Import")),
      import_(import),
      head_(new ImportHead(this)),
      account_row_(new QWidget(this)),
      question_lines_(new QVBoxLayout),
      lines_(new FileLines(this)),
      proof_(new QWidget(this)),
      proof_icon_(new QLabel(proof_)),
      proof_text_(new QLabel(proof_)),
      disagreeing_(new Chip(QLatin1String("warning"), true, proof_)),
      left_out_(new Chip(QLatin1String("skip"), false, proof_)),
      rows_(new ProofRows(this)),
      types_(new QCheckBox(Text("Types as the newest entries of the payees have them"), this)),
      spending_(new QCheckBox(Text("Spending is positive (a card)"), this)),
      zero_(new QCheckBox(Text("Zero amounts are deposits"), this)) {
  setObjectName(QLatin1String("importOptions_Sheet"));
  SetWantedWidth(kStatementWidth);
  LayOut();
  Connect();
  account_->setFocus();
}

QComboBox* StatementSheet::AddPopUp(const QString& title, const char* name, QWidget* whole) {
  auto* label = new QLabel(title, whole);
  label->setTextFormat(Qt::PlainText);
  label->setForegroundRole(QPalette::PlaceholderText);
  auto* pop_up = new QComboBox(whole);
  pop_up->setObjectName(QLatin1String(name));
  pop_up->setAccessibleName(title);
  pop_up->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  pop_up->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  label->setBuddy(pop_up);
  auto* row = new QHBoxLayout(whole);
  row->setContentsMargins(0, 0, kGap, 0);
  row->setSpacing(kGap);
  row->addWidget(label);
  row->addWidget(pop_up);
  return pop_up;
}

void StatementSheet::LayOut() {
  account_ = AddPopUp(Text("Account"), "importOptions_Account_PopUp", account_row_);
  auto* settings = new QVBoxLayout;
  const auto* next = std::begin(kSettingPopUps);
  for (const std::size_t count : kInLine) {
    auto* line = new QHBoxLayout;
    if (settings->isEmpty()) line->addWidget(account_row_);
    for (const auto* end = next + count; next != end; ++next) {
      auto* whole = new QWidget(this);
      settings_.push_back({next->setting, whole, AddPopUp(Text(next->title), next->name, whole)});
      line->addWidget(whole);
    }
    line->addStretch(1);
    settings->addLayout(line);
  }

  proof_text_->setObjectName(QLatin1String("importOptions_Balances"));
  proof_text_->setTextFormat(Qt::PlainText);
  auto* proof = new QHBoxLayout(proof_);
  proof->setContentsMargins(0, 0, 0, 0);
  proof->setSpacing(kGap);
  proof->addWidget(proof_icon_);
  proof->addWidget(proof_text_);
  for (Chip* each : {disagreeing_, left_out_}) {
    // Each click goes on to the next of its lines.
    each->setCheckable(false);
    proof->addWidget(each);
  }
  proof->insertStretch(proof->count() - 1, 1);
  disagreeing_->setObjectName(QLatin1String("importOptions_Balances_Button"));
  left_out_->setObjectName(QLatin1String("importOptions_LeftOut_Button"));
  types_->setObjectName(QLatin1String("importOptions_SuggestTypes_CheckBox"));
  spending_->setObjectName(QLatin1String("importOptions_Spending_CheckBox"));
  zero_->setObjectName(QLatin1String("importOptions_ZeroAmountsAsDeposits_CheckBox"));
  auto* checks = new QHBoxLayout;
  checks->setSpacing(kColumnGap);
  for (QCheckBox* each : {types_, spending_, zero_}) {
    each->setAccessibleName(each->text());
    checks->addWidget(each);
  }
  checks->addStretch(1);

  Body().setSpacing(kWideGap);
  Body().addWidget(head_);
  Body().addLayout(settings);
  question_lines_->setSpacing(kGap);
  Body().addLayout(question_lines_);
  for (QWidget* each : std::initializer_list<QWidget*>{lines_, proof_, rows_}) {
    Body().addWidget(each);
  }
  Body().addLayout(checks);
}

void StatementSheet::Connect() {
  connect(AddButton("importOptions_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  ok_ = AddButton("importOptions_OK_Button", Text("Review"), true);
  connect(ok_, &QPushButton::clicked, this,
          [this] { static_cast<void>(import_.ImportOptions_OK()); });
  connect(account_, &QComboBox::currentIndexChanged, this, [this](int index) {
    auto typed = import_.StatementOptions().typed;
    typed.account = index;
    import_.StatementOptions_Read(std::move(typed));
  });
  for (const Shown& each : settings_) {
    connect(each.pop_up, &QComboBox::currentIndexChanged, this,
            [this, each] { Choose(each.setting, each.pop_up->currentData().toInt()); });
  }
  connect(disagreeing_, &Chip::clicked, lines_, &FileLines::GoToNextDisagreeing);
  connect(left_out_, &Chip::clicked, lines_, &FileLines::GoToNextLeftOut);
  connect(lines_, &FileLines::FieldChosen, this, [this](int column, int field) {
    auto typed = import_.StatementOptions().typed;
    ChooseColumn(typed, import_.StatementOptions(), static_cast<std::size_t>(column),
                 static_cast<CsvField>(field));
    import_.StatementOptions_Read(std::move(typed));
  });
  connect(spending_, &QCheckBox::toggled, this,
          [this](bool is_on) { Choose(Setting::Spending, is_on ? 1 : 0); });
  for (QCheckBox* each : {types_, zero_}) {
    connect(each, &QCheckBox::toggled, this, [this] { ReadChecks(); });
  }
}

void StatementSheet::Choose(StatementSetting setting, std::int32_t value) {
  auto typed = import_.StatementOptions().typed;
  tallyfold::Choose(typed.choices, setting, value);
  import_.StatementOptions_Read(std::move(typed));
}

void StatementSheet::ReadChecks() {
  auto typed = import_.StatementOptions().typed;
  typed.suggests_types = types_->isChecked();
  typed.zero_amounts_as_deposits = zero_->isChecked();
  import_.StatementOptions_Read(std::move(typed));
}

// --- State to widgets
// -----------------------------------------------------------------------------

void StatementSheet::ShowState() {
  if (!import_.Options().is_open || !import_.IsStatement()) return;
  const StatementOptionsState& state = import_.StatementOptions();
  head_->ShowTitle(import_.Options().title);
  ShowFacts();
  ShowSettings();
  ShowQuestions();
  ShowLines();
  ShowProof();
  const bool can_review = state.problem.empty() && state.questions.empty() && state.entry_count > 0;
  rows_->Show(state.rows, can_review);
  ok_->setText(ReviewTitle(state.entry_count));
  ok_->setEnabled(can_review);
  ShowProblem(ToQString(state.problem));
  if (isVisible()) Fit();
}

void StatementSheet::ShowFacts() {
  const StatementOptionsState& state = import_.StatementOptions();
  std::string facts = EntriesInWords(state.entry_count, state.first_day, state.last_day);
  const auto add = [&facts](std::string_view key, std::size_t number) {
    if (number > 0) facts += ' ' + Message(key, {std::to_string(number)});
  };
  add("Of other accounts: {1}.", state.file_entry_count - state.entry_count);
  add("Not booked yet and left out: {1}.", state.pending);
  if (state.is_cut_short) {
    facts += ' ' + LocalizedText("The file ends in the middle of an entry, which is left out.");
  }
  if (!state.message.empty()) facts += '\n' + Message("The bank says: {1}", {state.message});
  head_->ShowFacts(facts);
}

void StatementSheet::ShowSettings() {
  const StatementOptionsState& state = import_.StatementOptions();
  ShowItems(*account_, state.account_items, state.typed.account);
  const auto in_state = [&state](Setting setting) {
    return std::ranges::find(state.settings, setting, &StatementOptionsState::Setting::setting);
  };
  for (const Shown& each : settings_) {
    const auto found = in_state(each.setting);
    each.whole->setVisible(found != state.settings.end());
    if (found == state.settings.end()) continue;
    const bool is_asked =
        std::ranges::any_of(state.questions, [&each](const StatementQuestion& question) {
          return SettingOf(question.kind) == each.setting;
        });
    // What is not known yet is not shown as if it were.
    ShowItems(*each.pop_up, found->items, is_asked ? kNoItem : found->selected);
    each.pop_up->setPlaceholderText(Text("Not known"));
  }
  const auto spending = in_state(Setting::Spending);
  spending_->setVisible(spending != state.settings.end());
  zero_->setVisible(state.has_zero_amounts);
  for (QCheckBox* each : {types_, spending_, zero_}) {
    const QSignalBlocker blocker(each);
    if (each == types_) each->setChecked(state.typed.suggests_types);
    if (each == zero_) each->setChecked(state.typed.zero_amounts_as_deposits);
    if (each == spending_ && spending != state.settings.end()) {
      each->setChecked(spending->selected != kNoItem &&
                       spending->items[static_cast<std::size_t>(spending->selected)].tag != 0);
    }
  }
}

void StatementSheet::ShowQuestions() {
  const StatementOptionsState& state = import_.StatementOptions();
  const std::size_t count = state.problem.empty() ? state.questions.size() : 0;
  while (questions_.size() < count) {
    const std::size_t number = questions_.size();
    auto* bar = new QuestionBar(number, this);
    connect(bar, &QuestionBar::Answered, this, [this, number](int answer) {
      import_.StatementOptions_Answer(number, static_cast<std::size_t>(answer));
    });
    question_lines_->addWidget(bar);
    questions_.push_back(bar);
  }
  for (std::size_t i = 0; i < questions_.size(); ++i) {
    if (i < count) {
      questions_[i]->Ask(TextOfQuestion(state.questions[i]), AnswersTo(state.questions[i]));
    } else {
      questions_[i]->Ask({}, {});
    }
  }
}

QString StatementSheet::TextOfQuestion(const StatementQuestion& question) const {
  const std::string text = LocalizedText(TextOf(question.kind));
  if (question.sample.empty()) return ToQString(text);
  const std::string sample = question.sample.substr(0, question.sample.find('\n'));
  return ToQString(Message("{1}: {2}", {sample, text}));
}

QStringList StatementSheet::AnswersTo(const StatementQuestion& question) const {
  const StatementOptionsState& state = import_.StatementOptions();
  const auto title_of = [&state, setting = SettingOf(question.kind)](std::int64_t value) {
    if (!setting) return Message("Column {1}", {std::to_string(value + 1)});
    for (const auto& each : state.settings) {
      const std::int32_t item = IndexOfItemTagged(each.items, static_cast<std::int32_t>(value));
      if (each.setting == *setting && item != kNoItem) {
        return each.items[static_cast<std::size_t>(item)].title;
      }
    }
    return std::string();
  };
  QStringList answers;
  for (const auto& each : question.candidates) {
    answers.push_back(ToQString(Message("{1}: {2}", {title_of(each.value), each.reading})));
  }
  return answers;
}

void StatementSheet::ShowLines() {
  const StatementOptionsState& state = import_.StatementOptions();
  if (shown_reading_ != state.reading)
    lines_->SetLines(import_.StatementOptions_Lines(), state.proof);
  shown_reading_ = state.reading;
  lines_->Show(state);
}

void StatementSheet::ShowProof() {
  const StatementOptionsState& state = import_.StatementOptions();
  const bool agrees = state.proof.kind != StatementProof::Kind::Disagree;
  const bool has_lines = !state.proof.disagreeing.empty();
  const QString text = ToQString(TextOf(state.proof));
  disagreeing_->setVisible(has_lines);
  disagreeing_->setText(text);
  disagreeing_->setAccessibleName(text);
  proof_icon_->setVisible(!text.isEmpty() && !has_lines);
  proof_text_->setVisible(!text.isEmpty() && !has_lines);
  const Colors& colors = ColorsOf(palette());
  const QColor& ink = colors[agrees ? Role::Good : Role::Problem];
  proof_icon_->setPixmap(
      PixmapNamed(QLatin1String(agrees ? "tick" : "warning"), kIconSize, devicePixelRatioF(), ink));
  proof_text_->setText(text);
  NameFigure(*proof_text_, {}, proof_text_->text());
  SetTextInk(*proof_text_, agrees ? colors[Role::Text] : ink);
  const bool has_left_out = ShowLeftOut();
  proof_->setVisible(!text.isEmpty() || has_left_out);
}

bool StatementSheet::ShowLeftOut() {
  const StatementOptionsState& state = import_.StatementOptions();
  const std::size_t count = state.problem.empty()
                                ? state.balance_lines + state.other_lines + state.continuation_lines
                                : 0;
  left_out_->setVisible(count > 0);
  left_out_->setText(ToQString(Message(
      Plural("{1} line is no entry", "{1} lines are no entries", count), {std::to_string(count)})));
  left_out_->setAccessibleName(left_out_->text());
  std::string counts;
  const auto add = [&counts](std::string_view key, std::size_t number) {
    if (number == 0) return;
    if (!counts.empty()) counts += '\n';
    counts += Message(key, {std::to_string(number)});
  };
  add("Lines of balances left out: {1}.", state.balance_lines);
  add("Lines added to the entry above: {1}.", state.continuation_lines);
  add("Other lines left out: {1}.", state.other_lines);
  left_out_->setToolTip(ToQString(counts));
  return count > 0;
}

void StatementSheet::Cancel() {
  import_.ImportOptions_Cancel();
}

}  // namespace tallyfold::desktop
