#include "desktop/sheets/account_dialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "desktop/fields/amount_field.h"
#include "desktop/look/figure_label.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/account_texts_page.h"
#include "desktop/sheets/account_types_page.h"
#include "desktop/sheets/form.h"
#include "desktop/sheets/page_list.h"
#include "desktop/texts.h"
#include "platform/message.h"

namespace tallyfold::desktop {
namespace {

constexpr int kAccountSheetWidth = 760;
constexpr int kLeastAccountHeight = 480;
constexpr int kAccountTextWidth = 260;
constexpr int kAccountPasswordWidth = 240;
constexpr const char* kGeneralPage = "general";
constexpr const char* kTypesPage = "types";
constexpr const char* kDescriptionsPage = "descriptions";
constexpr const char* kToFromsPage = "toFroms";
constexpr const char* kPasswordPage = "password";
constexpr const char* kPasswordField = "accountEditSheet_PasswordAgain_Field";
constexpr const char* kTypesField = "accountEditSheet_Types_Table";
constexpr const char* kDescriptionsField = "accountEditSheet_DescriptionsCount_Field";
constexpr const char* kToFromsField = "accountEditSheet_ToFromsCount_Field";

// The one with the field of that name.
const char* PageOfField(const std::string& field) {
  if (field == kTypesField) return kTypesPage;
  if (field == kPasswordField) return kPasswordPage;
  if (field == kDescriptionsField) return kDescriptionsPage;
  return field == kToFromsField ? kToFromsPage : kGeneralPage;
}

AccountTextsPage::Parts PartsOfDescriptions() {
  using Typed = AccountTextsPage::Typed;
  return {Text("What is offered while a description is typed"),
          {Text("Every description of the account"), Text("The latest"), Text("Only these:")},
          Text("of them"),
          "accountEditSheet_Descriptions",
          &Typed::descriptions_style,
          kDescriptionsField,
          &Typed::descriptions_count,
          {{Text("Debits"), "accountEditSheet_DebitDescriptions_Table", &Typed::debit_descriptions},
           {Text("Deposits"), "accountEditSheet_DepositDescriptions_Table",
            &Typed::deposit_descriptions},
           {Text("Transfers"), "accountEditSheet_TransferDescriptions_Table",
            &Typed::transfer_descriptions}},
          &AccountEditing::ImportDescriptionsFrom};
}

AccountTextsPage::Parts PartsOfToFroms() {
  using Typed = AccountTextsPage::Typed;
  return {Text("What is offered while a payee or payer is typed"),
          {Text("Every one of the account"), Text("The latest"), Text("Only these:")},
          Text("of them"),
          "accountEditSheet_ToFroms",
          &Typed::to_froms_style,
          kToFromsField,
          &Typed::to_froms_count,
          {{Text("To"), "accountEditSheet_Tos_Table", &Typed::tos},
           {Text("From"), "accountEditSheet_Froms_Table", &Typed::froms}},
          &AccountEditing::ImportToFromsFrom};
}

// None where it is no whole number of 32 bits.
std::optional<std::int32_t> WholeNumberIn(const QLineEdit& field) {
  bool is_number = false;
  const int number = field.text().trimmed().toInt(&is_number);
  return is_number ? std::optional<std::int32_t>(number) : std::nullopt;
}

}  // namespace

AccountDialog::AccountDialog(AccountEditing& editing, const Desk& desk, QWidget* window)
    : SheetDialog(window, editing.State().is_new
                              ? Text("New Account")
                              : ToQString(Message("Account: {1}", {editing.State().typed.name}))),
      editing_(editing),
      pages_(new PageList(this, "accountEditSheet_TabView")),
      general_(new Form(this)),
      security_(new Form(this)),
      name_(new QLineEdit(general_)),
      balance_(new AmountField(general_)),
      check_number_(new QLineEdit(general_)),
      password_(new QLineEdit(security_)),
      again_(new QLineEdit(security_)),
      types_(new AccountTypesPage(editing, desk, this)),
      descriptions_(new AccountTextsPage(editing, desk, PartsOfDescriptions(), this)),
      to_froms_(new AccountTextsPage(editing, desk, PartsOfToFroms(), this)) {
  setObjectName(QLatin1String("accountEditSheet"));
  SetWantedWidth(kAccountSheetWidth);
  UseWholeWidth();
  MakeGeneral();
  MakeSecurity();
  pages_->setMinimumHeight(kLeastAccountHeight);
  pages_->Add(kGeneralPage, Text("General"), general_);
  pages_->Add(kTypesPage, Text("Types"), types_);
  pages_->Add(kDescriptionsPage, Text("Descriptions"), descriptions_);
  pages_->Add(kToFromsPage, Text("To and From"), to_froms_);
  pages_->Add(kPasswordPage, Text("Password"), security_);
  Body().addWidget(pages_);
  for (QLineEdit* field :
       {name_, static_cast<QLineEdit*>(balance_), check_number_, password_, again_}) {
    connect(field, &QLineEdit::textChanged, this, [this] { Read(); });
  }
  connect(AddButton("accountEditSheet_Cancel_Button", Text("Cancel")), &QPushButton::clicked, this,
          [this] { Cancel(); });
  QPushButton* ok = AddButton("accountEditSheet_OK_Button", Text("OK"), true);
  connect(ok, &QPushButton::clicked, this, [this] { OK(); });
  name_->setFocus();
}

void AccountDialog::MakeGeneral() {
  general_->Add(Text("Name"), name_, "accountEditSheet_Name_Field", kAccountTextWidth);
  general_->Add(Text("Starting balance"), balance_, "accountEditSheet_StartingBalance_Field",
                kAmountFieldWidth);
  general_->AddNote(Text("What it held before its first entry. All balances count from here."));
  general_->Add(Text("First check number"), check_number_,
                "accountEditSheet_StartingCheckNumber_Field", kNumberFieldWidth);
  check_number_->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
  general_->AddNote(Text("For the first check only; then numbers go on from the highest."));
  const auto& facts = editing_.State().fact_lines;
  if (facts.empty()) return;
  general_->AddRule();
  for (const AccountFactLine& line : facts) {
    auto* text = new FigureLabel(general_);
    text->setText(ToQString(line.text));
    general_->AddFact(ToQString(line.title), text);
  }
}

void AccountDialog::MakeSecurity() {
  security_->Add(Text("Password"), password_, "accountEditSheet_Password_Field",
                 kAccountPasswordWidth);
  security_->Add(Text("Once more"), again_, "accountEditSheet_PasswordAgain_Field",
                 kAccountPasswordWidth);
  for (QLineEdit* field : {password_, again_}) field->setEchoMode(QLineEdit::Password);
  security_->AddNote(Text("Leave both empty for no password."));
  security_->AddRule();
  security_->AddHint(QLatin1String("lock"), ToQString(editing_.State().security_note));
}

void AccountDialog::OK() {
  Read();
  editing_.AccountEditSheet_OK();
  const auto& problem = editing_.State().problem;
  if (!problem) return;
  pages_->ShowPage(PageOfField(problem->field));
  for (const Form* form : {general_, security_}) {
    if (form->FieldWithProblem() != nullptr) form->FieldWithProblem()->setFocus();
  }
  descriptions_->GoToProblem();
  to_froms_->GoToProblem();
  if (problem->field == kTypesField) types_->GoTo(problem->row);
}

void AccountDialog::Read() {
  if (is_showing_ || !editing_.State().is_open) return;
  // What has no field here stays as it is.
  AccountEditSheetState::Typed typed = editing_.State().typed;
  typed.name = ToUtf8(name_->text());
  typed.starting_balance =
      balance_->text().trimmed().isEmpty() ? std::optional(0.0) : balance_->Amount();
  typed.starting_check_number = WholeNumberIn(*check_number_);
  typed.password = ToUtf8(password_->text());
  typed.password_again = ToUtf8(again_->text());
  editing_.Read(std::move(typed));
  ShowRefused();
}

bool AccountDialog::EndEditing() {
  balance_->AddUp();
  types_->EndEditing();
  descriptions_->EndEditing();
  to_froms_->EndEditing();
  Read();
  return true;
}

void AccountDialog::ShowState() {
  const AccountEditSheetState& state = editing_.State();
  if (!state.is_open) return;
  {
    const QScopedValueRollback<bool> showing(is_showing_, true);
    const auto show = [](QLineEdit* field, const QString& text) {
      if (field->text() != text) field->setText(text);
    };
    const auto& typed = state.typed;
    show(name_, ToQString(typed.name));
    // A field that cannot be read keeps its text.
    if (typed.starting_balance && balance_->Amount() != typed.starting_balance) {
      show(balance_, TextOfAmount(*typed.starting_balance));
    }
    if (typed.starting_check_number &&
        WholeNumberIn(*check_number_) != typed.starting_check_number) {
      show(check_number_, QString::number(*typed.starting_check_number));
    }
    show(password_, ToQString(typed.password));
    show(again_, ToQString(typed.password_again));
    if (!isVisible()) name_->selectAll();
    types_->Show();
    descriptions_->Show();
    to_froms_->Show();
  }
  ShowRefused();
}

void AccountDialog::ShowRefused() {
  const AccountEditSheetState& state = editing_.State();
  const bool is_at_general = general_->ShowProblem(state.problem);
  const bool is_at_security = security_->ShowProblem(state.problem);
  const bool is_at_descriptions = descriptions_->ShowProblem(state.problem);
  const bool is_at_to_froms = to_froms_->ShowProblem(state.problem);
  const bool is_at_field = is_at_general || is_at_security || is_at_descriptions || is_at_to_froms;
  ShowProblem(is_at_field ? QString() : ToQString(TextOf(state.problem)));
}

}  // namespace tallyfold::desktop
