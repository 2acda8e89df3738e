// The import of a bank's file: its options, and what of it is under review.

#include <filesystem>
#include <utility>

#include "app/exchange/qif_import_controller.h"
#include "ledger/change.h"
#include "model/date_number.h"
#include "platform/ambient.h"
#include "registers/register_look.h"
#include "storage/preferences.h"

namespace tallyfold {

void LDGRQIFImportController::StatementOptions_InitWithFile(const std::string& path,
                                                            FileContents contents,
                                                            std::optional<std::int32_t> encoding) {
  account_ = desk_.SelectedAccount();
  path_ = path;
  options_ = {};
  options_.title =
      LocalizedText("Importing From:") + "  " + std::filesystem::path(path).filename().string();
  statement_ =
      StatementImport(std::move(contents), encodings_,
                      *desk_.preferences().GetPreferencesForAccountNumber(account_->GetNumber()));
  auto typed = statement_.State().typed;
  if (encoding) {
    Choose(typed.choices, StatementSetting::Encoding, *encoding);
    statement_.Read(std::move(typed));
  }
  ShowStatement();
}

void LDGRQIFImportController::ShowStatement() {
  const std::string format = RegisterDateFormat(desk_.preferences());
  statement_.Show(*account_, {format, desk_.preferences()});
  options_.problem.reset();
  announcer_.Changed(Area::ImportOptionsSheet);
}

void LDGRQIFImportController::StatementOptions_Read(StatementOptionsState::Typed typed) {
  if (stage_ != Stage::Options || !IsStatement()) return;
  statement_.Read(std::move(typed));
  ShowStatement();
}

void LDGRQIFImportController::StatementOptions_Answer(std::size_t question, std::size_t candidate) {
  if (stage_ != Stage::Options || !IsStatement()) return;
  statement_.Answer(question, candidate);
  ShowStatement();
}

void LDGRQIFImportController::Import_InitStatement() {
  statement_.Remember(*desk_.preferences().GetPreferencesForAccountNumber(account_->GetNumber()));
  Change change(ledger_);
  // The review takes a number of the account.
  change.EditSettings(account_);
  review_ = QifReview(statement_.Entries(*account_), *account_);
  change.Close();
  BeginReview();
  review_state_.hints = statement_.Hints(TodaysDateNumber());
  review_state_.repeated_count = statement_.Unmarked(UnmarkedReason::Repeated);
  review_state_.foreign_count = statement_.Unmarked(UnmarkedReason::ForeignCurrency);
  review_state_.pending_count = statement_.Unmarked(UnmarkedReason::Pending);
  review_state_.reused_identifiers = statement_.ReusedIdentifiers();
  if (const auto balance = statement_.ClosingBalance()) {
    review_state_.balance = balance;
    review_state_.balance_text = RegisterAmountText(balance->amount, desk_.preferences());
    const std::string format = RegisterDateFormat(desk_.preferences());
    if (balance->day) {
      review_state_.balance_day = DayCell(*balance->day, {format, desk_.preferences()}).text;
    }
  }
  ShowReviewed();
}

}  // namespace tallyfold
