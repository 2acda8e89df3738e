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
#include "desktop/look/measures.h"
#include "desktop/register/look_table.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/proof_rows.h"
#include "desktop/sheets/question_bar.h"
#include "desktop/sheets/statement_columns.h"
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

void SetProofInk(QWidget* widget, const QColor& color) {
  QPalette palette = widget->palette();
  palette.setColor(QPalette::WindowText, color);
  widget->setPalette(palette);
}

}  // namespace

StatementSheet::StatementSheet(LDGRQIFImportController& import, QWidget* window)
    : SheetDialog(window, Text("Import")),
      import_(import),
      heading_(new QLabel(this)),
      facts_(new QLabel(this)),
      account_row_(new QWidget(this)),
      question_(new QuestionBar(this)),
      columns_(new StatementColumns(this)),
      proof_(new QWidget(this)),
      proof_icon_(new QLabel(proof_)),
      proof_text_(new QLabel(proof_)),
      rows_(new LookTable(this)),
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
  heading_->setObjectName(QLatin1String("importOptions_Title"));
  heading_->setTextFormat(Qt::PlainText);
  heading_->setFont(DemiBoldFont(LargerFont(font(), kSheetHeadingPoints)));
  facts_->setObjectName(QLatin1String("importOptions_Facts"));
  facts_->setTextFormat(Qt::PlainText);
  facts_->setWordWrap(true);
  facts_->setForegroundRole(QPalette::PlaceholderText);
  auto* head = new QVBoxLayout;
  head->setSpacing(2);
  head->addWidget(heading_);
  head->addWidget(facts_);

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
  proof->addWidget(proof_text_, 1);
  SetUpProofRows(*rows_);
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
  Body().addLayout(head);
  Body().addLayout(settings);
  Body().addWidget(question_);
  Body().addWidget(columns_);
  Body().addWidget(proof_);
  Body().addWidget(MakeCaption(Text("The first entries, as they will come in"), this));
  Body().addWidget(rows_);
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
  connect(question_, &QuestionBar::Answered, this, [this](int answer) {
    import_.StatementOptions_Answer(0, static_cast<std::size_t>(answer));
  });
  connect(columns_, &StatementColumns::FieldChosen, this, [this](int column, int field) {
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
  heading_->setText(ToQString(import_.Options().title));
  ShowFacts();
  ShowSettings();
  ShowQuestion();
  columns_->Show(state);
  ShowProof();
  ShowProofRows(*rows_, state.rows);
  const bool can_review = state.problem.empty() && state.questions.empty() && state.entry_count > 0;
  ok_->setText(
      ToQString(Message(Plural("Review {1} Entry", "Review {1} Entries", state.entry_count),
                        {std::to_string(state.entry_count)})));
  ok_->setEnabled(can_review);
  rows_->setEnabled(can_review);
  ShowProblem(ToQString(state.problem));
  if (isVisible()) Fit();
}

void StatementSheet::ShowFacts() {
  const StatementOptionsState& state = import_.StatementOptions();
  const std::string count = std::to_string(state.entry_count);
  std::string facts;
  if (state.entry_count == 0) {
    facts = LocalizedText("There are no entries here: nothing to review.");
  } else {
    facts =
        Message(Plural("{1} entry, {2} to {3}. Nothing is imported yet: the next step shows it.",
                       "{1} entries, {2} to {3}. Nothing is imported yet: the next step shows "
                       "each entry.",
                       state.entry_count),
                {count, state.first_day, state.last_day});
  }
  const auto add = [&facts](std::string_view key, std::size_t number) {
    if (number > 0) facts += ' ' + Message(key, {std::to_string(number)});
  };
  add("Of other accounts: {1}.", state.file_entry_count - state.entry_count);
  add("Not booked yet and left out: {1}.", state.pending);
  add("Lines of balances left out: {1}.", state.balance_lines);
  add("Lines added to the entry above: {1}.", state.continuation_lines);
  add("Other lines left out: {1}.", state.other_lines);
  if (state.is_cut_short) {
    facts += ' ' + LocalizedText("The file ends in the middle of an entry, which is left out.");
  }
  if (!state.message.empty()) facts += '\n' + Message("The bank says: {1}", {state.message});
  facts_->setText(ToQString(facts));
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

void StatementSheet::ShowQuestion() {
  const StatementOptionsState& state = import_.StatementOptions();
  if (!state.problem.empty() || state.questions.empty()) return question_->Ask({}, {});
  const StatementQuestion& question = state.questions.front();
  std::string text = LocalizedText(TextOf(question.kind));
  if (!question.sample.empty()) {
    text = Message("{1}: {2}", {question.sample.substr(0, question.sample.find('\n')), text});
  }
  QStringList answers;
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
  for (const auto& each : question.candidates) {
    answers.push_back(ToQString(title_of(each.value) + ": " + each.reading));
  }
  question_->Ask(ToQString(text), answers);
}

void StatementSheet::ShowProof() {
  const StatementProof& proof = import_.StatementOptions().proof;
  const std::string text = TextOf(proof);
  proof_->setVisible(!text.empty());
  const bool agrees = proof.kind != StatementProof::Kind::Disagree;
  const Colors& colors = ColorsOf(palette());
  const QColor& ink = colors[agrees ? Role::Good : Role::Problem];
  proof_icon_->setPixmap(
      PixmapNamed(QLatin1String(agrees ? "tick" : "warning"), kIconSize, devicePixelRatioF(), ink));
  proof_text_->setText(ToQString(text));
  NameFigure(*proof_text_, {}, proof_text_->text());
  SetProofInk(proof_text_, agrees ? colors[Role::Text] : ink);
}

void StatementSheet::Cancel() {
  import_.ImportOptions_Cancel();
}

}  // namespace tallyfold::desktop
