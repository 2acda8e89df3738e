#include "desktop/sheets/preferences_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/shell/preference_limits.h"
#include "desktop/look/icons.h"
#include "desktop/look/measures.h"
#include "desktop/register/table_look.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/page_list.h"
#include "desktop/sheets/preferences_sample_table.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kPreferencesWidth = 800;
constexpr int kPageFormWidth = 520;
constexpr int kPasswordWidth = 240;
constexpr std::string_view kRegistersTab = "registers";
constexpr std::string_view kPasswordAgain = "preferencesSheet_PasswordAgain_Field";

// Numbered from 0 on.
std::vector<PopUpItem> Numbered(std::initializer_list<const char*> titles) {
  std::vector<PopUpItem> items;
  for (const char* title : titles) {
    items.push_back({ToUtf8(Text(title)), static_cast<std::int32_t>(items.size())});
  }
  return items;
}

}  // namespace

PreferencesDialog::PreferencesDialog(PreferencesSheet& sheet, const Items& items, QWidget* window)
    : SheetDialog(window, Text("Preferences")),
      sheet_(sheet),
      fields_(sheet),
      pages_(new PageList(this, "preferencesSheet_TabView")),
      rows_sample_(new PreferencesSampleTable(PreferencesSampleTable::Shows::Rows,
                                              "preferencesSheet_Sample_Table", this)),
      formats_sample_(new PreferencesSampleTable(PreferencesSampleTable::Shows::Formats,
                                                 "preferencesSheet_Formats_Table", this)),
      defaults_(AddLeadingButton("preferencesSheet_DefaultAppearance_Button",
                                 Text("Default Appearance"))),
      ok_(nullptr) {
  setObjectName(QLatin1String("preferencesSheet"));
  SetWantedWidth(kPreferencesWidth);
  UseWholeWidth();
  AddEntries();
  AddWindow(items);
  AddRegisters();
  AddFormats();
  AddSchedules();
  AddSpeech();
  AddFiles(items);
  AddSecurity();
  fields_.AddMark(AddPage("updates", Text("Updates")),
                  Text("Look for a newer version at the start"), "checkForUpdates");
  Body().addWidget(pages_);
  pages_->SetMay([this](std::string_view tab) { return sheet_.SelectTab(tab); });
  connect(defaults_, &QPushButton::clicked, this, [this] { sheet_.DefaultAppearanceSettings(); });
  connect(AddButton("preferencesSheet_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  ok_ = AddButton("preferencesSheet_OK_Button", Text("OK"), true);
  connect(ok_, &QPushButton::clicked, this, [this] { OK(); });
}

Form& PreferencesDialog::AddPage(std::string_view identifier, const QString& title,
                                 QWidget* below) {
  auto* form = new Form(this);
  form->SetLeastWidth(kPageFormWidth);
  forms_.push_back(form);
  if (below == nullptr) {
    pages_->Add(identifier, title, form);
    return *form;
  }
  auto* page = new QWidget(this);
  page->setSizePolicy(below->sizePolicy());
  auto* column = new QVBoxLayout(page);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addWidget(form);
  column->addWidget(below, 1);
  pages_->Add(identifier, title, page);
  return *form;
}

void PreferencesDialog::AddEntries() {
  Form& page = AddPage(PreferencesSheet::kFirstTab, Text("Entries"));
  const auto parts = Numbered({"Date", "Amount", "Description", "To/From", "Type"});
  fields_.AddChoice(page, Text("New entries begin at"), "selectWhichFieldFirstWhenAddingEntries",
                    parts);
  fields_.AddChoice(page, Text("Changes begin at"), "selectWhichFieldFirstWhenChangingEntries",
                    parts);
  fields_.AddChoice(page, Text("Date of new entries"), "defaultDateWhenAddingEntries",
                    Numbered({"Today", "That of the last one entered"}));
  page.AddRule();
  fields_.AddMark(page, Text("Number checks automatically"), "numberChecksAutomatically");
  fields_.AddMark(page, Text("Ask before an entry is removed"), "entryRemoveConfirm");
  fields_.AddMark(page, Text("Ask before a scheduled entry is removed"), "scheduleRemoveConfirm");
  fields_.AddMark(page, Text("Search while typing"), "liveUpdatingFilters");
  fields_.AddMark(page, Text("Keep filters between runs"), "saveFilterSettings");
}

void PreferencesDialog::AddWindow(const Items& items) {
  Form& page = AddPage("window", Text("Window"));
  fields_.AddMark(page, Text("Show the list of accounts"), "showAccountsDrawer");
  fields_.AddChoice(page, Text("It stands"), "accountsDrawerPreferredEdge",
                    {{ToUtf8(Text("At the left edge")), 0},
                     {ToUtf8(Text("At the right edge")), 2},
                     {ToUtf8(Text("At the lower edge")), 1},
                     {ToUtf8(Text("At the upper edge")), 3}});
  fields_.AddNumber(page, Text("Its width"), "accountsDrawerWidth",
                    Text("points; -1 for the usual width"));
  fields_.AddTextChoice(page, Text("Sorted by"), "accountListSortKey",
                        {{"accounts", Text("Name")}, {"balance", Text("Balance")}});
  fields_.AddMark(page, Text("Last ones first"), "accountListSortDescending");
  page.AddRule();
  fields_.AddChoice(page, Text("Account at the start"), "selectedAccountNumber", items.accounts);
  fields_.AddChoice(page, Text("Balance that shows"), "balanceMode", items.balance_modes);
}

void PreferencesDialog::AddRegisters() {
  Form& page = AddPage(kRegistersTab, Text("Registers"), rows_sample_);
  fields_.AddFont(page, Text("Font"), "entryFont");
  fields_.AddNumber(page, Text("Size"), "entryFontSize", Text("points"));
  const std::pair<QString, const char*> colors[] = {{Text("Debits"), "debitColor"},
                                                    {Text("Deposits"), "depositColor"},
                                                    {Text("Transfers"), "transferColor"}};
  for (const auto& [title, setting] : colors) {
    inks_.push_back(new InkSample(&page));
    fields_.AddColor(page, title, setting, inks_.back());
  }
  fields_.AddMark(page, Text("Italics for entries of days to come"), "italicizeFutureEntries");
  fields_.AddMark(page, Text("End long texts in an ellipsis"), "useEllipses");
}

void PreferencesDialog::AddFormats() {
  Form& page = AddPage("formats", Text("Dates and Amounts"), formats_sample_);
  fields_.AddChoice(page, Text("Dates"), "dateFormat",
                    Numbered({"Short", "Year-month-day", "Long"}));
  fields_.AddChoice(page, Text("Amounts"), "amountFormat",
                    Numbered({"With thousands separators", "Without separators"}));
  fields_.AddMark(page, Text("Currency symbol with amounts"), "showCurrencySymbol");
  page.AddNote(Text("Symbol and separators are those of your desktop's language."));
}

void PreferencesDialog::AddSchedules() {
  Form& page = AddPage("schedules", Text("Schedules"));
  fields_.AddNumber(page, Text("Announce ahead"), "scheduleLookAhead", {});
  fields_.AddChoice(page, Text("In"), "scheduleLookAheadType",
                    Numbered({"Days", "Weeks", "Months"}));
  fields_.AddNumber(page, Text("Remind every"), "scheduleReminderInterval", Text("seconds"));
  fields_.AddChoice(page, Text("Balance in the reminder"), "scheduleReminderBalanceMode",
                    Numbered({"None", "Today's", "After the marked entries"}));
}

void PreferencesDialog::AddSpeech() {
  Form& page = AddPage("speech", Text("Speech"));
  const PreferencesSheetState& state = sheet_.State();
  auto* voice = new QLabel(&page);
  voice->setTextFormat(Qt::PlainText);
  voice->setObjectName(QLatin1String("preferencesSheet_Voice"));
  voice->setText(state.voice.empty() ? Text("No voice is installed.") : ToQString(state.voice));
  page.AddFact(Text("Voice"), voice);
  page.AddNote(Text("The voice is your desktop's. Tallyfold has none of its own."));
  fields_.AddChoice(page, Text("Style"), "speakEntriesStyle", Numbered({"Style 1", "Style 2"}));
  fields_.AddNumber(page, Text("Pause between entries"), "pauseBetweenSpokenEntries",
                    Text("seconds"));
  fields_.AddMark(page, Text("Repeat the amount after it is typed"), "speakEntryAmounts");
  page.AddRule();
  auto* say = new QPushButton(IconNamed(QLatin1String("speak")), Text("Say an Example"), &page);
  say->setObjectName(QLatin1String("preferencesSheet_SayExample_Button"));
  say->setAccessibleName(Text("Say an Example"));
  say->setAutoDefault(false);
  say->setEnabled(!state.voice.empty() && !state.spoken_example.empty());
  page.AddUnlabelled(say);
  connect(say, &QPushButton::clicked, this, [this] { sheet_.SayExample(); });
  if (!state.spoken_example.empty()) {
    page.AddNote(ToQString(Message("\"{1}\"", {state.spoken_example})));
  }
}

void PreferencesDialog::AddFiles(const Items& items) {
  Form& page = AddPage("files", Text("Backups and Files"));
  fields_.AddNumber(page, Text("Back up every"), "backupInterval", Text("days"));
  page.AddRule();
  const std::vector<std::string> formats = TextsOfPreference("QIFExportDateFormat");
  std::vector<std::pair<std::string, QString>> titled;
  for (std::size_t i = 0; i < std::min(formats.size(), items.export_date_formats.size()); ++i) {
    titled.emplace_back(formats[i], ToQString(items.export_date_formats[i].title));
  }
  fields_.AddTextChoice(page, Text("Dates of QIF files"), "QIFExportDateFormat", titled);
  fields_.AddChoice(page, Text("Account to export"), "QIFExportAccount", items.export_accounts);
  fields_.AddChoice(page, Text("Encoding of QIF files"), "QIFExportEncoding", items.encodings);
}

void PreferencesDialog::AddSecurity() {
  Form& page = AddPage(PreferencesSheet::kSecurityTab, Text("Security"));
  password_ = new QLineEdit(&page);
  again_ = new QLineEdit(&page);
  page.Add(Text("Password"), password_, "preferencesSheet_Password_Field", kPasswordWidth);
  page.Add(Text("Once more"), again_, kPasswordAgain.data(), kPasswordWidth);
  for (QLineEdit* field : {password_, again_}) {
    field->setEchoMode(QLineEdit::Password);
    connect(field, &QLineEdit::textEdited, this, [this] { ReadPasswords(); });
  }
  page.AddNote(Text("Leave both empty for no password."));
  page.AddRule();
  page.AddHint(QLatin1String("lock"), ToQString(sheet_.State().security_note));
}

void PreferencesDialog::ReadPasswords() {
  sheet_.preferencesSheet_PasswordValidate(ToUtf8(password_->text()), ToUtf8(again_->text()));
}

void PreferencesDialog::OK() {
  if (sheet_.OK() || !sheet_.State().problem) return;
  for (Form* form : forms_) {
    QWidget* field = form->FieldWithProblem();
    if (field == nullptr) continue;
    static_cast<void>(sheet_.SelectTab(pages_->PageOf(form)));
    field->setFocus();
  }
}

void PreferencesDialog::ShowSample() {
  const PreferencesSheetState& state = sheet_.State();
  rows_sample_->Show(state.sample, *state.typed.settings);
  formats_sample_->Show(state.sample, *state.typed.settings);
  for (std::size_t i = 0; i < std::min(inks_.size(), state.sample.formats.size()); ++i) {
    const PreferencesSample::Format& format = state.sample.formats[i];
    if (format.look.color) inks_[i]->Show(ToQString(format.amount), ColorOf(*format.look.color));
  }
}

void PreferencesDialog::ShowState() {
  const PreferencesSheetState& state = sheet_.State();
  if (!state.is_open) return;
  fields_.Show();
  const auto show = [](QLineEdit* field, const std::string& text) {
    if (ToUtf8(field->text()) != text) field->setText(ToQString(text));
  };
  show(password_, state.typed.password);
  show(again_, state.typed.password_again);
  ShowSample();
  pages_->ShowPage(state.tab);
  defaults_->setVisible(state.tab == kRegistersTab);
  ok_->setEnabled(state.ok_is_enabled);
  std::optional<Problem> problem = state.problem;
  if (!problem && state.passwords_differ && !state.typed.password_again.empty()) {
    problem = Problem{std::string(kPasswordAgain), ToUtf8(Text("The two passwords differ."))};
  }
  bool is_at_field = false;
  for (Form* form : forms_) is_at_field = form->ShowProblem(problem) || is_at_field;
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(problem)));
}

}  // namespace tallyfold::desktop
