#pragma once

#include <QString>
#include <QWidget>
#include <memory>
#include <string>
#include <vector>

#include "desktop/program.h"
#include "desktop/text_keys.h"
#include "fakes/fake_ambient.h"
#include "fakes/fake_file_system.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "fakes/temporary_folder.h"
#include "platform/notification_center.h"
#include "system/iconv_encodings.h"

class QAbstractItemView;

namespace tallyfold::desktop {

// The program with its window on fakes, on 22 February 2026 at noon, and what a user does to it.
// What is found by name must be there.
struct TestWindow {
  static constexpr const char* kAccountsFile = "/home/user/Library/Tallyfold/Accounts.plist";

  // With an accounts file of that content; "" for none. Launched by Launch(). Longer texts are
  // those of a language that takes more room.
  explicit TestWindow(const std::string& accounts, bool has_longer_texts = false);
  ~TestWindow();

  // As if the program had been started; false when it ends instead.
  bool Launch();
  // Lets the window see what has been done to it.
  static void Settle();
  // Lets time pass, in which nobody touches anything.
  void Wait(std::chrono::milliseconds time);

  // By the name of the object, in any window.
  template <typename Widget>
  [[nodiscard]] static Widget* Find(const char* name) {
    return dynamic_cast<Widget*>(FindWidget(name));
  }
  [[nodiscard]] static QWidget* FindWidget(const char* name);
  [[nodiscard]] static QString TextOf(const char* label);
  // The texts of a row, with "|" between the cells.
  [[nodiscard]] static QString Row(const char* table, int row);
  [[nodiscard]] static int Rows(const char* table);
  [[nodiscard]] static QWidget* Focus();
  [[nodiscard]] static QString FocusName();

  // Into the window that is active.
  static void Key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);
  static void Type(const char* text);
  // Into the field of that name, in place of what it holds.
  static void Fill(const char* field, const char* text);
  // Through the window system, so that a window under a sheet does not hear of it.
  static void Click(QWidget* widget);
  static void Click(const char* name) { Click(FindWidget(name)); }
  static void ClickRow(const char* table, int row, bool is_double = false);
  static void ClickHeader(const char* table, int column);

  FakeAmbient ambient;
  FakeFileSystem files;
  FakeAlerts alerts;
  FakeFilePanels panels;
  FakeProcessLauncher processes;
  FakeSpeech speech;
  FakeSpeech field_speech;
  FakeRunLoop loop{&ambient.clock};
  NotificationCenter notifications;
  FakeHost host;
  IconvEncodings encodings;
  TemporaryFolder settings;
  TextKeys text_keys;
  std::unique_ptr<Program> program;
};

// What a widget shows, as a literal of UTF-8.
[[nodiscard]] inline QString operator""_q(const char* text, std::size_t size) {
  return QString::fromUtf8(text, static_cast<qsizetype>(size));
}

// The household of the examples: the accounts "Joint checking", shown first, "Savings" and "Cash".
[[nodiscard]] std::string ExampleAccounts();

}  // namespace tallyfold::desktop
