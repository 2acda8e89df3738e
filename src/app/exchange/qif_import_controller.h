#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/desk.h"
#include "app/entries/edited_entry.h"
#include "app/entries/entry_editing.h"
#include "app/exchange/qif_import_proof.h"
#include "app/exchange/qif_import_state.h"
#include "app/exchange/qif_import_table_data.h"
#include "app/exchange/statement_import.h"
#include "app/face/announcer.h"
#include "app/face/sheet_slot.h"
#include "app/shell/modal_watch.h"
#include "exchange/qif_import.h"
#include "exchange/qif_review.h"
#include "ledger/ledger.h"
#include "model/account.h"
#include "registers/entry_speaker.h"

namespace tallyfold {

class FileSystem;
class LDGRPreferences;
class TextEncodings;

// An import from its options to its end: the options sheet, then the review, which may go back to
// the sheet. The account gets the options at OK of the sheet, entries and types at OK of the review
// and nothing before. A bank's file has options of its own and the same review.
//
// Both stages are modal: while one is there, a front end offers no command but those listed here.
class LDGRQIFImportController final : private EntryOwner {
 public:
  class Host {
   public:
    virtual ~Host() = default;
    // The last stage is over, whether or not the account has changed.
    virtual void ImportEnded() = 0;
  };

  // How a stage ends.
  static constexpr std::int32_t kCancelled = 0;
  static constexpr std::int32_t kConfirmed = 1;
  static constexpr std::int32_t kGoBack = 2;

  // All must outlive this.
  LDGRQIFImportController(Host& host, Desk& desk, Ledger& ledger, EntryEditing& editing,
                          EntrySpeaker& speaker, ModalWatch& modal, const FileSystem& files,
                          const TextEncodings& encodings, SheetSlot& sheets,
                          Announcer& announcer) noexcept
      : host_(host),
        desk_(desk),
        ledger_(ledger),
        editing_(editing),
        speaker_(speaker),
        modal_(modal),
        files_(files),
        encodings_(encodings),
        sheets_(sheets),
        announcer_(announcer),
        rows_(desk, [this](const LDGRQIFImportEntry& entry) { return StandingOf(entry); }) {}
  LDGRQIFImportController(const LDGRQIFImportController&) = delete;
  LDGRQIFImportController& operator=(const LDGRQIFImportController&) = delete;

  // Reads the file for the selected account and fills the options sheet. To be followed by Run().
  void ImportOptions_InitWithFile(const std::string& path, std::int32_t encoding);
  // The same for a bank's file. `encoding` is what the user chose for it, none to find out.
  void StatementOptions_InitWithFile(const std::string& path, FileContents contents,
                                     std::optional<std::int32_t> encoding);
  // Starts with the options sheet. False when there is no account or another sheet is open.
  bool Run();
  [[nodiscard]] bool IsRunning() const noexcept { return stage_ != Stage::None; }

  // --- The options sheet ------------------------------------------------------------------------
  [[nodiscard]] const QifImportOptionsState& Options() const noexcept { return options_; }
  void ImportOptions_Populate();
  // Takes over what the user typed.
  void ImportOptions_Read(QifImportOptionsState::Typed typed);
  // The pop-ups by what they are for: the lines of the file.
  enum class SwapPopUp : std::uint8_t { Categories, Payees, Memos };
  // A destination (see QifOptions) was picked in one of them. The pop-up that had it takes the one
  // that is left free. Anything else is ignored.
  void ImportOptions_SwapOptions(SwapPopUp changed, std::int32_t destination);
  // Reads the file again in another encoding, which OK stores as the others. The account of the
  // file that is chosen keeps its place. False, and nothing has changed, when the sheet is not open
  // or the file can no longer be read.
  bool ImportOptions_SetEncoding(std::int32_t encoding);
  // What the options make of the file as things stand; takes as long as reading it. Empty while the
  // sheet is closed, and of a bank's file.
  [[nodiscard]] QifImportProof ImportOptions_Proof() const;
  // Stores what was chosen in the account and goes on with the review. False when the sheet is not
  // open, or stays open: its state then says why, unless a field of the front end has refused its
  // text.
  bool ImportOptions_OK();
  void ImportOptions_Cancel();

  // --- The options sheet of a bank's file -----------------------------------------------------
  [[nodiscard]] bool IsStatement() const noexcept { return statement_.IsThere(); }
  [[nodiscard]] const StatementOptionsState& StatementOptions() const noexcept {
    return statement_.State();
  }
  // What the table looks like beside how it is read; takes as long as looking through it. None of
  // other files.
  [[nodiscard]] CsvLines StatementOptions_Lines() const { return statement_.Lines(); }
  // Takes over what was chosen and reads the file again where that makes a difference.
  void StatementOptions_Read(StatementOptionsState::Typed typed);
  // A candidate of a question of the state was chosen.
  void StatementOptions_Answer(std::size_t question, std::size_t candidate);

  // --- The review -------------------------------------------------------------------------------
  [[nodiscard]] bool IsReviewing() const noexcept { return review_state_.is_open; }
  [[nodiscard]] const QifImportReviewState& Review() const noexcept { return review_state_; }
  [[nodiscard]] LDGRQIFImportTableViewDataSource& tableDataSource() noexcept { return rows_; }
  [[nodiscard]] const LDGRQIFImportTableViewDataSource& tableDataSource() const noexcept {
    return rows_;
  }
  [[nodiscard]] const QifImportEntryList& entries() const noexcept { return review_.entries(); }
  [[nodiscard]] QifImportEntryList entriesToImport() const { return review_.entriesToImport(); }
  [[nodiscard]] const std::vector<std::string>& accountNames() const noexcept {
    return account_names_;
  }
  // New types that the import may add to the account.
  [[nodiscard]] const EntryTypeList& types() const noexcept { return review_.types(); }
  // The one whose sheet was opened last; null before the first.
  [[nodiscard]] const std::shared_ptr<LDGRQIFImportEntry>& editEntry() const noexcept {
    return edit_entry_;
  }
  // What the entry repeats in the account, or comes near to; none for none.
  [[nodiscard]] std::optional<QifMatch> MatchOf(const LDGRQIFImportEntry& entry) const {
    return review_.MatchOf(entry);
  }
  // The entry's place in the file, from 1 on, which it keeps whatever is removed or sorted.
  [[nodiscard]] std::int32_t PlaceOf(const LDGRQIFImportEntry& entry) const noexcept {
    return entry.GetNumber() - first_number_ + 1;
  }
  // What of the account the entry can be matched with: first what Match() takes or has taken, then
  // the nearest in days; empty for nothing.
  [[nodiscard]] EntryList MatchesFor(const LDGRQIFImportEntry& entry) const {
    return review_.MatchesFor(entry);
  }
  [[nodiscard]] ReviewStanding StandingOf(const LDGRQIFImportEntry& entry) const;
  // Null for none.
  [[nodiscard]] std::shared_ptr<LDGRQIFImportEntry> EntryAtPlace(std::int32_t place) const;

  // Builds the review from what was read.
  void Import_Init(const QifResult& result);
  void Import_InitStatement();
  void Import_DoNotImportPotentialDuplicates();
  void ImportTotal_Field_Update();

  void SelectEntry(const std::shared_ptr<LDGRQIFImportEntry>& entry);
  void ClickedTableColumn(std::string_view identifier);

  // Each acts on the selected entry and does nothing without one.
  void ImportEntry_Import();   // in or out of the import
  bool ImportEntry_Change();   // opens the sheet for it; false when it cannot
  void ImportEntry_Remove();   // out of the review
  void ImportEntry_Resolve();  // its cleared mark
  void ImportEntry_Match();    // with an entry of the account instead of importing it, or not
  void SpeakEntry();
  // The check boxes of the table.
  void Import_CheckBox(const std::shared_ptr<LDGRQIFImportEntry>& entry);
  void Cleared_CheckBox(const std::shared_ptr<LDGRQIFImportEntry>& entry);
  // False when there is nothing to match it with.
  bool Match(const std::shared_ptr<LDGRQIFImportEntry>& entry, bool matched);
  // With one of MatchesFor(); anything else is refused.
  bool MatchWith(const std::shared_ptr<LDGRQIFImportEntry>& entry,
                 const std::shared_ptr<LDGRAccountEntry>& chosen);
  // Whether the balance of the file becomes the statement balance of the account at OK; nothing
  // where it has none.
  void Import_TakeBalance(bool takes);
  // Several of the review at once.
  void MarkEntries(const QifImportEntryList& entries, bool marked);
  void RemoveEntries(QifImportEntryList entries);
  void TurnClearedOver(const QifImportEntryList& entries);
  // Those come back that there is nothing to match with.
  QifImportEntryList MatchEntries(const QifImportEntryList& entries, bool matched);
  // All of them in, or all out when all are in.
  void ImportEntry_ImportAll();
  // All out that have no date that could be read.
  void ImportEntry_UnmarkUndated();

  // Asks, then Import_OK().
  bool import_OK_Button();
  // Adds the marked entries and the types they need to the account. False, and the review stays,
  // when the account is no longer selected or a sheet is open.
  bool Import_OK();
  void import_Cancel_Button();
  // Back to the options sheet; what was changed in the review is lost. False when there is no
  // review, or a sheet is open.
  bool import_GoBack_Button();

 private:
  enum class Stage : std::uint8_t { None, Options, Review };

  bool ImportOptions_Run();
  void Import_Run();
  // The stage that runs is over; the next one begins, the one before, or none.
  void StageEnded(std::int32_t result);
  void CloseReview();
  [[nodiscard]] std::optional<Problem> ProblemOfOptions() const;
  void BeginReview();
  void ShowReviewed();
  void ShowStatement();
  void StoreOptions();
  void PassOptionsToParser();
  void TakeText(LDGRQIFImport import, std::int32_t encoding);
  [[nodiscard]] QifOptions ChosenOptions() const;
  // Null for all entries.
  [[nodiscard]] const QifAccount* ChosenAccount(const QifResult& result) const;
  [[nodiscard]] bool UserAgrees() const;
  void UpdateButtons();
  void EntriesChanged();

  [[nodiscard]] std::string CheckEdited(const LDGRAccountEntry& entry) const override;
  void TakeEdited(LDGRAccountEntry& entry) override;

  Host& host_;
  Desk& desk_;
  Ledger& ledger_;
  EntryEditing& editing_;
  EntrySpeaker& speaker_;
  ModalWatch& modal_;
  const FileSystem& files_;
  const TextEncodings& encodings_;
  SheetSlot& sheets_;
  Announcer& announcer_;

  Stage stage_ = Stage::None;
  // There while a stage is.
  std::optional<ModalWatch::Up> up_;
  std::shared_ptr<LDGRAccount> account_;
  std::string path_;
  LDGRQIFImport import_;
  StatementImport statement_;
  // Of the text, whatever the other options are.
  QifDateProof dates_;
  std::vector<QifImportProof::Sample> samples_;
  std::vector<std::string> account_names_;
  QifImportOptionsState options_;
  // Whether or not the file is a text in it.
  std::int32_t chosen_encoding_ = 0;
  QifReview review_;
  std::int32_t first_number_ = 0;
  QifImportReviewState review_state_;
  LDGRQIFImportTableViewDataSource rows_;
  std::shared_ptr<LDGRQIFImportEntry> edit_entry_;
};

}  // namespace tallyfold
