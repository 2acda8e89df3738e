// What it costs to open each sheet of a window on an account of 100,000 entries with 10,000
// payees, off-screen, from the order to all of it painted, of which at most 50 ms are wanted, and
// "after_ms", what of it waits until then; and what a letter costs in a field that completes what
// is typed, of which 5 ms are. The yardsticks, taken in the same run, are a bare dialog of twenty
// fields, and a letter in one of them.

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QTest>
#include <algorithm>
#include <memory>
#include <string>
#include <string_view>

#include "app/accounts/account_editing.h"
#include "app/accounts/account_selection.h"
#include "app/controller.h"
#include "app/desk.h"
#include "app/entries/entry_editing.h"
#include "app/entries/entry_removal.h"
#include "app/exchange/qif_import_command.h"
#include "app/face/refresh.h"
#include "app/face/sheet_slot.h"
#include "app/schedules/schedule_editing.h"
#include "app/schedules/schedule_reminder.h"
#include "app/shell/about_sheet.h"
#include "app/shell/backups_sheet.h"
#include "app/shell/preferences_sheet.h"
#include "app/views/account_summary_sheet.h"
#include "benchmarks/household_account.h"
#include "benchmarks/sort_yardstick.h"
#include "benchmarks/window_run.h"
#include "desktop/test_window.h"
#include "ledger/change.h"
#include "ledger/ledger.h"

namespace tallyfold::benchmarks {
namespace {

constexpr std::size_t kPayees = 10'000;
constexpr int kFields = 20;
constexpr const char* kLetters = "ayee 77";

struct Window {
  Window() {
    static_cast<void>(test.Launch());
    test.Key(Qt::Key_Return);
    const auto& account = app().desk().accounts().back();
    const EntryList entries = MakeHouseholdAccount(kSortedKeys)->GetEntries();
    for (std::size_t i = 0; i < entries.size(); ++i) {
      const std::string number = std::to_string(i % kPayees);
      entries[i]->SetToFrom("Payee " + number);
      entries[i]->SetDescription("Payment " + number);
    }
    Change change(app().ledger());
    change.Add(account, entries);
    change.EditOptions(account);
    // All are offered.
    account->SetPreference_ToFrom_Style(0);
    account->SetPreference_Descriptions_Style(0);
    change.Close();
    auto& schedules = app().scheduleSheet();
    for (int i = 0; i < kFields; ++i) {
      schedules.New(EntryKind::Debit);
      schedules.OK();
    }
    app().refresh().ImportEnded();
    test.files.AddFile(
        "/home/user/bank.qif",
        "!Type:Bank\nD3/2'26\nT-31.40\nPPayee 77\n^\nD3/3'26\nT25.00\nPGrandma\n^\n");
    test.Settle();
  }
  // Made when it is first asked for; goes before the application does.
  static std::unique_ptr<Window>& Place() {
    static std::unique_ptr<Window> place;
    return place;
  }
  static Window& Shared() {
    if (Place() == nullptr) Place() = std::make_unique<Window>();
    return *Place();
  }
  [[nodiscard]] LDGRController& app() { return test.program->app(); }

  desktop::TestWindow test{""};
};

struct Opening {
  const char* name;
  void (*open)(Window& window);
};
const Opening kOpenings[] = {
    {"debit", [](Window& window) { window.app().entries().New(EntryKind::Debit); }},
    {"deposit", [](Window& window) { window.app().entries().New(EntryKind::Deposit); }},
    {"transfer", [](Window& window) { window.app().entries().New(EntryKind::Transfer); }},
    {"schedule", [](Window& window) { window.app().scheduleSheet().New(EntryKind::Debit); }},
    {"reminder", [](Window& window) { window.app().reminder().Open(); }},
    {"removal",
     [](Window& window) {
       window.app().desk().SelectEntry(window.app().desk().SelectedAccount()->GetEntries().back());
       window.app().entryRemoval().EntryRemoveConfirm_Begin();
     }},
    {"account", [](Window& window) { window.app().accountSheet().Account_Edit(); }},
    {"new account", [](Window& window) { window.app().accountSheet().Account_Add(); }},
    {"preferences", [](Window& window) { window.app().preferencesSheet().Open(); }},
    {"backups", [](Window& window) { window.app().backupsSheet().Open(); }},
    {"about", [](Window& window) { window.app().about().Open(); }},
    {"summary options", [](Window& window) { window.app().summarySheet().Open(); }},
    {"import options",
     [](Window& window) {
       window.test.panels.Answer("/home/user/bank.qif");
       static_cast<void>(window.app().importCommand().QIFImport());
     }},
};

void OpenSheet(benchmark::State& state, const Opening& opening) {
  Window& window = Window::Shared();
  double after = 0.0;
  for ([[maybe_unused]] auto _ : state) {
    state.SetIterationTime(SecondsFor([&] {
      opening.open(window);
      QCoreApplication::sendPostedEvents();
      if (QWidget* sheet = QApplication::activeModalWidget()) sheet->repaint();
    }));
    after += SecondsFor([] { QCoreApplication::processEvents(); });
    if (window.app().sheets().IsFree()) return state.SkipWithError("it is not open");
    window.app().sheets().CancelOpen();
    window.test.Settle();
  }
  state.counters["after_ms"] = 1000 * after / static_cast<double>(state.iterations());
}

struct Bare {
  Bare() {
    auto* form = new QFormLayout(&dialog);
    for (int i = 0; i < kFields; ++i) {
      field = new QLineEdit(&dialog);
      form->addRow(QStringLiteral("Field"), field);
    }
  }
  void Open() {
    dialog.open();
    QCoreApplication::processEvents();
  }
  QDialog dialog;
  QLineEdit* field = nullptr;
};

void YardstickOfOpening(benchmark::State& state) {
  for ([[maybe_unused]] auto _ : state) {
    std::unique_ptr<Bare> bare;
    state.SetIterationTime(SecondsFor([&bare] {
      bare = std::make_unique<Bare>();
      bare->Open();
    }));
  }
}

// After the first one, so that there is something to complete. The worst of them counts.
double WorstLetter(QLineEdit& field) {
  field.setFocus();
  field.clear();
  QTest::keyClick(&field, 'P');
  double worst = 0.0;
  for (const char* letter = kLetters; *letter != '\0'; ++letter) {
    worst = std::max(worst, SecondsFor([&field, letter] {
                       QTest::keyClick(&field, *letter);
                       QCoreApplication::processEvents();
                     }));
  }
  return worst;
}

void TypeLetter(benchmark::State& state, const char* sheet, const char* name, bool opens_list) {
  Window& window = Window::Shared();
  const auto kind = std::string_view(sheet) == "debitSheet" ? EntryKind::Debit : EntryKind::Deposit;
  window.app().entries().New(kind);
  window.test.Settle();
  auto* field = desktop::TestWindow::Find<QLineEdit>((std::string(sheet) + name).c_str());
  for ([[maybe_unused]] auto _ : state) {
    if (opens_list) {
      field->setFocus();
      QTest::keyClick(field, Qt::Key_Down);
    }
    state.SetIterationTime(WorstLetter(*field));
  }
  window.app().sheets().CancelOpen();
  window.test.Settle();
}

void YardstickOfLetter(benchmark::State& state) {
  Bare bare;
  bare.Open();
  for ([[maybe_unused]] auto _ : state) state.SetIterationTime(WorstLetter(*bare.field));
}

void Register() {
  const auto measured = [](benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Iterations(15)->Unit(benchmark::kMillisecond);
  };
  measured(benchmark::RegisterBenchmark("open/yardstick", YardstickOfOpening));
  for (const Opening& opening : kOpenings) {
    measured(benchmark::RegisterBenchmark((std::string("open/") + opening.name).c_str(), OpenSheet,
                                          opening));
  }
  measured(benchmark::RegisterBenchmark("letter/yardstick", YardstickOfLetter));
  measured(benchmark::RegisterBenchmark("letter/description", TypeLetter, "debitSheet",
                                        "_Description_Field", false));
  measured(
      benchmark::RegisterBenchmark("letter/to", TypeLetter, "debitSheet", "_ToFrom_Field", false));
  measured(benchmark::RegisterBenchmark("letter/to with its list", TypeLetter, "debitSheet",
                                        "_ToFrom_Field", true));
}

}  // namespace
}  // namespace tallyfold::benchmarks

int main(int argc, char** argv) {
  using namespace tallyfold::benchmarks;
  return RunInWindows(argc, argv, Register, [] { Window::Place().reset(); });
}
