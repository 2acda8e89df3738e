#include <array>
#include <string>
#include <string_view>

#include "app/controller.h"
#include "app/shell/printing.h"
#include "console/all_commands.h"
#include "console/command_error.h"
#include "console/console.h"
#include "console/lookup.h"
#include "console/printer.h"
#include "console/values.h"
#include "console/written_file.h"
#include "model/account.h"
#include "printing/plain_text.h"

namespace tallyfold::console {
namespace {

constexpr std::int32_t kMostCharacters = 1000;

struct NamedKind {
  std::string_view name;
  PrintKind kind;
};
constexpr std::array kKinds = {
    NamedKind{"register", PrintKind::Register}, NamedKind{"reconcile", PrintKind::Reconcile},
    NamedKind{"summary", PrintKind::Summary}, NamedKind{"schedules", PrintKind::Schedules}};

PrintKind ReadKind(std::string_view word) {
  std::string names;
  for (const NamedKind& kind : kKinds) {
    if (kind.name == word) return kind.kind;
    names += (names.empty() ? "" : ", ") + std::string(kind.name);
  }
  throw CommandError("expected one of " + names + ", not " + Quoted(word));
}

PrintOptions ReadOptions(const Arguments& arguments) {
  PrintOptions options;
  options.paper = PlainTextPaper();
  for (std::size_t i = 1; i < arguments.WordCount(); ++i) {
    if (arguments.WordAt(i) != "landscape") {
      throw CommandError("expected landscape or nothing, not " + Quoted(arguments.WordAt(i)));
    }
    options.orientation = Orientation::Landscape;
  }
  // A width that was asked for is that of the page, however it is turned.
  if (const auto width = arguments.Number("width", 1, kMostCharacters)) {
    options.paper.portrait.width = options.paper.landscape.width = *width;
  }
  if (const auto length = arguments.Number("length", 1, kMostCharacters)) {
    options.paper.portrait.height = options.paper.landscape.height = *length;
  }
  options.splits = arguments.YesNo("splits").value_or(false);
  options.notes = arguments.YesNo("notes").value_or(false);
  return options;
}

void Print(Console& console, const Arguments& arguments) {
  const PrintKind kind = ReadKind(arguments.WordAt(0));
  const PrintOptions options = ReadOptions(arguments);
  const auto account = SelectedAccount(console);
  const FixedPitchMetric metric;
  const auto pages = console.controller.printing().MakePages(kind, options, metric);
  if (!pages) {
    throw CommandError(account->IsLocked() ? account->GetName() + " is locked"
                                           : "there is nothing of that kind to print");
  }
  const auto characters = [](double points) {
    return WriteNumber(static_cast<std::int64_t>(points));
  };
  switch (pages->GetProblem()) {
    case Pages::Problem::TooNarrow:
      throw CommandError("the page is too narrow: amounts and dates need a width of at least " +
                         characters(pages->LeastSize().width));
    case Pages::Problem::TooLow:
      throw CommandError("the page is too low: it needs a length of at least " +
                         characters(pages->LeastSize().height));
    case Pages::Problem::None:
      break;
  }
  const auto text_of = [&pages](std::size_t page) {
    return (page == 0 ? "" : "\f") + PageAsText(pages->PageAt(page));
  };
  const auto path = arguments.Text("file");
  if (!path) {
    for (std::size_t i = 0; i < pages->Count(); ++i) console.printer.ShowText(text_of(i));
    return;
  }
  std::string text;
  for (std::size_t i = 0; i < pages->Count(); ++i) text += text_of(i);
  WriteToFile(console, *path, nullptr, [&text, &arguments](tallyfold::ExportCommands& exports) {
    return exports.ExportMade(text, arguments.WordAt(0) + ".txt");
  });
}

constexpr Option kPrintOptions[] = {
    {.name = "width", .value = "NUMBER", .help = "characters in a line (80, or 105 in landscape)"},
    {.name = "length", .value = "NUMBER", .help = "lines on a page (60, or 45 in landscape)"},
    {.name = "splits", .value = "yes|no", .help = "with the lines of splits (no)"},
    {.name = "notes", .value = "yes|no", .help = "with the notes (no)"},
    {.name = "file", .value = "PATH", .help = "writes them to a file instead of showing them"},
};

constexpr Command kPrintCommands[] = {
    {.name = "print",
     .words = "register|reconcile|summary|schedules [landscape]",
     .least_words = 1,
     .most_words = 2,
     .options = kPrintOptions,
     .help = "prints pages as plain text, with a form feed between them",
     .example = "print register landscape splits=yes",
     .answers = "of a file that is there: OK (leave it), Overwrite",
     .run = Print},
};

}  // namespace

std::span<const Command> PrintCommands() {
  return kPrintCommands;
}

}  // namespace tallyfold::console
