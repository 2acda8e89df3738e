#include "app/exchange/export_commands.h"

#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/exchange_options.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/register_listing.h"
#include "console/written_file.h"
#include "exchange/register_export.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

void WriteFile(Console& console, const std::string& path, std::function<void()> choose,
               WriteResult (ExportCommands::*operation)()) {
  static_cast<void>(SelectedAccount(console));
  WriteToFile(console, path, std::move(choose),
              [operation](tallyfold::ExportCommands& exports) { return (exports.*operation)(); });
}

std::int32_t QifScope(const Console& console, const std::string& word) {
  if (word == "shown") return LDGRQIFExportAccessoryView::kShownEntries;
  if (word == "all") return LDGRQIFExportAccessoryView::kAllAccounts;
  const auto account = AccountNamed(console, word);
  if (!account->IsAuthenticated()) {
    throw CommandError("scope: the account " + Quoted(word) + " is locked");
  }
  return account->GetNumber();
}

void ExportQif(Console& console, const Arguments& arguments) {
  const auto choose = [&] {
    auto& panel = console.controller.exports().sharedQIFExportAccessoryView();
    if (const auto scope = arguments.Text("scope")) {
      panel.setExportAccount(QifScope(console, *scope));
    }
    if (const auto format = arguments.Text("format")) {
      const auto item = static_cast<std::size_t>(DateFormatNamed(panel.dateFormats(), *format));
      panel.setExportDateFormat(QifDateFormatForTag(panel.dateFormats()[item].tag));
    }
    if (const auto encoding = arguments.Text("encoding")) {
      panel.setEncoding(
          static_cast<std::uint32_t>(EncodingNamed(panel.encodings().items(), *encoding)));
    }
  };
  WriteFile(console, arguments.WordAt(0), choose, &ExportCommands::ExportQIF);
}

void ExportText(Console& console, const Arguments& arguments) {
  const auto choose = [&] {
    auto& panel = console.controller.exports().exportAccessoryManager();
    if (const auto scope = arguments.Text("scope")) {
      if (*scope != "shown" && *scope != "all") {
        throw CommandError("scope: expected shown or all, not " + Quoted(*scope));
      }
      panel.setExportType(*scope == "shown" ? LDGRExportAccessoryManager::kShownEntries
                                            : LDGRExportAccessoryManager::kAllEntries);
    }
    if (const auto encoding = arguments.Text("encoding")) {
      panel.setEncoding(
          static_cast<std::uint32_t>(EncodingNamed(panel.encodings().items(), *encoding)));
    }
  };
  WriteFile(console, arguments.WordAt(0), choose, &ExportCommands::ExportText);
}

// To the file that is named, else to standard output.
void ExportRows(Console& console, const Arguments& arguments,
                std::string (*write)(std::span<const ExportedRow>), const std::string& name) {
  const RegisterListing listing = ListRegister(console, arguments);
  std::vector<ExportedRow> rows;
  rows.reserve(listing.rows.size());
  for (const auto& [account, entry] : listing.rows) rows.push_back({account, entry});
  const std::string text = write(rows);
  if (arguments.WordCount() == 0) return console.printer.ShowFile(text);
  WriteToFile(console, arguments.WordAt(0), nullptr,
              [&](tallyfold::ExportCommands& exports) { return exports.ExportMade(text, name); });
}

void ExportCsv(Console& console, const Arguments& arguments) {
  ExportRows(console, arguments, RowsAsCsv, "register.csv");
}

void ExportJson(Console& console, const Arguments& arguments) {
  ExportRows(console, arguments, RowsAsJson, "register.json");
}

void SaveAs(Console& console, const Arguments& arguments) {
  WriteFile(console, arguments.WordAt(0), nullptr, &ExportCommands::SaveAs);
}

constexpr Option kQifOptions[] = {
    {.name = "scope",
     .value = "shown|all|ACCOUNT",
     .help = "the entries that the filter passes, every account that is not locked, or one"},
    {.name = "format", .value = "FORMAT", .help = "of the dates, such as MM/DD/YYYY"},
    {.name = "encoding", .value = "NAME", .help = "of the text, such as UTF-8 or its number, 4"},
};

constexpr Option kTextOptions[] = {
    {.name = "scope",
     .value = "shown|all",
     .help = "the entries that the filter passes, or all of the account"},
    {.name = "encoding", .value = "NAME", .help = "of the text, such as UTF-8 or its number, 4"},
};

// Tables of options live elsewhere, so this one is made when it is first asked for.
const std::vector<Command>& TableOfExportCommands() {
  static const std::vector<Command> kExportCommands = {
      {.name = "export qif",
       .words = "PATH",
       .least_words = 1,
       .most_words = 1,
       .options = kQifOptions,
       .help = "writes entries for other programs; what is not said is as it was the last time",
       .example = "export qif ~/checking.qif scope=shown format=DD/MM/YYYY",
       .answers = "of a file that is there: OK (leave it), Overwrite",
       .run = ExportQif},
      {.name = "export text",
       .words = "PATH",
       .least_words = 1,
       .most_words = 1,
       .options = kTextOptions,
       .help = "writes the selected account as a table of tabs; the rest as the last time",
       .example = "export text ~/checking.txt scope=all",
       .answers = "of a file that is there: OK (leave it), Overwrite",
       .run = ExportText},
      {.name = "export csv",
       .words = "[PATH]",
       .most_words = 1,
       .options = ListingOptions(),
       .help = "writes the rows that register shows as comma-separated values, to a file or here",
       .example = "export csv ~/march.csv from=2026-03-01 to=2026-03-31",
       .answers = "of a file that is there: OK (leave it), Overwrite",
       .run = ExportCsv},
      {.name = "export json",
       .words = "[PATH]",
       .most_words = 1,
       .options = ListingOptions(),
       .help = "writes the rows that register shows as JSON, with the lines of splits",
       .example = "export json ~/all.json all-accounts=yes",
       .answers = "of a file that is there: OK (leave it), Overwrite",
       .run = ExportJson},
      {.name = "saveas",
       .words = "PATH",
       .least_words = 1,
       .most_words = 1,
       .help = "writes the accounts to another file; asks before it replaces one (see answer)",
       .example = "saveas \"~/Documents/Accounts 2026.plist\"",
       .answers = "of a file that is there: OK (leave it), Overwrite",
       .run = SaveAs,
       .writes_own_files = true},
  };
  return kExportCommands;
}

}  // namespace

std::span<const Command> ExportCommands() {
  return TableOfExportCommands();
}

}  // namespace tallyfold::console
