#include "desktop/sheets/transfer_dialog.h"

#include <QComboBox>
#include <QLabel>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "app/desk.h"
#include "desktop/fields/amount_field.h"
#include "desktop/look/measures.h"
#include "desktop/sheets/balance_card.h"
#include "desktop/sheets/form.h"
#include "desktop/texts.h"

namespace tallyfold::desktop {
namespace {

constexpr int kTransferFormWidth = 440;
constexpr int kDirectionWidth = 140;
constexpr int kAccountWidth = 200;

}  // namespace

TransferDialog::TransferDialog(const Parts& parts, TransferSheet& sheet, QWidget* window)
    : EditDialog(parts, window), sheet_(sheet) {
  Fields().SetLeastWidth(kTransferFormWidth);
  AddDate();
  direction_ = AddPopUp(Text("Direction"), "_Direction_PopUp", kDirectionWidth);
  account_ = AddPopUp(Text("Account"), "_Account_PopUp", kAccountWidth);
  Fields().AddRow(Text("Amount"), {amount_});
  Fields().Add(Text("Description"), description_, Named("_Description_Field").constData());
  AddMarksAndNotes();
  note_ = Form::MakeNote(this);
  note_->setObjectName(QLatin1String(Named("_Note_Label")));
  note_->setWordWrap(true);
  card_ = new BalanceCard(this);
  Body().setSpacing(kGroupGap);
  Body().addWidget(&Fields(), 1);
  Body().addWidget(note_);
  Body().addWidget(card_);
  PutThenNew(true);
}

void TransferDialog::Read() {
  if (IsShowing() || !sheet_.State().is_open) return;
  TransferSheetState::Typed typed = sheet_.State().typed;
  ReadShared(typed);
  typed.direction = direction_->currentIndex();
  typed.account = account_->currentIndex();
  sheet_.Read(std::move(typed));
  ShowCard();
}

void TransferDialog::ShowState() {
  const TransferSheetState& state = sheet_.State();
  if (!state.is_open) return;
  const bool begins = TakeEntry(state.is_new, state.typed.date);
  {
    const QScopedValueRollback<bool> showing(IsShowing(), true);
    ShowItems(*direction_, state.direction_items, state.typed.direction);
    ShowItems(*account_, state.account_items, state.typed.account);
    ShowShared(state.typed);
    if (begins) {
      description_->SetTexts(state.descriptions);
      FocusFirst(state.first_field, account_, direction_);
    }
    note_->setText(ToQString(state.note));
    note_->setVisible(!state.note.empty());
  }
  ShowCard();
  ShowRefused(state.problem);
}

void TransferDialog::ShowCard() {
  card_->setVisible(!sheet_.State().sentence.empty());
  card_->Show(sheet_.State(), TheDesk().preferences());
  // Long names break the sentence into another line, and the fields have none to spare.
  GrowFor(card_);
}

}  // namespace tallyfold::desktop
