#include <string>

#include "app/controller.h"
#include "app/entries/transfer_linking.h"
#include "app/exchange/qif_import_command.h"
#include "app/exchange/qif_import_controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/console_panels.h"
#include "console/exchange_options.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/review_figures.h"
#include "console/review_table.h"
#include "console/statement_options.h"
#include "console/table.h"
#include "console/values.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void Import(Console& console, const Arguments& arguments) {
  LDGRController& controller = console.controller;
  static_cast<void>(SelectedAccount(console));
  const std::string path = AbsolutePath(console.files, arguments.WordAt(0));
  if (console.files.IsFolder(path)) throw CommandError(path + " is a folder");
  if (!console.files.Exists(path)) throw CommandError("there is no file " + path);
  const bool is_statement = controller.importCommand().IsStatement(path);
  console.panels.Expect(path, [&] {
    if (is_statement) return;
    if (const auto encoding = arguments.Text("encoding")) {
      auto& menu = controller.importCommand().Encodings();
      menu.setEncoding(EncodingNamed(menu.items(), *encoding));
    }
  });
  const bool has_begun = controller.importCommand().QIFImport();
  if (const std::string problem = console.panels.TakeProblem(); !problem.empty()) {
    throw CommandError(problem);
  }
  if (controller.importCommand().HasRefused()) throw CommandError("the file cannot be imported");
  if (!has_begun) throw CommandError("nothing can be imported now");
  auto& import = controller.sharedQIFImportController();
  if (import.IsStatement()) {
    ConfirmStatementOptions(console, ReadStatementChoices(import.StatementOptions(), arguments));
  } else {
    RefuseStatementOptions(arguments);
    ConfirmImportOptions(console, ReadImportChoices(import.Options(), arguments));
  }
  ShowReviewFigures(console);
  // Entries of other accounts of the file are a choice away.
  if (import.IsReviewing() && import.entries().empty() && import.Review().hints.elsewhere == 0) {
    import.import_Cancel_Button();
    throw CommandError(path + " holds nothing that can be imported");
  }
}

// What cannot be taken leaves the review as it was read before.
void GoBackOfStatement(Console& console, const Arguments& arguments) {
  auto& import = OpenReview(console);
  const auto choices = ReadStatementChoices(import.StatementOptions(), arguments);
  const auto before = import.StatementOptions().typed;
  if (!import.import_GoBack_Button()) throw CommandError("the review cannot be left now");
  try {
    ConfirmStatementOptions(console, choices);
  } catch (const CommandError&) {
    import.StatementOptions_Read(before);
    static_cast<void>(import.ImportOptions_OK());
    throw;
  }
  ShowReviewFigures(console);
}

void GoBack(Console& console, const Arguments& arguments) {
  auto& import = OpenReview(console);
  if (import.IsStatement()) return GoBackOfStatement(console, arguments);
  RefuseStatementOptions(arguments);
  ImportChoices choices = ReadImportChoices(import.Options(), arguments);
  if (const auto encoding = arguments.Text("encoding")) {
    choices.encoding =
        EncodingNamed(console.controller.importCommand().Encodings().items(), *encoding);
  }
  if (!import.import_GoBack_Button()) throw CommandError("the review cannot be left now");
  ConfirmImportOptions(console, choices);
  ShowReviewFigures(console);
}

void ShowReview(Console& console, const Arguments& /*arguments*/) {
  const auto& import = OpenReview(console);
  ShowReviewedEntries(console, import.entries());
  ShowReviewFigures(console);
}

void MarkAll(const Console& console, bool marked) {
  auto& import = OpenReview(console);
  const bool is_unmarked = import.Review().marked_count < import.Review().entry_count;
  if (!marked) {
    import.MarkEntries(import.entries(), false);
  } else if (is_unmarked) {
    // The toggle for all of them brings them into the order of the file.
    import.ImportEntry_ImportAll();
  }
  ShowReviewFigures(console);
}

void MarkEntries(const Console& console, const Arguments& arguments, bool marked) {
  auto& import = OpenReview(console);
  if (arguments.NamesAllRows()) return MarkAll(console, marked);
  const auto entries = ReviewedEntriesNamed(console, arguments);
  import.MarkEntries(entries, marked);
  ShowReviewedEntries(console, entries);
}

void Mark(Console& console, const Arguments& arguments) {
  MarkEntries(console, arguments, true);
}

void Unmark(Console& console, const Arguments& arguments) {
  if (arguments.WordCount() == 1 && arguments.WordAt(0) == "undated") {
    OpenReview(console).ImportEntry_UnmarkUndated();
    return ShowReviewFigures(console);
  }
  MarkEntries(console, arguments, false);
}

void Drop(Console& console, const Arguments& arguments) {
  auto& import = OpenReview(console);
  import.RemoveEntries(ReviewedEntriesNamed(console, arguments));
  ShowReviewFigures(console);
}

void Resolve(Console& console, const Arguments& arguments) {
  auto& import = OpenReview(console);
  const auto entries = ReviewedEntriesNamed(console, arguments);
  import.TurnClearedOver(entries);
  ShowReviewedEntries(console, entries);
}

void ShowLeftOut(Console& console, const Arguments& /*arguments*/) {
  const auto& lines = OpenReview(console).StatementOptions().left_out;
  if (lines.empty()) throw CommandError("no line of a table was left out");
  Table table({{"line", Column::Align::Right}, {"reason"}, {"text"}});
  for (const LeftOutLine& each : lines) {
    table.Add({WriteNumber(static_cast<std::int64_t>(each.line)), std::string(TextOf(each.reason)),
               each.text});
  }
  console.printer.Show(table);
}

void CommitReview(Console& console, const Arguments& arguments) {
  auto& import = OpenReview(console);
  const bool takes_balance = arguments.YesNo("statement").value_or(false);
  if (takes_balance && !import.Review().balance) {
    throw CommandError("statement: the file has no balance to take over");
  }
  import.Import_TakeBalance(takes_balance);
  const std::size_t matched = import.Review().matched_count;
  const auto account = SelectedAccount(console);
  const auto entry_count = account->GetEntries().size();
  const auto type_count = account->GetTypes().size();
  const std::size_t undated = import.Review().marked_undated;
  if (!import.Import_OK()) throw CommandError("the account of the import is no longer selected");
  Table table({{"imported"}, {"count", Column::Align::Right}});
  const auto add = [&table](const char* what, std::size_t before, std::size_t now) {
    table.Add({what, WriteNumber(static_cast<std::int64_t>(now - before))});
  };
  add("entries", entry_count, account->GetEntries().size());
  add("types", type_count, account->GetTypes().size());
  if (matched > 0) add("matched entries", 0, matched);
  if (takes_balance) table.Add({"statement balance", WriteAmount(account->statementBalance())});
  if (undated > 0) add("entries without a date that can be read", 0, undated);
  console.printer.Show(table);
  const std::string& offer = console.controller.transferLinking().State().offer_text;
  if (!offer.empty()) console.printer.Note(offer + "  link offered links them.");
}

void Cancel(Console& console, const Arguments& /*arguments*/) {
  OpenReview(console).import_Cancel_Button();
  console.printer.Confirm("Nothing was imported.");
}

constexpr Option kEncoding = {
    .name = "encoding", .value = "NAME", .help = "of the text, such as UTF-8 or its number, 4"};
constexpr Option kAccount = {.name = "account",
                             .value = "NAME|all",
                             .help = "whose entries of the file; its first account at first"};
constexpr Option kFormat = {
    .name = "format", .value = "FORMAT", .help = "of the dates, such as MM/DD/YY"};
constexpr Option kDecimal = {
    .name = "decimal", .value = "TEXT", .help = "what stands before the cents, such as ."};
constexpr Option kColumn = {.name = "column",
                            .value = "NUMBER:FIELD|auto",
                            .help = "what a column of a table holds, such as 3:amount",
                            .is_repeatable = true};
constexpr Option kDelimiter = {.name = "delimiter",
                               .value = "CHARACTER|auto",
                               .help = "what parts the cells of a table: ; , tab or bar"};
constexpr Option kHeading = {
    .name = "heading", .value = "yes|no|auto", .help = "whether a table has headings"};
constexpr Option kOrder = {
    .name = "order", .value = "dmy|mdy|ymd|ydm|auto", .help = "of day, month and year in a table"};
constexpr Option kFees = {
    .name = "fees", .value = "yes|no|auto", .help = "whether fees come off the amounts of a table"};
constexpr Option kSpending = {.name = "spending",
                              .value = "positive|negative|auto",
                              .help = "the sign of money spent in a table, such as a card's"};
constexpr Option kReversals = {.name = "reversals",
                               .value = "marked|turned|auto",
                               .help = "whether a reversal of a CAMT file turns its sign"};
constexpr Option kSuggest = {.name = "suggest",
                             .value = "yes|no",
                             .help =
                                 "whether entries of a bank's file get the type that their "
                                 "payee had last"};
constexpr Option kThousands = {
    .name = "thousands", .value = "TEXT", .help = "what parts thousands, such as ,"};
constexpr Option kSwap = {.name = "swap",
                          .value = "category|payee|memo:type|tofrom|description",
                          .help = "where a line goes; what went there takes its place",
                          .is_repeatable = true};
constexpr Option kZero = {
    .name = "zero", .value = "deposit|debit", .help = "what an amount of nothing is"};
constexpr Option kTypes = {
    .name = "types", .value = "yes|no", .help = "whether new types come in that nothing uses"};
constexpr Option kSplits = {
    .name = "splits", .value = "yes|no", .help = "whether the lines of splits come in"};

constexpr Option kImportOptions[] = {
    kEncoding, kAccount,   kFormat,  kDecimal, kThousands, kSwap,     kZero,      kTypes,  kSplits,
    kColumn,   kDelimiter, kHeading, kOrder,   kFees,      kSpending, kReversals, kSuggest};

constexpr Option kCommitReviewOptions[] = {
    {.name = "statement",
     .value = "yes|no",
     .help = "whether the balance of the file becomes the statement balance; no at first"}};

constexpr Command kImportCommands[] = {
    {.name = "import",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .options = kImportOptions,
     .help = "reads a QIF, OFX, CAMT or CSV file and opens the review of what would be imported",
     .example = "import examples/household.qif",
     .run = Import},
    {.name = "review",
     .help = "shows the entries under review, what they repeat, and what will become of them",
     .example = "review",
     .run = ShowReview,
     .works_in_review = true},
    {.name = "mark",
     .words = "ROW...|FIRST-LAST|all",
     .least_words = 1,
     .most_words = 100,
     .help = "marks entries under review for import",
     .example = "mark 3 5-7",
     .run = Mark,
     .works_in_review = true},
    {.name = "unmark",
     .words = "ROW...|FIRST-LAST|all|undated",
     .least_words = 1,
     .most_words = 100,
     .help = "leaves entries under review out of the import; undated: those of no readable date",
     .example = "unmark 4",
     .run = Unmark,
     .works_in_review = true},
    {.name = "drop",
     .words = "ROW...|FIRST-LAST",
     .least_words = 1,
     .most_words = 100,
     .help = "takes entries out of the review; the others keep their rows",
     .example = "drop 4",
     .run = Drop,
     .works_in_review = true},
    {.name = "resolve",
     .words = "ROW...|FIRST-LAST",
     .least_words = 1,
     .most_words = 100,
     .help = "turns the cleared marks of entries under review over",
     .example = "resolve 2",
     .run = Resolve,
     .works_in_review = true},
    {.name = "leftout",
     .help = "shows the lines of a table that became no entries, and why",
     .example = "leftout",
     .run = ShowLeftOut,
     .works_in_review = true},
    {.name = "back",
     .options = kImportOptions,
     .help = "reads the file again with other options; what was done in the review is lost",
     .example = "back format=DD/MM/YY",
     .run = GoBack,
     .works_in_review = true},
    {.name = "commit",
     .options = kCommitReviewOptions,
     .help = "adds the marked entries, and the types they need, to the selected account",
     .example = "commit statement=yes",
     .run = CommitReview,
     .works_in_review = true},
    {.name = "cancel",
     .help = "ends the review without importing anything",
     .example = "cancel",
     .run = Cancel,
     .works_in_review = true},
};

}  // namespace

std::span<const Command> ImportCommands() {
  return kImportCommands;
}

}  // namespace tallyfold::console
