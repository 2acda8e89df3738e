#include "app/exchange/export_commands.h"

#include <string>

#include "app/controller.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/console_panels.h"
#include "console/exchange_options.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "model/account.h"

namespace tallyfold::console {
namespace {

// Runs an operation that asks for a file, and answers its panel.
void WriteFile(Console& console, const std::string& typed_path, std::function<void()> choose,
               WriteResult (ExportCommands::*operation)()) {
  const std::string path = AbsolutePath(console.files, typed_path);
  if (console.files.IsFolder(path)) throw CommandError(path + " is a folder");
  static_cast<void>(SelectedAccount(console));
  console.panels.Expect(path, std::move(choose));
  const WriteResult result = (console.controller.exports().*operation)();
  if (const std::string problem = console.panels.TakeProblem(); !problem.empty()) {
    throw CommandError(problem);
  }
  if (result != WriteResult::Written) throw CommandError(path + " could not be written");
  console.printer.Confirm("Written to " + path + ".");
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

constexpr Command kExportCommands[] = {
    {.name = "export qif",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .options = kQifOptions,
     .help = "writes entries for other programs; what is not said is as it was the last time",
     .example = "export qif ~/checking.qif scope=shown format=DD/MM/YYYY",
     .run = ExportQif},
    {.name = "export text",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .options = kTextOptions,
     .help = "writes the selected account as a table of tabs; the rest as the last time",
     .example = "export text ~/checking.txt scope=all",
     .run = ExportText},
    {.name = "saveas",
     .words = "PATH",
     .least_words = 1,
     .most_words = 1,
     .help = "writes the accounts to another file; asks before it replaces one (see answer)",
     .example = "saveas \"~/Documents/Accounts 2026.plist\"",
     .run = SaveAs,
     .writes_own_files = true},
};

}  // namespace

std::span<const Command> ExportCommands() {
  return kExportCommands;
}

}  // namespace tallyfold::console
