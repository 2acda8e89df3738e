// The options sheet of an import, and how its stages follow one another.

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "app/exchange/encoding_menu.h"
#include "app/exchange/qif_date_items.h"
#include "app/exchange/qif_import_controller.h"
#include "exchange/entry_type_index.h"
#include "exchange/qif_date_formats.h"
#include "exchange/qif_hints.h"
#include "ledger/change.h"
#include "platform/ambient.h"
#include "platform/file_system.h"
#include "platform/message.h"
#include "platform/text_encodings.h"
#include "registers/register_look.h"

namespace tallyfold {
namespace {

using Typed = QifImportOptionsState::Typed;

constexpr std::string_view kAccountPopUp = "importOptions_Account_PopUp";
constexpr std::string_view kDateFormatPopUp = "importOptions_DateFormat_PopUp";

constexpr TypedField<Typed> kFields[] = {
    {kAccountPopUp, AreSame<Typed, &Typed::account>},
    {kDateFormatPopUp, AreSame<Typed, &Typed::date_format>},
};

bool IsDestination(std::int32_t value) noexcept {
  return value >= QifOptions::kType && value <= QifOptions::kDescription;
}

bool IsPermutation(std::int32_t a, std::int32_t b, std::int32_t c) noexcept {
  return IsDestination(a) && IsDestination(b) && IsDestination(c) && a != b && b != c && a != c;
}

}  // namespace

void LDGRQIFImportController::ImportOptions_InitWithFile(const std::string& path,
                                                         std::int32_t encoding) {
  account_ = desk_.SelectedAccount();
  path_ = path;
  options_ = {};
  statement_ = {};
  TakeText(LDGRQIFImport::importWithContentsOfFile(path, encoding, files_, encodings_), encoding);
  options_.title =
      Message("Importing From:  {1}", {std::filesystem::path(path).filename().string()});
  ImportOptions_Populate();
}

void LDGRQIFImportController::TakeText(LDGRQIFImport import, std::int32_t encoding) {
  import_ = std::move(import);
  chosen_encoding_ = encoding;
  const auto chosen = static_cast<TextEncoding>(encoding);
  const TextEncoding read = import_.Reading().encoding;
  options_.encoding = encodings_.Name(read);
  options_.refused_encoding = read == chosen ? "" : encodings_.Name(chosen);
  account_names_ = import_.AccountNames();
  dates_ = DateProofOf(import_);
  EncodingMenu menu;
  menu.Populate(encodings_);
  std::vector<std::int32_t> offered;
  for (const PopUpItem& item : menu.items()) {
    if (!item.is_separator) offered.push_back(item.tag);
  }
  const auto contents = files_.Read(path_);
  samples_ = SamplesOf(contents ? FirstForeignText(contents->view()) : "", offered, encodings_);
  options_.encoding_tag = static_cast<std::int32_t>(read);
  options_.account_items.clear();
  for (std::size_t i = 0; i < account_names_.size(); ++i) {
    options_.account_items.push_back({account_names_[i], static_cast<std::int32_t>(i)});
  }
  options_.account_items.push_back(
      {LocalizedText("All Entries"), static_cast<std::int32_t>(account_names_.size())});
}

bool LDGRQIFImportController::ImportOptions_SetEncoding(std::int32_t encoding) {
  if (stage_ != Stage::Options || IsStatement() || !files_.Exists(path_)) return false;
  auto again = LDGRQIFImport::importWithContentsOfFile(path_, encoding, files_, encodings_);
  const bool is_gone = again.GetError() == LDGRQIFImport::kNone && again.dataString().empty();
  if (is_gone) return false;
  const auto accounts_before = static_cast<std::int32_t>(account_names_.size());
  TakeText(std::move(again), encoding);
  const auto accounts = static_cast<std::int32_t>(account_names_.size());
  // In the wrong encoding a file may have had no accounts to choose from.
  const bool was_all = options_.typed.account == accounts_before && accounts_before > 0;
  if (was_all || options_.typed.account > accounts) options_.typed.account = accounts;
  announcer_.Changed(Area::ImportOptionsSheet);
  return true;
}

void LDGRQIFImportController::ImportOptions_Populate() {
  if (account_ == nullptr || IsStatement()) return;
  options_.date_format_items = QifDateItems();
  options_.swap_items = {{LocalizedText("Type"), QifOptions::kType},
                         {LocalizedText("To/From"), QifOptions::kToFrom},
                         {LocalizedText("Description"), QifOptions::kDescription}};

  auto& typed = options_.typed;
  typed.account = 0;
  typed.date_format =
      IndexOfItemTagged(options_.date_format_items, account_->GetQIFImportDateFormat());
  if (typed.date_format == kNoItem) typed.date_format = 0;
  typed.decimal_separator = account_->GetQIFImportDecimalSeparator();
  typed.thousands_separator = account_->GetQIFImportThousandsSeparator();
  typed.zero_amounts_as_deposits = account_->GetQIFImportZeroAmountsAsDeposits();
  typed.all_types = account_->GetQIFImportAllTypes();
  typed.split_line_items = account_->GetQIFImportSplitLineItems();

  const std::int32_t type = account_->GetQIFImport_SwapOptions_Type();
  const std::int32_t to_from = account_->GetQIFImport_SwapOptions_ToFrom();
  const std::int32_t description = account_->GetQIFImport_SwapOptions_Description();
  // A file may hold anything; the pop-ups never show the same destination twice.
  if (IsPermutation(type, to_from, description)) {
    options_.swap_type = type;
    options_.swap_to_from = to_from;
    options_.swap_description = description;
  }
  announcer_.Changed(Area::ImportOptionsSheet);
}

void LDGRQIFImportController::ImportOptions_SwapOptions(SwapPopUp changed,
                                                        std::int32_t destination) {
  if (!IsDestination(destination)) return;
  const std::array pop_ups = {&options_.swap_type, &options_.swap_to_from,
                              &options_.swap_description};
  std::int32_t& picked = *pop_ups[static_cast<std::size_t>(changed)];
  for (std::int32_t* const other : pop_ups) {
    if (*other == destination) *other = picked;
  }
  picked = destination;
  announcer_.Changed(Area::ImportOptionsSheet);
}

QifOptions LDGRQIFImportController::ChosenOptions() const {
  const auto& typed = options_.typed;
  QifOptions chosen;
  const auto& formats = options_.date_format_items;
  if (typed.date_format >= 0 && static_cast<std::size_t>(typed.date_format) < formats.size()) {
    chosen.date_format =
        QifDateFormatForTag(formats[static_cast<std::size_t>(typed.date_format)].tag);
  }
  chosen.decimal_separator = typed.decimal_separator;
  chosen.thousands_separator = typed.thousands_separator;
  chosen.zero_amounts_as_deposits = typed.zero_amounts_as_deposits;
  chosen.all_types = typed.all_types;
  chosen.split_line_items = typed.split_line_items;
  chosen.swap_type = options_.swap_type;
  chosen.swap_to_from = options_.swap_to_from;
  chosen.swap_description = options_.swap_description;
  return chosen;
}

QifImportProof LDGRQIFImportController::ImportOptions_Proof() const {
  if (stage_ != Stage::Options || IsStatement()) return {};
  LDGRQIFImport import = import_;
  import.SetOptions(ChosenOptions());
  const QifResult result = import.Parse();
  const QifAccount* account = ChosenAccount(result);
  const std::string date_format = RegisterDateFormat(desk_.preferences());
  QifImportProof proof = ProofOf(result, account == nullptr ? result.entries : *account->entries,
                                 dates_, {date_format, desk_.preferences()});
  proof.samples = samples_;
  proof.problem = ProblemOf(import_);
  const EntryTypeIndex known(*account_);
  proof.new_type_count =
      static_cast<std::size_t>(std::ranges::count_if(result.types, [&known](const QifType& type) {
        return known.Find(type.name, type.is_deposit) == nullptr;
      }));
  return proof;
}

// --- Stages -------------------------------------------------------------------------------------

bool LDGRQIFImportController::Run() {
  const Announcer::Operation operation(announcer_);
  return stage_ == Stage::None && account_ != nullptr && ImportOptions_Run();
}

bool LDGRQIFImportController::ImportOptions_Run() {
  if (!sheets_.Open(Sheet::ImportOptions, [this] { ImportOptions_Cancel(); })) return false;
  stage_ = Stage::Options;
  up_.emplace(modal_);
  options_.is_open = true;
  announcer_.Changed(Area::ImportOptionsSheet);
  return true;
}

void LDGRQIFImportController::ImportOptions_Read(Typed typed) {
  TakeTyped(options_.typed, std::move(typed), options_.problem, kFields);
}

std::optional<Problem> LDGRQIFImportController::ProblemOfOptions() const {
  if (IsStatement()) {
    std::string text = statement_.Problem();
    return text.empty() ? std::nullopt : std::optional(Problem{"", std::move(text)});
  }
  const auto is_item = [](const std::vector<PopUpItem>& items, std::int32_t index) {
    return index >= 0 && static_cast<std::size_t>(index) < items.size();
  };
  if (!is_item(options_.account_items, options_.typed.account)) {
    return Problem{std::string(kAccountPopUp), LocalizedText("No account is chosen.")};
  }
  if (!is_item(options_.date_format_items, options_.typed.date_format)) {
    return Problem{std::string(kDateFormatPopUp), LocalizedText("No date format is chosen.")};
  }
  return std::nullopt;
}

bool LDGRQIFImportController::ImportOptions_OK() {
  const Announcer::Operation operation(announcer_);
  if (stage_ != Stage::Options || !announcer_.EndEditing(Sheet::ImportOptions)) return false;
  options_.problem = ProblemOfOptions();
  if (options_.problem) {
    announcer_.Changed(Area::ImportOptionsSheet);
    return false;
  }
  if (IsStatement()) {
    Import_InitStatement();
  } else {
    StoreOptions();
    PassOptionsToParser();
    Import_Init(import_.Parse());
  }
  StageEnded(kConfirmed);
  return true;
}

void LDGRQIFImportController::ImportOptions_Cancel() {
  const Announcer::Operation operation(announcer_);
  if (stage_ == Stage::Options) StageEnded(kCancelled);
}

void LDGRQIFImportController::StageEnded(std::int32_t result) {
  const Stage ended = std::exchange(stage_, Stage::None);
  up_.reset();
  if (ended == Stage::Options) {
    options_.is_open = false;
    announcer_.Changed(Area::ImportOptionsSheet);
    sheets_.Close(Sheet::ImportOptions);
    if (result == kConfirmed) return Import_Run();
  } else if (result == kGoBack && ImportOptions_Run()) {
    return;
  }
  account_ = nullptr;
  import_ = {};
  statement_ = {};
  review_ = {};
  host_.ImportEnded();
}

void LDGRQIFImportController::StoreOptions() {
  Change change(ledger_);
  change.EditSettings(account_);
  const auto& typed = options_.typed;
  const auto& formats = options_.date_format_items;
  account_->SetQIFImportEncoding(chosen_encoding_);
  account_->SetQIFImportDateFormat(formats[static_cast<std::size_t>(typed.date_format)].tag);
  account_->SetQIFImportDecimalSeparator(typed.decimal_separator);
  account_->SetQIFImportThousandsSeparator(typed.thousands_separator);
  account_->SetQIFImportZeroAmountsAsDeposits(typed.zero_amounts_as_deposits);
  account_->SetQIFImportAllTypes(typed.all_types);
  account_->SetQIFImportSplitLineItems(typed.split_line_items);
  account_->SetQIFImport_SwapOptions_Type(options_.swap_type);
  account_->SetQIFImport_SwapOptions_ToFrom(options_.swap_to_from);
  account_->SetQIFImport_SwapOptions_Description(options_.swap_description);
  change.Close();
}

void LDGRQIFImportController::PassOptionsToParser() {
  import_.SetDateFormat(QifDateFormatForTag(account_->GetQIFImportDateFormat()));
  import_.SetDecimalSeparator(account_->GetQIFImportDecimalSeparator());
  import_.SetThousandsSeparator(account_->GetQIFImportThousandsSeparator());
  import_.SetImportZeroAmountsAsDeposits(account_->GetQIFImportZeroAmountsAsDeposits());
  import_.SetImportAllTypes(account_->GetQIFImportAllTypes());
  import_.SetImportSplitLineItems(account_->GetQIFImportSplitLineItems());
  import_.SetSwapOptions_Type(account_->GetQIFImport_SwapOptions_Type());
  import_.SetSwapOptions_ToFrom(account_->GetQIFImport_SwapOptions_ToFrom());
  import_.SetSwapOptions_Description(account_->GetQIFImport_SwapOptions_Description());
}

}  // namespace tallyfold
